// SPDX-License-Identifier: Apache-2.0
#include "hotkeys/KeyLedger.h"

#include "platform/sim/SimDesktop.h"
#include "tests/hotkeys/Combos.h"

#include <gmock/gmock.h>

namespace skipnest::hotkeys {
namespace {

using platform::DesktopShortcut;
using test::combo;
using test::pressed;
using test::shortcut;
using testing::ElementsAre;

std::vector<std::string> listed(const KeyLedger& ledger, const platform::KeyboardLayout& layout) {
    constexpr const char* holders[] = {"ours", "refused", "never", "desktop"};
    std::vector<std::string> lines;
    for (const KeyLedger::Row& row : ledger.rows())
        lines.push_back(QStringLiteral("%1 %2 '%3' %4 '%5'")
                            .arg(displayString(row.combo, layout),
                                 QLatin1String(holders[static_cast<int>(row.holder)]), row.owner,
                                 row.action, row.shortcut)
                            .toStdString());
    return lines;
}

TEST(KeyLedgerTest, NamesTheHolderOfEveryComboOnce) {
    sim::SimDesktop desk;
    const auto& layout = desk.ports().keyboardLayout;
    HotkeyManager manager(desk.ports().hotkeys, layout, desk.ports().diagnostics,
                          desk.ports().scheduler);
    KeyLedger ledger(manager, desk.ports().desktopShortcuts);
    int changes = 0;
    QObject::connect(&ledger, &KeyLedger::changed, [&changes] { ++changes; });

    desk.hotkeys().refuse(pressed("ctrl+opt+t"), 10);
    desk.hotkeys().refuse(pressed("ctrl+opt+u"), 10);
    model::AppConfiguration configuration;
    configuration.shiftToHide = false;
    manager.registerAll(
        {shortcut("Terminal", "/T.app", "ctrl+opt+t", "ctrl+opt+u"),
         shortcut("Notes", "/N.app", "ctrl+opt+n"), shortcut("Mail", "/M.app", "ctrl+opt+f3")},
        configuration, {[](const auto&) {}, [](const auto&) {}, [] {}, [] {}, [] {}});
    ledger.hotkeysRebuilt();
    EXPECT_EQ(changes, 1);
    EXPECT_THAT(listed(ledger, layout),
                ElementsAre("⌃⌥N ours 'Notes' jump 'Notes'", "⌃⌥F3 ours 'Mail' jump 'Mail'",
                            "⌃⌥V ours '' voice ''", "⌃⌥T refused '' jump 'Terminal'",
                            "⌃⌥U refused '' hide 'Terminal'"));

    const auto claim = [](const char* text, const char* owner, const char* action,
                          DesktopShortcut::Effect effect = DesktopShortcut::Effect::takesKey) {
        const sim::HotkeyCombo key = pressed(text);
        return DesktopShortcut{key.keyCode, key.carbonModifiers, QLatin1String(owner),
                               QLatin1String(action), effect};
    };
    using Effect = DesktopShortcut::Effect;
    desk.desktopShortcuts().set(
        {{claim("ctrl+opt+t", "GNOME", "Terminal"),
          claim("ctrl+opt+f3", "terminals", "3", Effect::neverFires),
          claim("ctrl+opt+f4", "terminals", "4", Effect::neverFires),
          claim("cmd+d", "GNOME", "Show desktop"), claim("cmd+d", "i3", "exec dmenu")},
         false,
         {},
         {}});
    ledger.refresh();
    // A recording has taken the hotkeys down meanwhile: the keys stay ours.
    manager.unregisterAll();
    desk.runPosted();
    EXPECT_EQ(changes, 2);
    EXPECT_THAT(listed(ledger, layout),
                ElementsAre("⌃⌥N ours 'Notes' jump 'Notes'", "⌃⌥F3 never 'terminals' jump 'Mail'",
                            "⌃⌥V ours '' voice ''", "⌃⌥T refused 'GNOME' jump 'Terminal'",
                            "⌃⌥U refused '' hide 'Terminal'", "⌃⌥F4 desktop 'terminals' 4 ''",
                            "⌘D desktop 'GNOME' Show desktop ''"));
    EXPECT_EQ(ledger.desktopShortcut(combo("cmd+d"))->owner, QStringLiteral("GNOME"));
    EXPECT_FALSE(ledger.desktopShortcut(combo("ctrl+cmd+d")));
}

} // namespace
} // namespace skipnest::hotkeys
