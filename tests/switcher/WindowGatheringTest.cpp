// SPDX-License-Identifier: Apache-2.0
#include "switcher/WindowGathering.h"

#include <gmock/gmock.h>

namespace skipnest::switcher {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

std::vector<AppWindows::Info> windows(std::initializer_list<QStringView> titles) {
    std::vector<AppWindows::Info> infos;
    for (const QStringView title : titles)
        infos.push_back({title.toString(), {infos.size() + 1}, {}});
    return infos;
}

// A mark stands before the title: "*A".
std::vector<AppWindows::WindowMenuItem> menu(std::initializer_list<QStringView> titles) {
    std::vector<AppWindows::WindowMenuItem> items;
    for (const QStringView title : titles) {
        const bool marked = title.startsWith(u'*');
        items.push_back({title.mid(marked ? 1 : 0).toString(), {100}, marked});
    }
    return items;
}

// Title and element: "A1"; "B-" has none.
std::vector<std::string> names(const std::vector<Win>& wins) {
    std::vector<std::string> names;
    for (const Win& win : wins)
        names.push_back(win.title.toStdString() +
                        (win.element ? std::to_string(win.element.id) : "-"));
    return names;
}

TEST(GatherWindows, theFocusedOneIsFirstAndTheRestKeepTheirOrder) {
    EXPECT_THAT(names(gatherWindows(windows({u"A", u"B", u"C"}), 2, {})),
                ElementsAre("C3", "A1", "B2"));
    EXPECT_THAT(names(gatherWindows(windows({u"A", u"B"}), std::nullopt, {})),
                ElementsAre("A1", "B2"));
    EXPECT_THAT(names(gatherWindows({}, std::nullopt, {})), IsEmpty());
}

TEST(GatherWindows, commandsOfTheMenuAreNoWindows) {
    // From the first entry with a window on.
    EXPECT_THAT(names(gatherWindows(windows({u"A"}), 0, menu({u"Minimize", u"Zoom", u"A", u"B"}))),
                ElementsAre("A1", "B-"));
    // Or from the mark on, where no window can be read.
    EXPECT_THAT(names(gatherWindows({}, {}, menu({u"Minimize", u"*A", u"B"}))),
                ElementsAre("A-", "B-"));
    // A command that is part of a window's title does not take that window.
    EXPECT_THAT(names(gatherWindows(windows({u"Zoom Meeting"}), 0,
                                    menu({u"Zoom", u"Fill", u"*Zoom Meeting"}))),
                ElementsAre("Zoom Meeting1"));
}

TEST(GatherWindows, aWindowHasOneEntryAtMost) {
    EXPECT_THAT(names(gatherWindows(windows({u"Inbox — Notes", u"Inbox"}), 0,
                                    menu({u"*Inbox", u"Inbox — Notes", u"Inbox"}))),
                ElementsAre("Inbox — Notes1", "Inbox2", "Inbox-"));
    EXPECT_THAT(names(gatherWindows(windows({u"Report 2024"}), 0, menu({u"*Report…", u"Other"}))),
                ElementsAre("Report 20241", "Other-"));
}

TEST(GroupTabs, byWindowNumberWithTheActiveTabsTitle) {
    const auto wins = groupTabs({{2, 1, u"B1"_s, false, u"https://b.example:8080/x"_s},
                                 {2, 2, u"B2"_s, true, u"https://c.example/"_s},
                                 {1, 1, u"A1"_s, false, {}},
                                 {1, 2, u"A2"_s, false, u"no address"_s}});
    EXPECT_THAT(names(wins), ElementsAre("A1-", "B2-"));
    ASSERT_EQ(wins[1].tabs.size(), 2U);
    EXPECT_EQ(wins[1].browserWindowIndex, 2);
    EXPECT_EQ(wins[1].tabs[0].domain, u"b.example"_s);
    EXPECT_EQ(wins[0].tabs[1].domain, QString());
}

TEST(PairWithWindows, findsTheWindowThatShowsTheActiveTab) {
    auto wins = groupTabs({{1, 1, u"Inbox"_s, true, {}},
                           {2, 1, u"Inbox"_s, true, {}},
                           {3, 1, {}, true, {}},
                           {4, 1, u"Gone"_s, true, {}}});
    pairWithWindows(wins, windows({u"Inbox - Browser", u"News - Browser", u"Inbox - Browser"}));
    EXPECT_THAT(names(wins), ElementsAre("Inbox1", "Inbox3", "-", "Gone-"));
}

} // namespace
} // namespace skipnest::switcher
