// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/DebugLogFile.h"
#include "platform/JsonDefaults.h"
#include "platform/Ports.h"
#include "platform/QtExecutor.h"
#include "platform/QtScheduler.h"
#include "platform/SystemWallClock.h"
#include "platform/UnavailablePorts.h"
#include "platform/macos/MacApplicationControl.h"
#include "platform/macos/MacHotkeys.h"
#include "platform/macos/MacKeyEvents.h"
#include "platform/macos/MacKeyboardLayout.h"
#include "platform/macos/MacWorkspace.h"
#include "platform/macos/SystemBridges.h"
#include "platform/macos/UnavailablePorts.h"

namespace skipnest::macos {

// Folders and identity as macOS keeps them: settings in Application Support, the log in
// Library/Logs, what must not outlive the session in the user's own temporary folder.
[[nodiscard]] platform::AppInfo appInfo(const BundleRecord& bundle);

// The whole backend: every port, made once, in the order in which they need each other. Needs the
// application object of Qt, whose run loop delivers everything.
class MacDesktop final {
public:
    explicit MacDesktop(SystemBridges bridges);
    MacDesktop(const MacDesktop&) = delete;
    MacDesktop& operator=(const MacDesktop&) = delete;

    [[nodiscard]] platform::Ports ports();

private:
    SystemBridges bridges_;
    platform::AppInfo app_;
    platform::QtScheduler scheduler_;
    platform::QtExecutor executor_;
    platform::SystemWallClock wallClock_;
    platform::DebugLogFile diagnostics_;
    MacHotkeys hotkeys_;
    MacKeyEvents keyEvents_;
    MacKeyboardLayout keyboardLayout_;
    MacWorkspace workspace_;
    MacApplicationControl applications_;
    UnavailableScriptRunner scripts_;
    UnavailableBookmarks bookmarks_;
    UnavailableFiles files_;
    platform::JsonDefaults defaults_;
    UnavailableAlerts alerts_;
    UnavailableInstanceLock instances_;
    UnavailablePeerCredentials peers_;
    platform::UnavailableKeyboardCapture keyboardCapture_;
    platform::UnavailableDesktopShortcuts desktopShortcuts_;
    platform::UnavailableFileIndex fileIndex_;
    platform::UnavailableIconSource icons_;
    platform::UnavailableStatusItem statusItem_;
    platform::UnavailableScreens screens_;
    platform::UnavailablePanels panels_;
    platform::UnavailableLoginItem loginItem_;
    platform::UnavailableServicesMenu servicesMenu_;
    platform::UnavailableProcessLauncher processes_;
    platform::UnavailableNotifications distributedNotifications_;
    platform::UnavailableHttpClient http_;
    platform::UnavailableLanguageModel languageModel_;
    platform::UnavailableContactStore contacts_;
    platform::UnavailableCrashCapture crashCapture_;
    platform::UnavailableAccessibility accessibility_;
    platform::UnavailableScreenCapture screenCapture_;
    platform::UnavailablePointerEvents pointer_;
    platform::NoBrowserExtensions browserExtensions_;
};

} // namespace skipnest::macos
