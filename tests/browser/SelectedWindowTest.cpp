// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/browser/SelectedWindow.h"

#include <gtest/gtest.h>

namespace skipnest::linuxdesktop {
namespace {

using namespace Qt::StringLiterals;

TEST(SelectedWindow, IsFoundByTitleAndOfEqualOnesByPlace) {
    struct Row {
        const char* name;
        ExtensionTabs::Selected tab;
        std::vector<BrowserWindow> windows;
        std::optional<std::size_t> expected;
    };
    const QRect left(10, 10, 900, 700);
    const QRect right(960, 10, 900, 700);
    // With what the window manager draws around them.
    const QRectF leftFrame(9, -12, 902, 723);
    const QRectF rightFrame(959, -12, 902, 723);
    for (const Row& row : {
             Row{"the only one", {u"Mail"_s, left}, {{u"News - B"_s, {}}, {u"Mail - B"_s, {}}}, 1},
             Row{"titled otherwise", {u"Mail"_s, left}, {{u"News - B"_s, leftFrame}}, {}},
             Row{"a tab without a title", {QString(), left}, {{u"News - B"_s, leftFrame}}, {}},
             Row{"twice, the left one",
                 {u"Same"_s, left},
                 {{u"Same - B"_s, rightFrame}, {u"Same - B"_s, leftFrame}},
                 1},
             Row{"twice, the right one",
                 {u"Same"_s, right},
                 {{u"Same - B"_s, rightFrame}, {u"Same - B"_s, leftFrame}},
                 0},
             Row{"twice, one on the other",
                 {u"Same"_s, left},
                 {{u"Same - B"_s, leftFrame}, {u"Same - B"_s, leftFrame}},
                 {}},
             Row{"twice, and the browser does not say where",
                 {u"Same"_s, {}},
                 {{u"Same - B"_s, rightFrame}, {u"Same - B"_s, leftFrame}},
                 {}},
         }) {
        EXPECT_EQ(windowThatShows(row.tab, row.windows), row.expected) << row.name;
    }
}

} // namespace
} // namespace skipnest::linuxdesktop
