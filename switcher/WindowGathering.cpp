// SPDX-License-Identifier: Apache-2.0
#include "switcher/WindowGathering.h"

#include <algorithm>
#include <map>
#include <utility>

namespace skipnest::switcher {

namespace {

// For each title the index of its window, each window taken once. Equal titles go first: of "Zoom"
// and "Zoom Meeting" the shorter one must not take the window of the longer.
std::vector<std::optional<std::size_t>> pairByTitle(const std::vector<QString>& titles,
                                                    const std::vector<AppWindows::Info>& windows) {
    std::vector<std::optional<std::size_t>> partners(titles.size());
    std::vector<bool> isTaken(windows.size(), false);
    const auto pairWhere = [&](const auto& match) {
        for (std::size_t t = 0; t < titles.size(); ++t) {
            for (std::size_t w = 0; w < windows.size() && !partners[t]; ++w) {
                if (isTaken[w] || !match(titles[t], windows[w].title))
                    continue;
                partners[t] = w;
                isTaken[w] = true;
            }
        }
    };
    pairWhere([](const QString& a, const QString& b) { return !a.isEmpty() && a == b; });
    pairWhere([](const QString& a, const QString& b) { return titlesMatch(a, b); });
    return partners;
}

Win entry(const AppWindows::Info& window) {
    Win win;
    win.title = window.title;
    win.element = window.element;
    win.frame = window.frame;
    return win;
}

} // namespace

std::vector<Win> gatherWindows(const std::vector<AppWindows::Info>& windows,
                               std::optional<std::size_t> focused,
                               const std::vector<AppWindows::WindowMenuItem>& menu) {
    std::vector<Win> wins;
    if (focused)
        wins.push_back(entry(windows[*focused]));
    for (std::size_t i = 0; i < windows.size(); ++i)
        if (i != focused)
            wins.push_back(entry(windows[i]));

    std::vector<QString> titles;
    std::ranges::transform(menu, std::back_inserter(titles), &AppWindows::WindowMenuItem::title);
    const auto partners = pairByTitle(titles, windows);
    bool isInList = false;
    for (std::size_t i = 0; i < menu.size(); ++i) {
        isInList = isInList || partners[i] || menu[i].marked;
        if (!isInList || partners[i])
            continue;
        Win win;
        win.title = menu[i].title;
        wins.push_back(std::move(win));
    }
    return wins;
}

std::vector<Win> groupTabs(const std::vector<BrowserTabs::BrowserTab>& tabs) {
    std::map<std::int64_t, Win> byNumber;
    for (const BrowserTabs::BrowserTab& tab : tabs) {
        Win& win = byNumber[tab.windowIndex];
        win.browserWindowIndex = tab.windowIndex;
        win.tabs.push_back(TabRef::from(tab));
    }
    std::vector<Win> wins;
    for (auto& [number, win] : byNumber) {
        win.title = win.activeTab()->title;
        wins.push_back(std::move(win));
    }
    return wins;
}

void pairWithWindows(std::vector<Win>& browserWindows,
                     const std::vector<AppWindows::Info>& windows) {
    std::vector<QString> titles;
    std::ranges::transform(browserWindows, std::back_inserter(titles), &Win::title);
    const auto partners = pairByTitle(titles, windows);
    for (std::size_t i = 0; i < browserWindows.size(); ++i) {
        if (!partners[i])
            continue;
        browserWindows[i].element = windows[*partners[i]].element;
        browserWindows[i].frame = windows[*partners[i]].frame;
    }
}

} // namespace skipnest::switcher
