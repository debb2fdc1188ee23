// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "switcher/SwitcherModel.h"
#include "switcher/SwitcherSearch.h"
#include "switcher/Win.h"

#include <QString>

#include <cstddef>
#include <optional>
#include <vector>

namespace skipnest::switcher {

// What is listed in the bar and what of it is selected: windows, the tabs of one window, or the
// hits of a search. Steps wrap around; an index that is out of range changes nothing.
class SwitcherSelection {
public:
    using Level = SwitcherModel::Level;

    SwitcherSelection() = default;
    // A browser with a single window shows its tabs at once.
    SwitcherSelection(std::vector<Win> wins, SessionKind kind, bool currentIsFirst);

    [[nodiscard]] const std::vector<Win>& wins() const { return wins_; }
    [[nodiscard]] bool isBrowser() const { return kind_ == SessionKind::browser; }
    [[nodiscard]] Level level() const { return level_; }
    [[nodiscard]] const QString& query() const { return query_; }
    [[nodiscard]] const std::vector<SearchHit>& hits() const { return hits_; }

    void step(int delta);
    // The shortcut was pressed again: on to the next window, or tab where there is one window.
    void stepOn();
    // Down and Up.
    void goDown();
    void goUp();
    // Escape: back to the windows. False where they are shown already.
    [[nodiscard]] bool goBack();
    void type(const QString& text);
    void eraseLast();

    [[nodiscard]] bool selectWindow(int index);
    [[nodiscard]] bool selectTab(int index);
    [[nodiscard]] bool selectResult(int index);
    [[nodiscard]] std::optional<Target> target() const;

    void setIdentifier(std::size_t window, const QString& id) { wins_[window].identifier = id; }
    void setImage(std::size_t window, const QImage& image) { wins_[window].image = image; }
    // What the bar shows of all this; the application and the pin are the switcher's to add.
    [[nodiscard]] SwitcherModel::Content content() const;

private:
    void drill();
    void find();
    [[nodiscard]] const std::vector<TabRef>& drilledTabs() const;

    std::vector<Win> wins_;
    SessionKind kind_ = SessionKind::windows;
    bool currentIsFirst_ = false;
    Level level_ = Level::windows;
    int selWin_ = 0;
    int selTab_ = 0;
    int selResult_ = 0;
    QString query_;
    std::vector<SearchHit> hits_;
};

} // namespace skipnest::switcher
