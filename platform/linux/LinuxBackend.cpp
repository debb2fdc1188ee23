// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/LinuxBackend.h"

#include "platform/DebugLogFile.h"
#include "platform/EndpointLanguageModel.h"
#include "platform/JsonDefaults.h"
#include "platform/QtExecutor.h"
#include "platform/QtHttpClient.h"
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
#include "platform/linux/WindowKeyboardCapture.h"
#include "platform/linux/X11ApplicationPorts.h"
#include "platform/linux/X11Display.h"
#include "platform/linux/X11Hotkeys.h"
#include "platform/linux/X11KeyEvents.h"
#include "platform/linux/X11KeyboardLayout.h"
#include "platform/linux/X11Keymap.h"
#include "platform/linux/X11PointerEvents.h"
#include "platform/linux/browser/ExtensionTabs.h"
#include "platform/linux/browser/LinuxBrowserExtensions.h"
#include "platform/linux/contacts/LinuxContactStore.h"
#include "platform/linux/crash/AlternateStack.h"
#include "platform/linux/crash/LinuxCrashCapture.h"
#include "platform/linux/index/LinuxFileIndex.h"
#include "platform/linux/keys/LinuxDesktopShortcuts.h"
#include "platform/linux/keys/X11KeyboardCapture.h"
#include "platform/linux/previews/X11ScreenCapture.h"
#include "platform/linux/shell/DBusNotifications.h"
#include "platform/linux/shell/DetachedProcesses.h"
#include "platform/linux/shell/FileManagerMenu.h"
#include "platform/linux/shell/LinuxScreens.h"
#include "platform/linux/shell/QtStatusItem.h"
#include "platform/linux/shell/ThemeIcons.h"
#include "platform/linux/shell/XdgLoginItem.h"

namespace skipnest::linuxdesktop {
namespace {

QString baseFolder(const QProcessEnvironment& environment, const char* variable,
                   const QString& home, const char* otherwise) {
    const QString value = environment.value(QLatin1String(variable));
    return value.startsWith(u'/') ? value : home + QLatin1String(otherwise);
}

// What every session has.
struct Services {
    Services(const platform::AppInfo& app, const QProcessEnvironment& environment)
        : executor(scheduler, ensureAlternateStack),
          diagnostics(app.logFolder, scheduler, wallClock),
          defaults(files, app.supportFolder + QStringLiteral("/defaults.json")),
          instances(app.runtimeFolder),
          loginItem(files, app, baseFolder(environment, "XDG_CONFIG_HOME", app.home, "/.config")),
          servicesMenu(files, app,
                       baseFolder(environment, "XDG_DATA_HOME", app.home, "/.local/share"),
                       baseFolder(environment, "XDG_CONFIG_HOME", app.home, "/.config")),
          http(scheduler, executor, app.version), languageModel(http, defaults, scheduler),
          contacts(executor, defaults,
                   {app.home, baseFolder(environment, "XDG_CONFIG_HOME", app.home, "/.config"),
                    baseFolder(environment, "XDG_DATA_HOME", app.home, "/.local/share")}) {}

    platform::QtScheduler scheduler;
    platform::QtExecutor executor;
    platform::SystemWallClock wallClock;
    platform::DebugLogFile diagnostics;
    PosixFiles files;
    platform::JsonDefaults defaults;
    LinuxBookmarks bookmarks;
    LinuxInstanceLock instances;
    SocketPeer peers;
    XdgLoginItem loginItem;
    FileManagerMenu servicesMenu;
    DetachedProcesses processes;
    DBusNotifications distributedNotifications;
    platform::QtHttpClient http;
    platform::EndpointLanguageModel languageModel;
    LinuxContactStore contacts;
    std::unique_ptr<platform::CrashCapture> crashCapture = makeCrashCapture();
};

// What a session with or without X has on the screen and in its settings. `display` and `keymap`
// are null without X.
struct DesktopServices {
    DesktopServices(Services& services, const platform::AppInfo& app,
                    const QProcessEnvironment& environment, DesktopEntries& entries,
                    X11Display* display, X11Keymap* keymap)
        : desktopShortcuts(services.executor, display, keymap),
          fileIndex(services.scheduler, services.executor, entries,
                    IndexFolders::ofSession(app, environment)),
          icons(entries), statusItem(services.scheduler, display), screens(display) {}

