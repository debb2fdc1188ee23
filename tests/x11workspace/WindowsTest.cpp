// SPDX-License-Identifier: Apache-2.0
#include "tests/x11workspace/Desk.h"

#include <algorithm>
#include <iostream>
#include <set>

namespace skipnest::tests {
namespace {

using namespace Qt::StringLiterals;
using platform::AccessibilityElement;
using platform::AccessibilityStatus;
using platform::ActivationOption;
using platform::ProcessIdentifier;
using Elements = std::vector<AccessibilityElement>;

class WindowsTest : public Desk {
protected:
    template <typename T>
    std::optional<T> read(const AccessibilityElement& element, const QString& name) {
        const auto value = ports->accessibility.attribute(element, name);
        const T* typed = value ? std::get_if<T>(&*value) : nullptr;
        return typed ? std::optional(*typed) : std::nullopt;
    }
    AccessibilityElement applicationElement(const char* name) {
        return ports->accessibility.application(pid(name));
    }
    Elements listed(const char* name) {
        return read<Elements>(applicationElement(name), u"AXWindows"_s).value_or(Elements{});
    }
    static xcb_window_t windowOf(const AccessibilityElement& element) {
        return static_cast<xcb_window_t>(element.id);
    }
    // All the steps that bring a window forward, at once; their status numbers.
    std::set<int> raise(const AccessibilityElement& window, ProcessIdentifier pid) {
        auto& accessibility = ports->accessibility;
        const AccessibilityElement app = accessibility.application(pid);
        std::set<int> statuses{accessibility.setAttribute(window, u"AXMinimized"_s, false),
                               accessibility.setAttribute(window, u"AXMain"_s, true),
                               accessibility.setAttribute(app, u"AXFocusedWindow"_s, window),
                               accessibility.performAction(window, u"AXRaise"_s)};
        (void)accessibility.setAttribute(app, u"AXFrontmost"_s, true);
        (void)ports->control.activate(pid, ActivationOption::none);
        return statuses;
    }
    void minimise(xcb_window_t window) {
        ASSERT_EQ(ports->accessibility.setAttribute({window}, u"AXMinimized"_s, true), 0);
        ASSERT_TRUE(
            waitFor([&] { return read<bool>({window}, u"AXMinimized"_s).value_or(false); }));
    }
    [[nodiscard]] bool isInFront(xcb_window_t window) {
        ports->windows.settle();
        return ports->windows.active() == window;
    }
};

struct Shown {
    ToyWindows::Look look;
    QString title;
    const char* subrole; // null: not in the list
};

TEST_F(WindowsTest, ListsWhatWindowsSayOfThemselves) {
    ToyWindows toys;
    const xcb_window_t leader = toys.show({.windowClass = "Toy", .title = "leader"});
    const char* standard = "AXStandardWindow";
    const char* normal = "_NET_WM_WINDOW_TYPE_NORMAL";
    const Shown rows[] = {
        {{.windowClass = "Toy", .title = QByteArray(10'000, 'x')}, QString(10'000, u'x'), standard},
        {{.windowClass = "Toy", .title = "שלום עולם"}, u"שלום עולם"_s, standard},
        {{.windowClass = "Toy", .title = "a\nb\tc\x1b"}, u"a b c"_s, standard},
        {{.windowClass = "Toy", .title = QByteArray("shown\0hidden", 12)}, u"shown"_s, standard},
        {{.windowClass = "Toy", .title = "\xff"}, u"\uFFFD"_s, standard},
        {{.windowClass = "Toy", .plainTitle = "caf\xe9"}, u"café"_s, standard},
        {{.windowClass = "Toy"}, u""_s, standard},
        {{.windowClass = "Toy", .type = nullptr, .title = "typeless"}, u"typeless"_s, standard},
        {{.windowClass = "Toy", .type = normal, .title = "owned", .leader = leader},
         u"owned"_s,
         standard},
        {{.windowClass = "Toy", .type = nullptr, .title = "question", .leader = leader},
         u"question"_s,
         "AXDialog"},
        {{.windowClass = "Toy", .type = "_NET_WM_WINDOW_TYPE_DIALOG", .title = "dialog"},
         u"dialog"_s,
         "AXDialog"},
        {{.windowClass = "Toy", .type = "_NET_WM_WINDOW_TYPE_UTILITY", .title = "tools"},
         u"tools"_s,
         "AXFloatingWindow"},
        {{.windowClass = "Toy", .title = "quiet", .state = "_NET_WM_STATE_SKIP_TASKBAR"},
         u"quiet"_s,
         nullptr},
    };
    std::vector<xcb_window_t> windows;
    for (const Shown& row : rows)
        windows.push_back(toys.show(row.look));
    ASSERT_TRUE(waitFor([&] { return windowCount("Toy") == std::size(rows) + 1; }));
    const Elements list = listed("Toy");
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        const auto& [look, title, subrole] = rows[i];
        const AccessibilityElement element{windows[i]};
        const auto name = title.left(20).toStdString();
        const bool isListed = std::find(list.begin(), list.end(), element) != list.end();
        EXPECT_EQ(read<QString>(element, u"AXTitle"_s), title) << name;
        // Whether windows that are not standard ones are in taskbars differs by window manager.
        if (subrole == nullptr) {
            EXPECT_FALSE(isListed) << name;
        } else {
            EXPECT_EQ(read<QString>(element, u"AXSubrole"_s), QLatin1String(subrole)) << name;
            EXPECT_TRUE(isListed || subrole != standard) << name;
        }
        const auto size = read<QSizeF>(element, u"AXSize"_s);
        ASSERT_TRUE(size && read<QPointF>(element, u"AXPosition"_s)) << name;
        EXPECT_GE(size->width(), 200) << name;
        EXPECT_GE(size->height(), 100) << name;
    }
}

TEST_F(WindowsTest, WhatNobodySwitchesToIsNotListed) {
    ToyWindows toys;
    for (const char* type : {"_NET_WM_WINDOW_TYPE_SPLASH", "_NET_WM_WINDOW_TYPE_DOCK",
                             "_NET_WM_WINDOW_TYPE_DESKTOP", "_NET_WM_WINDOW_TYPE_NOTIFICATION"})
        toys.show({.windowClass = "Toy", .type = type, .title = type});
    const xcb_window_t window = toys.show({.windowClass = "Toy", .title = "window"});
    // The window manager has taken on what came before it.
    ASSERT_TRUE(waitFor([&] { return windowCount("Toy") > 0 && isInFront(window); }));
    EXPECT_EQ(listed("Toy"), Elements{{window}});
}

// As many as a person who never closes anything has, listed as the bar does it. openbox takes long
// to manage that many.
TEST_F(WindowsTest, HundredsAreListedWithoutAQuestionEach) {
    const std::size_t count = QLatin1String(WINDOW_MANAGER) == "openbox"_L1 ? 100 : 500;
    ToyWindows toys;
    for (std::size_t i = 1; i <= count; ++i) {
        toys.show({.windowClass = "Toy", .title = "window " + QByteArray::number(qulonglong(i))});
        if (i % 50 == 0) { // window managers take their time
            ASSERT_TRUE(waitFor([&] { return windowCount("Toy") == i; }));
        }
    }
    const auto timed = [this](const auto& work) {
        const platform::Instant before = scheduler.now();
        work();
        return std::chrono::duration<double, std::milli>(scheduler.now() - before).count();
    };
    std::vector<double> listing;
    std::set<QString> titles;
    for (int round = 0; round < 9; ++round)
        listing.push_back(timed([&] {
            titles.clear();
            for (const AccessibilityElement& window : listed("Toy")) {
                (void)read<QString>(window, u"AXSubrole"_s);
                (void)read<QPointF>(window, u"AXPosition"_s);
                (void)read<QSizeF>(window, u"AXSize"_s);
                titles.insert(read<QString>(window, u"AXTitle"_s).value_or(QString()));
            }
        }));
    std::ranges::sort(listing);
    const double one = timed([&] {
        xcb_connection_t* connection = display->connection();
        const linuxdesktop::XcbPtr<xcb_get_input_focus_reply_t> reply(
            xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
    });
    std::cout << count << " windows listed with all that is shown of them: median " << listing[4]
              << " ms, most " << listing.back() << " ms; one round trip: " << one << " ms\n";
    EXPECT_EQ(titles.size(), count);
}

TEST_F(WindowsTest, ListsTheMostRecentFirstAndFollowsTheFocus) {
    ASSERT_TRUE(openAndWait("FixtureOne"));
    const xcb_window_t first = application("FixtureOne")->windows.front();
    spawn("xterm -class FixtureOne -T second -e cat");
    ASSERT_TRUE(waitFor([&] {
        return windowCount("FixtureOne") == 2 &&
               application("FixtureOne")->windows.front() != first &&
               isInFront(application("FixtureOne")->windows.front());
    }));
    const Elements list = listed("FixtureOne");
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(read<QString>(list[0], u"AXTitle"_s), u"second"_s);
    EXPECT_EQ(windowOf(list[1]), first);
    EXPECT_EQ(read<QString>({0x1c}, u"AXWindowID"_s), std::nullopt);
    EXPECT_EQ(read<QString>(list[1], u"AXWindowID"_s), u"0x"_s + QString::number(first, 16));
    const auto app = applicationElement("FixtureOne");
    EXPECT_EQ(read<AccessibilityElement>(app, u"AXFocusedWindow"_s), list[0]);
    minimise(windowOf(list[0]));
    EXPECT_EQ(listed("FixtureOne").size(), 2U);
    ASSERT_TRUE(openAndWait("FixtureTwo"));
    EXPECT_EQ(read<AccessibilityElement>(app, u"AXFocusedWindow"_s), std::nullopt);
    EXPECT_TRUE(read<AccessibilityElement>(app, u"AXMainWindow"_s));
}

TEST_F(WindowsTest, RaisesFromAnyDesktopAndOutOfAnyIconAndNoOther) {
    ASSERT_TRUE(openAndWait("FixtureOne"));
    const xcb_window_t older = application("FixtureOne")->windows.front();
    spawn("xterm -class FixtureOne -e cat");
    xcb_window_t recent = older;
    ASSERT_TRUE(waitFor([&] {
        recent = application("FixtureOne")->windows.front();
        return recent != older && isInFront(recent);
    }));
    for (const auto& [desktop, minimised] :
         {std::pair(0, false), {0, true}, {1, false}, {1, true}}) {
        (void)raise({recent}, pid("FixtureOne"));
        ASSERT_TRUE(waitFor([&] { return isInFront(recent); }));
        if (minimised)
            minimise(older);
        moveToDesktop(older, desktop);
        EXPECT_EQ(raise({older}, pid("FixtureOne")), std::set<int>{0});
        EXPECT_TRUE(waitFor([&] { return isInFront(older); })) << desktop << minimised;
        ASSERT_TRUE(waitFor([&] { return ports->windows.currentDesktop() == unsigned(desktop); }));
        EXPECT_TRUE(waitFor([&] { return read<bool>({older}, u"AXMinimized"_s) == false; }));
        // No request that is still under way brings the other one back.
        bool settled = false;
        const platform::Timer wait =
            scheduler.after(std::chrono::milliseconds(100), "test", [&] { settled = true; });
        ASSERT_TRUE(waitFor([&] { return settled; }));
        EXPECT_TRUE(isInFront(older));
        ASSERT_TRUE(runTool("wmctrl -s 0"));
        moveToDesktop(older, 0);
        ASSERT_TRUE(waitFor([&] { return ports->windows.currentDesktop() == 0; }));
    }
}

TEST_F(WindowsTest, AWindowThatClosedBeforeTheRaiseChangesNothing) {
    ASSERT_TRUE(openAndWait("FixtureOne"));
    ASSERT_TRUE(openAndWait("FixtureTwo"));
    const Elements list = listed("FixtureOne");
    ASSERT_EQ(list.size(), 1U);
    const ProcessIdentifier ended = pid("FixtureOne");
    ports->commands.disconnect(windowOf(list[0]));
    ASSERT_TRUE(waitFor([&] { return windowCount("FixtureOne") == 0; }));
    EXPECT_EQ(raise(list[0], ended), std::set<int>{AccessibilityStatus::invalidElement});
    EXPECT_EQ(read<QString>(list[0], u"AXTitle"_s), std::nullopt);
    EXPECT_EQ(front(), "FixtureTwo");
}

} // namespace
} // namespace skipnest::tests
