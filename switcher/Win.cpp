// SPDX-License-Identifier: Apache-2.0
#include "switcher/Win.h"

#include <QUrl>

#include <algorithm>

namespace skipnest::switcher {

TabRef TabRef::from(const BrowserTabs::BrowserTab& tab) {
    return {tab.windowIndex, tab.tabIndex, tab.title, QUrl(tab.url).host(), tab.active, tab.url};
}

BrowserTabs::BrowserTab TabRef::browserTab() const {
    return {windowIndex, tabIndex, title, active, url};
}

const TabRef* Win::activeTab() const {
    if (tabs.empty())
        return nullptr;
    const auto found = std::ranges::find(tabs, true, &TabRef::active);
    return found == tabs.end() ? &tabs.front() : &*found;
}

} // namespace skipnest::switcher
