// SPDX-License-Identifier: Apache-2.0
#include "hotkeys/HotkeyManager.h"

#include "platform/sim/SimDesktop.h"
#include "tests/hotkeys/Combos.h"

#include <gmock/gmock.h>

namespace skipnest::hotkeys {
namespace {

using namespace std::chrono_literals;
using model::AppConfiguration;
using model::ShortcutItem;
using test::combo;
using test::pressed;
using test::shortcut;
using testing::ElementsAre;
using testing::IsEmpty;

class HotkeyManagerTest : public testing::Test {
protected:
    void registerAll(const std::vector<ShortcutItem>& items) {
        AppConfiguration configuration;
        configuration.shiftToHide = false;
        configuration.voiceSearch = false;
        manager.registerAll(items, configuration,
                            {.onJump =
                                 [this](const ShortcutItem& item) {
                                     done.push_back("jump " + item.name.toStdString());
                                 },
                             .onHide = [](const ShortcutItem&) {},
                             .onNextWindow = [] {},
                             .onPreviousWindow = [] {},
                             .onVoice = [] {}});
    }
    std::vector<std::uint32_t> ids() const {
        std::vector<std::uint32_t> all;
        for (const HotkeyManager::Entry& entry : manager.registered())
            all.push_back(entry.id);
        return all;
    }

    sim::SimDesktop desk;
    HotkeyManager manager{desk.ports().hotkeys, desk.ports().keyboardLayout,
                          desk.ports().diagnostics, desk.ports().scheduler};
    std::vector<std::string> done;
};

TEST_F(HotkeyManagerTest, laterItemKeepsAComboThatStandsTwice) {
    registerAll({shortcut("Notes", "/N.app", "ctrl+j"), shortcut("Mail", "/M.app", "ctrl+j"),
                 shortcut("Chat", "/C.app", "ctrl+k")});
    desk.pressHotkey(pressed("ctrl+j"));
    EXPECT_THAT(done, ElementsAre("jump Mail"));
    EXPECT_THAT(ids(), ElementsAre(2u, 3u));
    // The earlier one was really given back: the desktop refuses a combo registered twice.
    EXPECT_THAT(manager.refused(), IsEmpty());
    EXPECT_EQ(desk.hotkeys().registered().size(), 2u);
}

TEST_F(HotkeyManagerTest, idsGrowOverRebuildsAndNothingLeaks) {
    registerAll({shortcut("Notes", "/N.app", "ctrl+j")});
    registerAll({shortcut("Notes", "/N.app", "ctrl+j"), shortcut("Mail", "/M.app", "ctrl+k")});
    EXPECT_THAT(ids(), ElementsAre(2u, 3u));
    manager.unregisterAll();
    EXPECT_THAT(desk.hotkeys().registered(), IsEmpty());
    EXPECT_FALSE(desk.pressHotkey(pressed("ctrl+j")));
}

TEST_F(HotkeyManagerTest, refusedComboIsToldOnceAndBoundWhenItsOwnerLeaves) {
    desk.hotkeys().refuse(pressed("ctrl+opt+j"), -9878);
    registerAll({shortcut("Notes", "/N.app", "ctrl+opt+j"), shortcut("Mail", "/M.app", "ctrl+k")});
    EXPECT_THAT(desk.journal().logLines(),
                ElementsAre("hotkey REGISTER FAILED Ctrl + Opt + J mods=6144 key=38 status=-9878",
                            "hotkey registered Ctrl + K"));
    EXPECT_THAT(desk.journal().prints(),
                ElementsAre("[Skipnest] Failed to register hotkey Ctrl + Opt + J (status -9878)."));
    desk.journal().clear();

    desk.advance(61s);
    EXPECT_THAT(desk.journal().entries(), IsEmpty()); // three more tries, quietly
    desk.hotkeys().refuse(pressed("ctrl+opt+j"), 0);
    desk.runPosted();
    EXPECT_THAT(desk.journal().logLines(), ElementsAre("hotkey registered Ctrl + Opt + J"));
    EXPECT_THAT(ids(), ElementsAre(1u, 2u));
    EXPECT_TRUE(desk.pressHotkey(pressed("ctrl+opt+j")));
    EXPECT_THAT(desk.runningTimers(), IsEmpty());
}

TEST_F(HotkeyManagerTest, rebuildForgetsARefusedCombo) {
    desk.hotkeys().refuse(pressed("ctrl+j"), -9878);
    registerAll({shortcut("Notes", "/N.app", "ctrl+j")});
    registerAll({});
    desk.hotkeys().refuse(pressed("ctrl+j"), 0);
    desk.advance(30s);
    EXPECT_FALSE(desk.pressHotkey(pressed("ctrl+j")));
}

TEST_F(HotkeyManagerTest, failedHandlerIsSaidAndTriedAgainWithTheNextRegistration) {
    desk.hotkeys().refuseHandler(-1);
    registerAll({shortcut("Notes", "/N.app", "ctrl+j")});
    EXPECT_THAT(desk.journal().prints(),
                ElementsAre("[Skipnest] Failed to install hotkey event handler (status -1)."));
    EXPECT_THAT(ids(), ElementsAre(1u)); // still attempted
    desk.hotkeys().refuseHandler(0);
    registerAll({shortcut("Notes", "/N.app", "ctrl+j")});
    EXPECT_TRUE(desk.pressHotkey(pressed("ctrl+j")));
}

TEST_F(HotkeyManagerTest, actionMayRebuildEverythingWhileItRuns) {
    manager.registerHotkey({combo("ctrl+j"), HotkeyAction::jump, {}}, [this] {
        registerAll({shortcut("Mail", "/M.app", "ctrl+j")});
        done.emplace_back("rebuilt");
    });
    desk.pressHotkey(pressed("ctrl+j"));
    desk.pressHotkey(pressed("ctrl+j"));
    EXPECT_THAT(done, ElementsAre("rebuilt", "jump Mail"));
    EXPECT_EQ(manager.hotkeyPressed({99}, desk.now()), platform::HotkeyHandling::notHandled);
}

TEST_F(HotkeyManagerTest, desktopWithoutHotkeysIsSaidInOneLine) {
    desk.hotkeys().setAvailability({platform::Availability::State::unavailable,
                                    QStringLiteral("This is a Wayland session."),
                                    {}});
    registerAll({shortcut("Notes", "/N.app", "ctrl+j"), shortcut("Mail", "/M.app", "ctrl+k")});
    EXPECT_THAT(desk.journal().logLines(),
                ElementsAre("hotkeys: none bound, This is a Wayland session."));
}

} // namespace
} // namespace skipnest::hotkeys
