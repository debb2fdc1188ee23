// SPDX-License-Identifier: Apache-2.0
#include "switcher/SwitcherSelection.h"

#include <QTextBoundaryFinder>

#include <utility>

namespace skipnest::switcher {

namespace {

// Among `count`, `least` of which are needed for there to be another one.
void move(int& selected, int delta, std::size_t count, std::size_t least) {
    if (count < least)
        return;
    const int size = static_cast<int>(count);
    selected = ((selected + delta) % size + size) % size;
}

bool select(int& selected, int index, std::size_t count) {
    if (index < 0 || index >= static_cast<int>(count))
        return false;
    selected = index;
    return true;
}

} // namespace

SwitcherSelection::SwitcherSelection(std::vector<Win> wins, SessionKind kind, bool currentIsFirst)
    : wins_(std::move(wins)), kind_(kind), currentIsFirst_(currentIsFirst) {
    if (wins_.size() == 1)
        drill();
}

const std::vector<TabRef>& SwitcherSelection::drilledTabs() const {
    static const std::vector<TabRef> none;
    const auto window = static_cast<std::size_t>(selWin_);
    return window < wins_.size() ? wins_[window].tabs : none;
}

void SwitcherSelection::drill() {
    if (drilledTabs().empty())
        return;
    level_ = Level::tabs;
    selTab_ = 0;
}

void SwitcherSelection::step(int delta) {
    switch (level_) {
    case Level::windows:
        return move(selWin_, delta, wins_.size(), 2);
    case Level::tabs:
        return move(selTab_, delta, drilledTabs().size(), 2);
    case Level::search:
        return move(selResult_, delta, hits_.size(), 1);
    }
}

void SwitcherSelection::stepOn() {
    if (!(level_ == Level::tabs && isBrowser() && wins_.size() == 1))
        (void)goBack();
    step(1);
}

void SwitcherSelection::goDown() {
    if (level_ == Level::windows)
        return drill();
    step(1);
}

void SwitcherSelection::goUp() {
    if (level_ != Level::windows)
        step(-1);
}

bool SwitcherSelection::goBack() {
    query_.clear();
    hits_.clear();
    return std::exchange(level_, Level::windows) != Level::windows;
}

void SwitcherSelection::type(const QString& text) {
    query_ += text;
    find();
}

void SwitcherSelection::eraseLast() {
    if (query_.isEmpty())
        return;
    // What the person sees as one character may be several code units.
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, query_);
    finder.toEnd();
    query_.truncate(finder.toPreviousBoundary());
    find();
}

void SwitcherSelection::find() {
    level_ = Level::search;
    hits_ = search(wins_, kind_, query_);
    selResult_ = 0;
}

bool SwitcherSelection::selectWindow(int index) {
    if (!select(selWin_, index, wins_.size()))
        return false;
    (void)goBack();
    return true;
}

bool SwitcherSelection::selectTab(int index) {
    return level_ == Level::tabs && select(selTab_, index, drilledTabs().size());
}

bool SwitcherSelection::selectResult(int index) {
    return level_ == Level::search && select(selResult_, index, hits_.size());
}

std::optional<Target> SwitcherSelection::target() const {
    const auto window = static_cast<std::size_t>(selWin_);
    const auto tab = static_cast<std::size_t>(selTab_);
    const auto result = static_cast<std::size_t>(selResult_);
    switch (level_) {
    case Level::windows:
        return window < wins_.size() ? std::optional<Target>(WindowTarget{window}) : std::nullopt;
    case Level::tabs:
        return tab < drilledTabs().size() ? std::optional<Target>(drilledTabs()[tab])
                                          : std::nullopt;
    case Level::search:
        return result < hits_.size() ? std::optional(hits_[result].target) : std::nullopt;
    }
    return std::nullopt;
}

SwitcherModel::Content SwitcherSelection::content() const {
    SwitcherModel::Content content;
    content.level = level_;
    content.isBrowser = isBrowser();
    for (const Win& win : wins_) {
        SwitcherModel::WinVM row;
        row.id = static_cast<int>(content.windows.size());
        row.title = win.title;
        row.image = win.image;
        if (isBrowser())
            row.tabCount = static_cast<int>(win.tabs.size());
        row.isFocused = currentIsFirst_ && content.windows.empty();
        content.totalTabs += static_cast<int>(win.tabs.size());
        content.windows.push_back(std::move(row));
    }
    content.selWin = selWin_;
    if (level_ == Level::tabs) {
        for (const TabRef& tab : drilledTabs())
            content.tabs.push_back({static_cast<int>(content.tabs.size()), tab.title,
                                    chipLetter(tab.domain, tab.title)});
        content.selTab = selTab_;
        content.drillWinName = wins_[static_cast<std::size_t>(selWin_)].title;
    }
    content.query = query_;
    for (const SearchHit& hit : hits_)
        content.results.push_back(hit.row);
    content.selResult = selResult_;
    return content;
}

} // namespace skipnest::switcher
