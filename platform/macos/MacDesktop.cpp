// SPDX-License-Identifier: Apache-2.0
#include "platform/macos/MacDesktop.h"

#include <utility>

namespace skipnest::macos {

platform::AppInfo appInfo(const BundleRecord& bundle) {
    const QString home = QString::fromStdString(bundle.home);
    const QString liteDocument = QStringLiteral("/Library/Containers/com.skipnest.app/Data/Library/"
                                                "Application Support/Skipnest/config.json");
    return {.pid = {bundle.pid},
            .bundlePath = QString::fromStdString(bundle.path),
            .bundleIdentifier = QString::fromStdString(bundle.identifier),
            .version = QString::fromStdString(bundle.version),
            .build = QString::fromStdString(bundle.build),
            .home = home,
            .supportFolder =
                QString::fromStdString(bundle.applicationSupport) + QStringLiteral("/Skipnest"),
            .logFolder = home + QStringLiteral("/Library/Logs"),
            .runtimeFolder = QString::fromStdString(bundle.temporary) + QStringLiteral("/Skipnest"),
            .applicationsFolder = QStringLiteral("/Applications"),
            .liteConfig = home + liteDocument,
            .installedApplications = {QStringLiteral("/Applications"),
                                      QStringLiteral("/System/Applications"),
                                      home + QStringLiteral("/Applications")},
            .downloadsFolder = home + QStringLiteral("/Downloads"),
            .desktopFolder = home + QStringLiteral("/Desktop"),
            .documentsFolder = home + QStringLiteral("/Documents")};
}

MacDesktop::MacDesktop(SystemBridges bridges)
    : bridges_(std::move(bridges)), app_(appInfo(bridges_.bundle)), executor_(scheduler_),
      diagnostics_(app_.logFolder, scheduler_, wallClock_), hotkeys_(*bridges_.hotkeys, scheduler_),
      keyEvents_(*bridges_.keyboard, scheduler_), keyboardLayout_(*bridges_.layout, scheduler_),
      workspace_(*bridges_.workspace, scheduler_), applications_(*bridges_.applications),
      defaults_(files_, app_.supportFolder + QStringLiteral("/defaults.json")),
      alerts_(scheduler_, diagnostics_),
      keyboardCapture_(notWritten(QStringLiteral("Recording a combo"))),
      desktopShortcuts_(scheduler_, notWritten(QStringLiteral("Reading the system's shortcuts"))),
      fileIndex_(scheduler_, notWritten(QStringLiteral("Searching for targets"))),
      statusItem_(notWritten(QStringLiteral("The menu-bar icon"))),
      loginItem_(notWritten(QStringLiteral("Launch at login"))),
      servicesMenu_(notWritten(QStringLiteral("The Services menu"))),
      processes_(notWritten(QStringLiteral("Moving the program"))),
      distributedNotifications_(notWritten(QStringLiteral("Debug hooks"))),
      http_(scheduler_, notWritten(QStringLiteral("The web service"))),
      languageModel_(scheduler_, notWritten(QStringLiteral("Asking a language model"))),
      contacts_(scheduler_, notWritten(QStringLiteral("Looking up contacts"))),
      crashCapture_(notWritten(QStringLiteral("Recording a crash"))),
      accessibility_(notWritten(QStringLiteral("Reading other programs' windows"))),
      screenCapture_(scheduler_, notWritten(QStringLiteral("Taking pictures of windows"))) {
    bridges_.workspace->observeTerminations([this] { hotkeys_.otherProgramEnded(); });
}

platform::Ports MacDesktop::ports() {
    return {.app = app_,
            .scheduler = scheduler_,
            .executor = executor_,
            .wallClock = wallClock_,
            .diagnostics = diagnostics_,
            .hotkeys = hotkeys_,
            .keyboardLayout = keyboardLayout_,
            .keyEvents = keyEvents_,
            .workspace = workspace_,
            .applications = applications_,
            .scripts = scripts_,
            .bookmarks = bookmarks_,
            .files = files_,
            .defaults = defaults_,
            .alerts = alerts_,
            .instances = instances_,
            .peers = peers_,
            .keyboardCapture = keyboardCapture_,
            .desktopShortcuts = desktopShortcuts_,
            .fileIndex = fileIndex_,
            .icons = icons_,
            .statusItem = statusItem_,
            .screens = screens_,
            .panels = panels_,
            .loginItem = loginItem_,
            .servicesMenu = servicesMenu_,
            .processes = processes_,
            .distributedNotifications = distributedNotifications_,
            .http = http_,
            .crashCapture = crashCapture_,
            .accessibility = accessibility_,
            .screenCapture = screenCapture_,
            .pointer = pointer_,
            .browserExtensions = browserExtensions_,
            .languageModel = languageModel_,
            .contacts = contacts_};
}

} // namespace skipnest::macos
