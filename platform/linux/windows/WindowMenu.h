// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/linux/windows/AtspiConnection.h"

#include <QString>

#include <atomic>
#include <cstdint>
#include <vector>

namespace skipnest::linuxdesktop {

// The entries of a program's Window menu that stand for its windows.
struct WindowMenu {
    struct Entry {
        QString title;
        bool isMarked = false; // the window that has the keyboard
        AtspiNode node;
    };
    std::vector<Entry> entries; // empty where there is no such menu
};

// "Window" in the languages that desktops here mostly speak, whatever of it is a mnemonic.
[[nodiscard]] bool isWindowMenuTitle(const QString& title);

// Which of a menu's entries stand for windows: those between two separators of which exactly one is
// marked and goes by a part of the window's own title, as a list of windows does and switches such
// as "Always on top" do not. The number that some programs put before each title is left out.
[[nodiscard]] std::vector<WindowMenu::Entry> windowEntries(const std::vector<AtspiNode>& menu,
                                                           const QString& windowTitle);

struct WindowMenuReading {
    enum class Outcome { read, unanswered };
    Outcome outcome = Outcome::unanswered;
    WindowMenu menu;
};

// Reads the menu of the program's window in front, in about a dozen round trips. Ends early where
// the program does not answer, or when told to stop. Menus that a program fills only when they are
// opened, as GTK programs may, are as they were last: none is ever opened for this.
[[nodiscard]] WindowMenuReading readWindowMenu(AtspiConnection& connection, std::int64_t processId,
                                               const std::atomic<bool>& stop);

} // namespace skipnest::linuxdesktop
