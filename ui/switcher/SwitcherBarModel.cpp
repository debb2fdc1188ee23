// SPDX-License-Identifier: Apache-2.0
#include "ui/switcher/SwitcherBarModel.h"

#include "ui/editor/PlainLine.h"
#include "ui/switcher/MarkedMatch.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

namespace skipnest::ui {

using switcher::SwitcherModel;

SwitcherBarModel::SwitcherBarModel(SwitcherModel& model, platform::Executor& executor,
                                   QObject* parent)
    : QObject(parent), model_(model), scaler_(executor, [this](int id, const QImage& picture) {
          windows_.setPicture(id, picture);
      }) {
    connect(&model_, &SwitcherModel::changed, this, [this] {
        if (!isShown_)
            return;
        isSettled_ = true;
        takeContent();
    });
    connect(&model_, &SwitcherModel::imageChanged, this, [this](int window) {
        if (isShown_)
            scalePicture(window);
    });
}

void SwitcherBarModel::show(const QRect& area, double devicePixelRatio) {
    if (!std::exchange(isShown_, true)) {
        isSettled_ = false;
        layout_ = {};
        pointer_.rest();
    }
    area_ = area;
    devicePixelRatio_ = devicePixelRatio;
    takeContent();
    Q_EMIT shown();
}

void SwitcherBarModel::hide() {
    if (!std::exchange(isShown_, false))
        return;
    scaler_.drop();
    windows_.dropPictures();
}

QString SwitcherBarModel::level() const {
    switch (content().level) {
    case Level::windows:
        return QStringLiteral("windows");
    case Level::tabs:
        return QStringLiteral("tabs");
    case Level::search:
        return QStringLiteral("search");
    }
    Q_UNREACHABLE();
}

QString SwitcherBarModel::headline() const {
    switch (content().level) {
    case Level::windows: {
        const auto& rows = windows_.rows();
        const auto selected = static_cast<std::size_t>(selectedWindow());
        return selected < rows.size() ? rows[selected].title : QString();
    }
    case Level::tabs:
        return drillName_;
    case Level::search:
        return {};
    }
    Q_UNREACHABLE();
}

bool SwitcherBarModel::isNothingFound() const {
    return content().level == Level::search && content().results.empty();
}

void SwitcherBarModel::takeContent() {
    // Selected by keys: whoever steers by them may have a hand on the mouse all the same.
    if (std::exchange(lastSelected_, content().selWin) != content().selWin && !isHovering_)
        pointer_.rest();
    appName_ = plainLine(content().appName);
    drillName_ = shortTitle(plainLine(content().drillWinName), appName_);
    takeRows();
    takeLayout();
    Q_EMIT changed();
    for (int window = 0; window < windows_.rowCount(); ++window)
        scalePicture(window);
}

void SwitcherBarModel::takeLayout() {
    const SwitcherModel::Content& now = content();
    const BarNeeds needs{area_.size(),
                         now.cardWidth,
                         static_cast<int>(now.windows.size()),
                         now.level == Level::tabs ? static_cast<int>(now.tabs.size()) : 0,
                         static_cast<int>(now.results.size()),
                         now.level == Level::search};
    layout_ = layoutBar(needs, layout_.size);
    QRect frame(QPoint(), layout_.size);
    frame.moveCenter(area_.center());
    // What it says at its top stays where the eye has found it.
    if (isSettled_)
        frame.moveTop(std::min(frame_.top(), area_.bottom() - frame.height()));
    if (std::exchange(frame_, frame) != frame)
        Q_EMIT frameChanged();
}

void SwitcherBarModel::takeRows() {
    const SwitcherModel::Content& now = content();
    std::vector<WindowRow> windows;
    windows.reserve(now.windows.size());
    for (const auto& window : now.windows) {
        const QString name = boundedTitle(plainLine(window.title));
        windows.push_back({static_cast<int>(windows.size()), name, shortTitle(name, appName_),
                           window.fallbackIcon, window.tabCount.value_or(-1), window.isFocused});
    }
    windows_.setRows(windows);

    // Pages may have none.
    const auto titleOf = [](const QString& title) {
        const QString line = boundedTitle(plainLine(title));
        return line.isEmpty() ? tr("Untitled") : line;
    };
    std::vector<TabRow> tabs;
    tabs.reserve(now.tabs.size());
    for (const auto& tab : now.tabs)
        tabs.push_back({static_cast<int>(tabs.size()), titleOf(tab.title), plainLine(tab.letter)});
    tabs_.setRows(tabs);

    std::vector<FoundRow> found;
    found.reserve(now.results.size());
    const QString query = plainLine(now.query);
    for (const auto& result : now.results) {
        const QString name = plainLine(result.title);
        const QString window = boundedTitle(plainLine(result.winName));
        found.push_back(
            {static_cast<int>(found.size()), titleOf(name),
             name.isEmpty() ? titleOf(name) : markedMatch(shortTitle(name, appName_), query),
             markedMatch(plainLine(result.domain), query),
             window == boundedTitle(name) ? QString() : shortTitle(window, appName_),
             plainLine(result.letter)});
    }
    results_.setRows(found);
}

void SwitcherBarModel::scalePicture(int window) {
    constexpr int inset = BarLayout::cardInset;
    const QImage& image = content().windows[static_cast<std::size_t>(window)].image;
    const int width = layout_.cardWidth - 2 * inset;
    scaler_.scale(window, image, {width, qRound(width * 0.625)}, devicePixelRatio_);
}

void SwitcherBarModel::pickWindow(int row) {
    if (isShown_ && row >= 0 && row < windowCount() && model_.onPickWindow)
        model_.onPickWindow(row);
}

void SwitcherBarModel::pickTab(int row) {
    if (isShown_ && row >= 0 && row < tabs_.rowCount() && model_.onPickTab)
        model_.onPickTab(row);
}

void SwitcherBarModel::pickResult(int row) {
    if (isShown_ && row >= 0 && row < resultCount() && model_.onPickResult)
        model_.onPickResult(row);
}

bool SwitcherBarModel::pointerMoved(const QPointF& position) {
    return isShown_ && pointer_.moved(position);
}

void SwitcherBarModel::hoverWindow(int row) {
    if (row < 0 || row >= windowCount() || row == selectedWindow() || !model_.onHoverWindow)
        return;
    const QScopedValueRollback hovering(isHovering_, true);
    model_.onHoverWindow(row);
}

} // namespace skipnest::ui
