// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/macos/ApplicationBridge.h"
#include "platform/macos/CarbonHotkeys.h"
#include "platform/macos/EventTap.h"
#include "platform/macos/KeyboardLayoutSource.h"
#include "platform/macos/WorkspaceBridge.h"

#include <cstdint>
#include <memory>
#include <string>

namespace skipnest::macos {

// What the program's own bundle and the user's folders are. Folders have no trailing slash.
struct BundleRecord {
    std::int64_t pid = -1;
    std::string path;
    std::string identifier;
    std::string version;
    std::string build;
    std::string home;
    std::string applicationSupport;
    std::string temporary; // the user's own, which nobody else may enter
};

// Everything of the backend that only a Mac can compile, behind portable interfaces.
struct SystemBridges {
    BundleRecord bundle;
    std::unique_ptr<HotkeyBridge> hotkeys;
    std::unique_ptr<KeyboardEventBridge> keyboard;
    std::unique_ptr<KeyboardLayoutBridge> layout;
    std::unique_ptr<WorkspaceBridge> workspace;
    std::unique_ptr<ApplicationBridge> applications;
};

[[nodiscard]] SystemBridges systemBridges();

} // namespace skipnest::macos
