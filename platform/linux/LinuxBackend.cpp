// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/LinuxBackend.h"

#include "platform/DebugLogFile.h"
#include "platform/JsonDefaults.h"
#include "platform/QtExecutor.h"
#include "platform/QtScheduler.h"
#include "platform/SystemWallClock.h"
#include "platform/UnavailablePorts.h"
#include "platform/UsKeyboardLayout.h"
#include "platform/linux/DesktopEntries.h"
#include "platform/linux/HeadlessPorts.h"
#include "platform/linux/LinuxAppInfo.h"
#include "platform/linux/LinuxBookmarks.h"
#include "platform/linux/LinuxInstanceLock.h"
#include "platform/linux/PosixFiles.h"
#include "platform/linux/SocketPeer.h"
#include "platform/linux/WaylandWorkspace.h"
#include "platform/linux/X11ApplicationPorts.h"
#include "platform/linux/X11Display.h"
#include "platform/linux/X11Hotkeys.h"
#include "platform/linux/X11KeyEvents.h"
#include "platform/linux/X11KeyboardLayout.h"
#include "platform/linux/X11Keymap.h"

namespace skipnest::linuxdesktop {
namespace {

// What every session has.
struct Services {
    explicit Services(const platform::AppInfo& app)
        : executor(scheduler), diagnostics(app.logFolder, scheduler, wallClock),
          defaults(files, app.supportFolder + QStringLiteral("/defaults.json")),
          instances(app.runtimeFolder) {}

    platform::QtScheduler scheduler;
    platform::QtExecutor executor;
    platform::SystemWallClock wallClock;
    platform::DebugLogFile diagnostics;
    PosixFiles files;
    platform::JsonDefaults defaults;
    LinuxBookmarks bookmarks;
    LinuxInstanceLock instances;
    SocketPeer peers;
    platform::UnavailableKeyboardCapture keyboardCapture{{}};
    platform::UnavailableDesktopShortcuts desktopShortcuts{scheduler, {}};
    platform::UnavailableFileIndex fileIndex{scheduler, {}};
    platform::UnavailableIconSource icons;
    platform::UnavailableStatusItem statusItem{{}};
    platform::UnavailableScreens screens;
    platform::UnavailableLoginItem loginItem{{}};
    platform::UnavailableServicesMenu servicesMenu{{}};
    platform::UnavailableProcessLauncher processes{{}};
    platform::UnavailableNotifications distributedNotifications{{}};
};

class X11Backend final : public platform::Backend {
public:
    // Null where Qt is not connected to an X server.
    static std::unique_ptr<platform::Backend>
    open(const platform::AppInfo& app, platform::Alerts& alerts, platform::PanelHost& panels) {
        auto services = std::make_unique<Services>(app);
        auto display = X11Display::open(services->scheduler);
        if (!display)
            return nullptr;
        return std::unique_ptr<platform::Backend>(
            new X11Backend(app, std::move(services), std::move(display), alerts, panels));
    }

    [[nodiscard]] const platform::Ports& ports() const override { return ports_; }
    [[nodiscard]] QString session() const override { return QStringLiteral("x11"); }
    [[nodiscard]] QStringList runningTimers() const override {
        return services_->scheduler.runningTimers();
    }

private:
    X11Backend(const platform::AppInfo& app, std::unique_ptr<Services> services,
               std::unique_ptr<X11Display> display, platform::Alerts& alerts,
               platform::PanelHost& panels)
        : services_(std::move(services)), display_(std::move(display)),
          keymap_(*display_, services_->scheduler),
          hotkeys_(*display_, keymap_, services_->scheduler), layout_(keymap_),
          keyEvents_(*display_, keymap_, services_->scheduler),
          applications_(*display_, services_->scheduler, services_->executor),
          ports_{app,
                 services_->scheduler,
                 services_->executor,
                 services_->wallClock,
                 services_->diagnostics,
                 hotkeys_,
                 layout_,
                 keyEvents_,
                 applications_.workspace,
                 applications_.control,
                 applications_.scripts,
                 services_->bookmarks,
                 services_->files,
                 services_->defaults,
                 alerts,
                 services_->instances,
                 services_->peers,
                 services_->keyboardCapture,
                 services_->desktopShortcuts,
                 services_->fileIndex,
                 services_->icons,
                 services_->statusItem,
                 services_->screens,
                 panels,
                 services_->loginItem,
                 services_->servicesMenu,
                 services_->processes,
                 services_->distributedNotifications} {}

    std::unique_ptr<Services> services_;
    std::unique_ptr<X11Display> display_;
    X11Keymap keymap_;
    X11Hotkeys hotkeys_;
    X11KeyboardLayout layout_;
    X11KeyEvents keyEvents_;
    X11ApplicationPorts applications_;
    platform::Ports ports_;
};

class HeadlessBackend final : public platform::Backend {
public:
    HeadlessBackend(const platform::AppInfo& app, SessionKind session, platform::Alerts& alerts,
                    platform::PanelHost& panels)
        : services_(app), session_(session), entries_(services_.scheduler, services_.executor),
          hotkeys_(session), keyEvents_(session),
          workspace_(session, waylandSocketPath(QProcessEnvironment::systemEnvironment()), entries_,
                     services_.scheduler, services_.executor),
          scripts_(session), ports_{app,
                                    services_.scheduler,
                                    services_.executor,
                                    services_.wallClock,
                                    services_.diagnostics,
                                    hotkeys_,
                                    layout_,
                                    keyEvents_,
                                    workspace_,
                                    control_,
                                    scripts_,
                                    services_.bookmarks,
                                    services_.files,
                                    services_.defaults,
                                    alerts,
                                    services_.instances,
                                    services_.peers,
                                    services_.keyboardCapture,
                                    services_.desktopShortcuts,
                                    services_.fileIndex,
                                    services_.icons,
                                    services_.statusItem,
                                    services_.screens,
                                    panels,
                                    services_.loginItem,
                                    services_.servicesMenu,
                                    services_.processes,
                                    services_.distributedNotifications} {}

    [[nodiscard]] const platform::Ports& ports() const override { return ports_; }
    [[nodiscard]] QString session() const override {
        return session_ == SessionKind::wayland ? QStringLiteral("wayland")
                                                : QStringLiteral("headless");
    }
    [[nodiscard]] QStringList runningTimers() const override {
        return services_.scheduler.runningTimers();
    }

private:
    Services services_;
    SessionKind session_;
    DesktopEntries entries_;
    HeadlessHotkeys hotkeys_;
    platform::UsKeyboardLayout layout_;
    HeadlessKeyEvents keyEvents_;
    WaylandWorkspace workspace_;
    HeadlessApplications control_;
    HeadlessScripts scripts_;
    platform::Ports ports_;
};

} // namespace

std::unique_ptr<platform::Backend> makeLinuxBackend(SessionKind session, platform::Alerts& alerts,
                                                    platform::PanelHost& panels) {
    const platform::AppInfo app = linuxAppInfo(QProcessEnvironment::systemEnvironment());
    if (session == SessionKind::x11) {
        if (auto backend = X11Backend::open(app, alerts, panels))
            return backend;
        session = SessionKind::none;
    }
    return std::make_unique<HeadlessBackend>(app, session, alerts, panels);
}

} // namespace skipnest::linuxdesktop
