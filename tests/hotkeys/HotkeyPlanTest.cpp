// SPDX-License-Identifier: Apache-2.0
#include "hotkeys/HotkeyPlan.h"

#include "platform/UsKeyboardLayout.h"
#include "tests/hotkeys/Combos.h"

#include <gmock/gmock.h>

namespace skipnest::hotkeys {
namespace {

using model::AppConfiguration;
using model::ModifierFlags;
using model::ShortcutItem;
using test::combo;
using test::shortcut;
using testing::ElementsAreArray;

// "Ctrl + Opt + J jump Notes", in the order of registration.
std::vector<std::string> described(const std::vector<PlannedHotkey>& plan) {
    std::vector<std::string> lines;
    for (const PlannedHotkey& hotkey : plan) {
        QString line =
            words(hotkey.combo, platform::UsKeyboardLayout()) + u' ' + actionName(hotkey.action);
        if (hotkey.item)
            line += u' ' + hotkey.item->name;
        lines.push_back(line.toStdString());
    }
    return lines;
}

struct PlanCase {
    const char* name;
    std::vector<ShortcutItem> items;
    std::function<void(AppConfiguration&)> configure;
    std::vector<std::string> planned;
};

class HotkeyPlan : public testing::TestWithParam<PlanCase> {};

TEST_P(HotkeyPlan, isWhatTheDocumentAsksFor) {
    AppConfiguration configuration;
    configuration.voiceSearch = false;
    GetParam().configure(configuration);
    EXPECT_THAT(described(planHotkeys(GetParam().items, configuration)),
                ElementsAreArray(GetParam().planned));
}

const auto untouched = [](AppConfiguration&) {};

INSTANTIATE_TEST_SUITE_P(
    Rows, HotkeyPlan,
    testing::Values(
        PlanCase{"hideIsDerivedWithShift",
                 {shortcut("Notes", "/N.app", "cmd+j")},
                 untouched,
                 {"Cmd + J jump Notes", "Shift + Cmd + J hide Notes"}},
        PlanCase{"recordWithoutComboHasNoHotkey", {shortcut("Notes", "/N.app")}, untouched, {}},
        PlanCase{"hideComboAloneIsRegistered",
                 {shortcut("Notes", "/N.app", nullptr, "ctrl+h")},
                 untouched,
                 {"Ctrl + H hide Notes"}},
        PlanCase{"anotherItemsComboWinsOverDerived",
                 {shortcut("Notes", "/N.app", "cmd+j"), shortcut("Mail", "/M.app", "shift+cmd+j")},
                 untouched,
                 {"Cmd + J jump Notes", "Shift + Cmd + J jump Mail"}},
        PlanCase{
            "anotherItemsHideComboWinsOverDerived",
            {shortcut("Notes", "/N.app", "cmd+j"), shortcut("Mail", "/M.app", "f5", "shift+cmd+j")},
            untouched,
            {"Cmd + J jump Notes", "F5 jump Mail", "Shift + Cmd + J hide Mail"}},
        PlanCase{"ownHideComboInPlaceOfDerived",
                 {shortcut("Notes", "/N.app", "cmd+j", "ctrl+h")},
                 untouched,
                 {"Cmd + J jump Notes", "Ctrl + H hide Notes"}},
        PlanCase{"nothingDerivedWhereOff",
                 {shortcut("Notes", "/N.app", "cmd+j")},
                 [](AppConfiguration& c) { c.shiftToHide = false; },
                 {"Cmd + J jump Notes"}},
        PlanCase{"hideModifierOfThePerson",
                 {shortcut("Notes", "/N.app", "shift+cmd+j")},
                 [](AppConfiguration& c) { c.hideModifierRaw = ModifierFlags::option.rawValue; },
                 {"Shift + Cmd + J jump Notes", "Opt + Shift + Cmd + J hide Notes"}},
        PlanCase{"hideModifierOfTwoPartlyPresent",
                 {shortcut("Notes", "/N.app", "cmd+j")},
                 [](AppConfiguration& c) { c.hideModifierRaw = 1 | 2; },
                 {"Cmd + J jump Notes", "Opt + Cmd + J hide Notes"}},
        PlanCase{"cyclingWithItsDefaults",
                 {},
                 [](AppConfiguration& c) { c.windowCycling = true; },
                 {"Ctrl + Opt + → nextWindow", "Ctrl + Opt + ← previousWindow"}},
        PlanCase{"voiceUnlessAnItemHasItsCombo",
                 {shortcut("Vim", "/V.app", "ctrl+opt+v")},
                 [](AppConfiguration& c) {
                     c.voiceSearch.reset();
                     c.shiftToHide = false;
                     c.windowCycling = true;
                     c.nextWindowCombo = combo("ctrl+opt+v");
                 },
                 {"Ctrl + Opt + V jump Vim", "Ctrl + Opt + ← previousWindow"}},
        PlanCase{"voiceWhereAbsent",
                 {},
                 [](AppConfiguration& c) { c.voiceSearch.reset(); },
                 {"Ctrl + Opt + V voice"}},
        PlanCase{"equalCombosBothListed",
                 {shortcut("Notes", "/N.app", "f5"), shortcut("Mail", "/M.app", "f5")},
                 [](AppConfiguration& c) { c.shiftToHide = false; },
                 {"F5 jump Notes", "F5 jump Mail"}}),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace skipnest::hotkeys
