// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/windows/WindowMenu.h"
#include "tests/x11workspace/Desk.h"

#include <csignal>

namespace skipnest::tests {
namespace {

using namespace Qt::StringLiterals;
using linuxdesktop::AtspiNode;
using linuxdesktop::AtspiRole;
using platform::AccessibilityElement;
using platform::AccessibilityStatus;
using platform::Availability;
using testing::ElementsAre;
using testing::IsEmpty;
using Elements = std::vector<AccessibilityElement>;

struct Menu {
    const char* entries; // one a word; "|" separates, "*" marks
    const char* window;
    std::vector<std::string> expected;
};

TEST(WindowEntries, areTheOnesBetweenSeparatorsOfWhichTheMarkedOneNamesTheWindow) {
    const Menu menus[] = {
        {"Close Tile | *Letter Drawing", "Letter - Office", {"*Letter", "Drawing"}},
        {"*Letter Drawing | Close", "Letter*", {"*Letter", "Drawing"}},
        {"Minimise *OnTop", "Letter", {}},
        {"Minimise *OnTop | *Letter Notes", "Letter", {"*Letter", "Notes"}},
        {"*Toolbar *Letter Notes", "Letter", {}},
        {"Letter Drawing", "Letter", {}},
        {"1_Letter *2_Drawing 4_Notes", "Drawing", {"Letter", "*Drawing", "4 Notes"}},
        {"*Letter", "", {}},
        {"| |", "Letter", {}},
        {"", "Letter", {}},
    };
    for (const Menu& menu : menus) {
        std::vector<AtspiNode> nodes;
        for (QString word : QString::fromUtf8(menu.entries).split(u' ', Qt::SkipEmptyParts)) {
            AtspiNode node;
            node.role = word == u"|" ? AtspiRole::separator : AtspiRole::menuItem;
            node.isChecked = word.startsWith(u'*');
            if (node.role == AtspiRole::menuItem)
                node.name = word.remove(u'*').replace(u'_', u' ');
            nodes.push_back(node);
        }
        std::vector<std::string> found;
        for (const auto& entry : windowEntries(nodes, QString::fromUtf8(menu.window)))
            found.push_back(((entry.isMarked ? u"*"_s : u""_s) + entry.title).toStdString());
        EXPECT_EQ(found, menu.expected) << menu.entries;
    }
}

TEST(WindowMenuTitle, isKnownInSeveralLanguages) {
    for (const char* title : {"Window", "&Windows", "_Fenster", "FENÊTRE", "Окно"})
        EXPECT_TRUE(linuxdesktop::isWindowMenuTitle(QString::fromUtf8(title))) << title;
    for (const char* title : {"", "View", "Windowing", "Hilfe"})
        EXPECT_FALSE(linuxdesktop::isWindowMenuTitle(QString::fromUtf8(title))) << title;
}

// A program whose "Notes" only its Window menu knows, on a session with accessibility.
class WindowMenuTest : public Desk {
protected:
    // Once on, it is on for all tests of this session.
    void startAccessibility() {
        ASSERT_TRUE(runTool("dbus-send --session --dest=org.a11y.Bus --print-reply /org/a11y/bus "
                            "org.freedesktop.DBus.Properties.Set string:org.a11y.Status "
                            "string:IsEnabled variant:boolean:true"));
    }
    void openProgram(const char* option = "") {
        ASSERT_NO_FATAL_FAILURE(startAccessibility());
        spawn(QByteArray(WINDOW_MENU_PROGRAM " ").append(option).constData());
        ASSERT_TRUE(waitFor([&] { return windowCount("FixtureMenu") == 2; }));
        app = application("FixtureMenu")->described();
        ASSERT_TRUE(waitFor([&] { return front() == "FixtureMenu"; }));
    }
    qint64 process() const { return spawned.back()->processId(); }
    std::vector<std::string> menu() {
        std::vector<std::string> titles;
        if (const auto bar = ports->accessibility.attribute(
                ports->accessibility.application(app.pid), u"AXMenuBar"_s)) {
            const auto titlesOf = children(std::get<AccessibilityElement>(*bar));
            const auto menus = children(titlesOf[titlesOf.size() - 2]);
            for (const AccessibilityElement& entry : children(menus.front()))
                titles.push_back(((text(entry, u"AXMenuItemMarkChar"_s).empty() ? u""_s : u"*"_s) +
                                  QString::fromStdString(text(entry, u"AXTitle"_s)))
                                     .toStdString());
        }
        return titles;
    }
    Elements children(const AccessibilityElement& element) {
        const auto value = ports->accessibility.attribute(element, u"AXChildren"_s);
        return value ? std::get<Elements>(*value) : Elements{};
    }
    std::string text(const AccessibilityElement& element, const QString& name) {
        const auto value = ports->accessibility.attribute(element, name);
        return value ? std::get<QString>(*value).toStdString() : std::string();
    }
    AccessibilityElement entryOf(const std::string& title) {
        const auto bar = ports->accessibility.attribute(ports->accessibility.application(app.pid),
                                                        u"AXMenuBar"_s);
        if (!bar)
            return {};
        const auto titlesOf = children(std::get<AccessibilityElement>(*bar));
        for (const AccessibilityElement& entry : children(children(titlesOf[0]).front()))
            if (text(entry, u"AXTitle"_s) == title)
                return entry;
        return {};
    }
    bool shows(const QString& title) {
        return waitFor([&] {
            ports->windows.settle();
            return text({ports->windows.active()}, u"AXTitle"_s) == title.toStdString();
        });
    }

