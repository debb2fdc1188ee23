// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/ShortcutItem.h"
#include "platform/Ports.h"
#include "platform/RunningApplication.h"
#include "switcher/AppWindows.h"
#include "switcher/BrowserTabs.h"
#include "voice/JumpTarget.h"

#include <QString>

#include <functional>

namespace skipnest::voice {

// What committing a target needs. Targets hold it together: a list may outlive the index that made
// it.
struct JumpReach {
    JumpReach(const platform::Ports& given, switcher::BrowserTabs& givenTabs)
        : ports(given), windows(given), tabs(givenTabs) {}

    // A failure is logged.
    void open(const QString& path, JumpTarget::Kind kind);
    void activate(const platform::RunningApplication& app);
    void jump(const model::ShortcutItem& item, JumpTarget::Kind kind);

    platform::Ports ports;
    switcher::AppWindows windows;
    switcher::BrowserTabs& tabs; // the program's one; outlives every list
    // In place of opening a shortcut's path.
    std::function<void(const model::ShortcutItem&)> shortcutJump;
};

} // namespace skipnest::voice
