// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/AppInfo.h"

namespace skipnest::platform {

class Alerts;
class ApplicationControl;
class Bookmarks;
class Diagnostics;
class Executor;
class Files;
class HotkeyBackend;
class InstanceLock;
class KeyboardLayout;
class KeyEvents;
class PeerCredentials;
class Scheduler;
class ScriptRunner;
class UserDefaults;
class WallClock;
class Workspace;

// Everything the core may ask of the machine it runs on. A backend owns the objects and outlives
// whoever uses them. None is ever missing: a port that can do nothing says so by availability().
struct Ports {
    AppInfo app;
    Scheduler& scheduler;
    Executor& executor;
    WallClock& wallClock;
    Diagnostics& diagnostics;
    HotkeyBackend& hotkeys;
    KeyboardLayout& keyboardLayout;
    KeyEvents& keyEvents;
    Workspace& workspace;
    ApplicationControl& applications;
    ScriptRunner& scripts;
    Bookmarks& bookmarks;
    Files& files;
    UserDefaults& defaults;
    Alerts& alerts;
    InstanceLock& instances;
    PeerCredentials& peers;
};

} // namespace skipnest::platform