    platform::RunningApplication app;
};

// Before anything has started the service.
TEST_F(WindowMenuTest, ASessionWithoutAccessibilitySaysSo) {
    const Availability before = ports->accessibility.availability();
    if (before.state == Availability::State::available)
        GTEST_SKIP() << "accessibility runs already";
    EXPECT_FALSE(before.reason.isEmpty());
    EXPECT_FALSE(before.remedy.isEmpty());
    ASSERT_NO_FATAL_FAILURE(startAccessibility());
    EXPECT_EQ(ports->accessibility.availability(), Availability{});
}

TEST_F(WindowMenuTest, ListsAndRaisesWhatOnlyTheMenuKnows) {
    ASSERT_NO_FATAL_FAILURE(openProgram());
    ASSERT_TRUE(waitFor([&] { return !menu().empty(); }));
    const bool isLetter = text({ports->windows.active()}, u"AXTitle"_s) == "Letter";
    EXPECT_THAT(menu(), isLetter ? ElementsAre("*Letter", "Drawing", "Notes")
                                 : ElementsAre("Letter", "*Drawing", "Notes"));
    const AccessibilityElement notes = entryOf("Notes");
    ASSERT_TRUE(notes);
    EXPECT_EQ(ports->accessibility.performAction(notes, u"AXRaise"_s),
              AccessibilityStatus::actionUnsupported);
    EXPECT_EQ(ports->accessibility.setAttribute(notes, u"AXMain"_s, true),
              AccessibilityStatus::attributeUnsupported);

    // Another program is in front by now: choosing brings this one back.
    ASSERT_TRUE(openAndWait("FixtureOne"));
    EXPECT_EQ(ports->accessibility.performAction(notes, u"AXPress"_s), 0);
    EXPECT_TRUE(shows(u"Notes"_s));
    EXPECT_TRUE(waitFor([&] { return windowCount("FixtureMenu") == 3; }));
    // The menu is that of the window in front now; what was read before answers nothing.
    EXPECT_TRUE(waitFor([&] {
        return menu() == std::vector<std::string>{"Letter", "Drawing", "*Notes"};
    }));
    EXPECT_EQ(text(notes, u"AXTitle"_s), "");
    EXPECT_EQ(ports->accessibility.performAction(notes, u"AXPress"_s),
              AccessibilityStatus::invalidElement);
}

TEST_F(WindowMenuTest, AProgramWithoutSuchAMenuHasNone) {
    ASSERT_NO_FATAL_FAILURE(openProgram("--none"));
    bool settled = false;
    const platform::Timer wait =
        scheduler.after(std::chrono::milliseconds(600), "test", [&] { settled = true; });
    ASSERT_TRUE(waitFor([&] { return settled; }));
    EXPECT_THAT(menu(), IsEmpty());
}

TEST_F(WindowMenuTest, AProgramThatHangsDelaysNobodyAndLosesItsMenu) {
    ASSERT_NO_FATAL_FAILURE(openProgram());
    ASSERT_TRUE(waitFor([&] { return !menu().empty(); }));
    const AccessibilityElement notes = entryOf("Notes");
    ASSERT_EQ(kill(static_cast<pid_t>(process()), SIGSTOP), 0);
    const platform::Instant before = scheduler.now();
    EXPECT_FALSE(menu().empty());
    EXPECT_EQ(ports->accessibility.performAction(notes, u"AXPress"_s), 0);
    const auto took = scheduler.now() - before;
    RecordProperty("ms", int(took / std::chrono::milliseconds(1)));
    EXPECT_LT(took, std::chrono::milliseconds(100)) << "something waited for it";
    EXPECT_TRUE(waitFor([&] { return menu().empty(); }));

    // One that answers again is read again.
    ASSERT_EQ(kill(static_cast<pid_t>(process()), SIGCONT), 0);
    EXPECT_TRUE(waitFor([&] { return !menu().empty(); }));
    ASSERT_EQ(kill(static_cast<pid_t>(process()), SIGKILL), 0);
    ASSERT_TRUE(waitFor([&] { return windowCount("FixtureMenu") == 0; }));
    EXPECT_THAT(menu(), IsEmpty());
}

} // namespace
} // namespace skipnest::tests
