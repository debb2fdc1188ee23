// SPDX-License-Identifier: Apache-2.0
#include "hotkeys/FocusTracker.h"

#include "platform/sim/SimDesktop.h"

#include <gmock/gmock.h>

namespace skipnest::hotkeys {
namespace {

class FocusTrackerTest : public testing::Test {
protected:
    FocusTrackerTest() {
        for (const char16_t letter : u"ABCDEFGHI") {
            if (letter != 0)
                desk.installApp({.name = QChar(letter),
                                 .bundleIdentifier = {},
                                 .path = QStringLiteral("/%1.app").arg(QChar(letter)),
                                 .pid = {},
                                 .running = sim::Running::yes,
                                 .windows = {{}}});
        }
    }
    std::string history() const {
        std::string names;
        for (const auto& app : tracker->history())
            names += app.name.toStdString();
        return names;
    }
    void toFront(const char* names) {
        for (const char* name = names; *name != 0; ++name)
            desk.bringToFront(QChar::fromLatin1(*name));
    }

    sim::SimDesktop desk;
    std::optional<FocusTracker> tracker;
};

TEST_F(FocusTrackerTest, keepsTheSixMostRecentOncePerProcess) {
    desk.bringToFront(QStringLiteral("A"));
    tracker.emplace(desk.ports().workspace, desk.appInfo().pid);
    EXPECT_EQ(tracker->currentApp()->name, u"A");
    EXPECT_FALSE(tracker->previousApp());
    toFront("BCDEFGHI");
    EXPECT_EQ(history(), "IHGFED");
    toFront("FI");
    EXPECT_EQ(history(), "IFHGED");
    EXPECT_EQ(tracker->previousApp()->name, u"F");
    EXPECT_EQ(tracker->currentApp()->name, u"I");
}

TEST_F(FocusTrackerTest, ownActivationAndTheSameAgainChangeNothing) {
    tracker.emplace(desk.ports().workspace, desk.appInfo().pid);
    toFront("AB");
    (void)desk.ports().applications.activate(desk.appInfo().pid,
                                             platform::ActivationOption::ignoringOtherApps);
    desk.runPosted();
    toFront("B");
    EXPECT_EQ(tracker->previousApp()->name, u"A");
    EXPECT_EQ(history(), "BA");
}

} // namespace
} // namespace skipnest::hotkeys
