// SPDX-License-Identifier: Apache-2.0
#include "tests/e2e/DesktopTest.h"
#include "tests/e2e/Waiting.h"

#include <QFile>

namespace skipnest::e2e {
namespace {

using namespace std::chrono_literals;

class ShellTest : public DesktopTest {
protected:
    void SetUp() override { ASSERT_NO_FATAL_FAILURE(open(WindowManager::openbox)); }

    void togglePopover() { ASSERT_EQ(agent->command({QStringLiteral("popover")}).exitCode, 0); }

    [[nodiscard]] bool isOurs(xcb_window_t window) const {
        const auto ours = session->windows().ofProcess(agent->process().pid());
        return std::ranges::find(ours, window) != ours.end();
    }
    [[nodiscard]] bool popoverComes() {
        return eventually([this] { return isOurs(windows().active()); });
    }

    void type(const QString& text) {
        for (const QChar key : text)
            keyboard().tap(QString(key));
    }

    [[nodiscard]] bool isRecording() { return isKeyboardHeld(session->connection()); }

    [[nodiscard]] QString keyOf(const QString& name) const {
        for (const QJsonValue& item : agent->command({QStringLiteral("list")}).json.array())
            if (item[u"name"].toString() == name)
                return item[u"key"].toString();
        return {};
    }
};

// What a person does first: type a part of the name, take what is found, press a combo.
TEST_F(ShellTest, AShortcutIsAddedByTypingItsNameAndPressingItsKeys) {
    agent->set(QStringLiteral("voiceSearch"), false);
    agent->bind({one, oneEntry, QStringLiteral("ctrl+alt+j")});
    ASSERT_NO_FATAL_FAILURE(startAgent());
    ASSERT_NO_FATAL_FAILURE(togglePopover());
    ASSERT_TRUE(popoverComes());
    keyboard().tap(u"ctrl+n");
    type(QStringLiteral("fixturetw"));
    // Return takes what has been found, once it has been; the next one starts the recording.
    ASSERT_TRUE(eventually([this] {
        if (isRecording())
            return true;
        keyboard().tap(u"return");
        return eventually([this] { return isRecording(); }, 300ms);
    })) << "no recording began";

    keyboard().tap(u"ctrl+alt+j");
    keyboard().tap(u"ctrl+alt+right");
    EXPECT_TRUE(isRecording()) << "both are somebody's already";
    EXPECT_EQ(windows().currentDesktop(), 0U) << "the desktop's combo reached the desktop";
    EXPECT_TRUE(isOurs(windows().active())) << "our own combo jumped";
    keyboard().tap(u"ctrl+alt+o");
    ASSERT_TRUE(eventually([this] { return !isRecording(); }));
    ASSERT_TRUE(eventually([this] {
        keyboard().tap(u"return");
        return eventually([this] { return keyOf(two) == u"Ctrl + Opt + O"; }, 300ms);
    })) << qPrintable(keyOf(two));

    keyboard().tap(u"esc");
    EXPECT_TRUE(jumps(u"ctrl+alt+j", one));
    EXPECT_TRUE(jumps(u"ctrl+alt+o", two));
}

TEST_F(ShellTest, ThePopoverGivesTheFocusBackAndGoesWhenThePersonDoes) {
    bindBoth();
    ASSERT_NO_FATAL_FAILURE(startAgent());
    ASSERT_NO_FATAL_FAILURE(togglePopover());
    ASSERT_TRUE(popoverComes());
    keyboard().tap(u"esc");
    EXPECT_TRUE(windows().becomesActive(two)) << "it was in front before";

    ASSERT_NO_FATAL_FAILURE(togglePopover());
    ASSERT_TRUE(popoverComes());
    EXPECT_TRUE(jumps(u"ctrl+alt+j", one)) << "hotkeys work on while it shows";
    EXPECT_TRUE(eventually([this] {
        return agent->command({QStringLiteral("status")}).json[u"popover"].toString() == u"hidden";
    })) << "the person went elsewhere";
}

TEST_F(ShellTest, AStartByHandTakesOverAndOpensThePopover) {
    bindBoth();
    ASSERT_NO_FATAL_FAILURE(startAgent());
    ChildProcess second = session->start({Agent::binary()});
    ASSERT_TRUE(agent->process().ends(2s));
    EXPECT_TRUE(eventually([&] {
        const auto ours = windows().ofProcess(second.pid());
        return std::ranges::find(ours, windows().active()) != ours.end();
    }));
    EXPECT_TRUE(jumps(u"ctrl+alt+j", one));
}

// A first start leads to a shortcut that works, by Return and the key it proposes alone.
TEST_F(ShellTest, AFirstStartLeadsToAKeyThatJumps) {
    agent->set(QStringLiteral("didOnboard"), false);
    agent->set(QStringLiteral("voiceSearch"), false);
    ASSERT_NO_FATAL_FAILURE(startAgent());
    ASSERT_TRUE(popoverComes()) << "onboarding shows itself";
    const auto shortcuts = [this] { return agent->command({QStringLiteral("list")}).json.array(); };
    ASSERT_TRUE(eventually([&] {
        keyboard().tap(u"return");
        return eventually([&] { return !shortcuts().isEmpty(); }, 300ms);
    })) << "no first shortcut";
    const QJsonValue first = shortcuts().first();
    const QString chord = first[u"key"].toString().toLower().remove(u' ').replace(
        QStringLiteral("opt"), QStringLiteral("alt"));
    EXPECT_TRUE(jumps(chord, first[u"name"].toString())) << qPrintable(chord);

    const auto hasOnboarded = [this] {
        QFile file(agent->configurationPath());
        return file.open(QIODevice::ReadOnly) &&
               QJsonDocument::fromJson(file.readAll())[u"didOnboard"].toBool();
    };
    EXPECT_FALSE(hasOnboarded());
    ASSERT_TRUE(popoverComes()) << "it comes back for the next step";
    EXPECT_TRUE(eventually([&] {
        keyboard().tap(u"return");
        return eventually(hasOnboarded, 300ms);
    }));
}

} // namespace
} // namespace skipnest::e2e