    LinuxDesktopShortcuts desktopShortcuts;
    LinuxFileIndex fileIndex;
    ThemeIcons icons;
    QtStatusItem statusItem;
    LinuxScreens screens;
};

class X11Backend final : public platform::Backend {
public:
    // Null where Qt is not connected to an X server.
    static std::unique_ptr<platform::Backend>
    open(const platform::AppInfo& app, platform::Alerts& alerts, platform::PanelHost& panels) {
        auto services = std::make_unique<Services>(app, QProcessEnvironment::systemEnvironment());
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
          applications_(*display_, services_->scheduler, services_->executor, app.runtimeFolder),
          keyboardCapture_(*display_, keymap_, services_->scheduler),
          screenCapture_(*display_, services_->scheduler, services_->executor,
                         applications_.windows, applications_.applications),
          pointer_(*display_, services_->scheduler),
          browserExtensions_(services_->files, app, QProcessEnvironment::systemEnvironment(),
                             applications_.tabs),
          desktop_(*services_, app, QProcessEnvironment::systemEnvironment(), applications_.entries,
                   display_.get(), &keymap_),
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
                 keyboardCapture_,
                 desktop_.desktopShortcuts,
                 desktop_.fileIndex,
                 desktop_.icons,
                 desktop_.statusItem,
                 desktop_.screens,
                 panels,
                 services_->loginItem,
                 services_->servicesMenu,
                 services_->processes,
                 services_->distributedNotifications,
                 services_->http,
                 *services_->crashCapture,
                 applications_.accessibility,
                 screenCapture_,
                 pointer_,
                 browserExtensions_,
                 services_->languageModel,
                 services_->contacts} {}

    std::unique_ptr<Services> services_;
    std::unique_ptr<X11Display> display_;
    X11Keymap keymap_;
    X11Hotkeys hotkeys_;
    X11KeyboardLayout layout_;
    X11KeyEvents keyEvents_;
    X11ApplicationPorts applications_;
    X11KeyboardCapture keyboardCapture_;
    X11ScreenCapture screenCapture_;
    X11PointerEvents pointer_;
    LinuxBrowserExtensions browserExtensions_;
    DesktopServices desktop_;
    platform::Ports ports_;
};

class HeadlessBackend final : public platform::Backend {
public:
    HeadlessBackend(const platform::AppInfo& app, SessionKind session, platform::Alerts& alerts,
                    platform::PanelHost& panels)
        : services_(app, QProcessEnvironment::systemEnvironment()), session_(session),
          entries_(services_.scheduler, services_.executor), hotkeys_(session), keyEvents_(session),
          workspace_(session, waylandSocketPath(QProcessEnvironment::systemEnvironment()), entries_,
                     services_.scheduler, services_.executor),
          tabs_(services_.scheduler, app.runtimeFolder), scripts_(session, tabs_),
          browserExtensions_(services_.files, app, QProcessEnvironment::systemEnvironment(), tabs_),
          accessibility_(scripts_.availability()),
          screenCapture_(services_.scheduler, scripts_.availability()),
          keyboardCapture_(session, services_.scheduler),
          desktop_(services_, app, QProcessEnvironment::systemEnvironment(), entries_, nullptr,
                   nullptr),
          ports_{app,
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
                 keyboardCapture_,
                 desktop_.desktopShortcuts,
                 desktop_.fileIndex,
                 desktop_.icons,
                 desktop_.statusItem,
                 desktop_.screens,
                 panels,
                 services_.loginItem,
                 services_.servicesMenu,
                 services_.processes,
                 services_.distributedNotifications,
                 services_.http,
                 *services_.crashCapture,
                 accessibility_,
                 screenCapture_,
                 pointer_,
                 browserExtensions_,
                 services_.languageModel,
                 services_.contacts} {}

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
    ExtensionTabs tabs_;
    HeadlessScripts scripts_;
    LinuxBrowserExtensions browserExtensions_;
    platform::UnavailableAccessibility accessibility_;
    platform::UnavailableScreenCapture screenCapture_;
    platform::UnavailablePointerEvents pointer_;
    WindowKeyboardCapture keyboardCapture_;
    DesktopServices desktop_;
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
