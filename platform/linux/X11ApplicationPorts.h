// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/linux/X11ApplicationControl.h"
#include "platform/linux/X11ScriptRunner.h"
#include "platform/linux/X11Workspace.h"
#include "platform/linux/windows/X11Accessibility.h"

namespace skipnest::linuxdesktop {

// The ports about applications and their windows with all that they share, in the order in which it
// is built. Everything given must outlive it.
struct X11ApplicationPorts {
    X11ApplicationPorts(X11Display& display, platform::Scheduler& scheduler,
                        platform::Executor& executor, const QString& runtimeFolder = {})
        : entries(scheduler, executor), windows(display, scheduler), applications(windows, entries),
          commands(display, windows), launcher(executor), startup(display),
          workspace(scheduler, entries, windows, applications, commands, launcher, startup),
          control(scheduler, windows, applications, commands), tabs(scheduler, runtimeFolder),
          scripts(windows, applications, commands, tabs, display),
          accessibility(display, scheduler, executor, windows, applications, commands) {}

    DesktopEntries entries;
    X11Windows windows;
    X11Applications applications;
    X11WindowCommands commands;
    ApplicationLauncher launcher;
    X11StartupNotification startup;
    X11Workspace workspace;
    X11ApplicationControl control;
    ExtensionTabs tabs;
    X11ScriptRunner scripts;
    X11Accessibility accessibility;
};

} // namespace skipnest::linuxdesktop
