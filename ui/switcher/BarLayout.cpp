// SPDX-License-Identifier: Apache-2.0
#include "ui/switcher/BarLayout.h"

#include <algorithm>
#include <cmath>

namespace skipnest::ui {
namespace {

constexpr double shareOfWidth = 0.92;
constexpr double shareOfHeight = 0.86;
constexpr int narrowest = 620; // header and hints side by side, in German too
constexpr int widest = 1600;
constexpr int lowestContent = 132;
constexpr int smallestCard = 148;
constexpr int largestCard = 360;
constexpr double mostGrowth = 1.4; // more would enlarge what was captured small
constexpr int titleHeight = 30;
constexpr int chipWish = 230;
constexpr int mostResults = 9; // in view; a longer list is not read but typed shorter

constexpr int chrome = 2 * BarLayout::margin + BarLayout::headerHeight + BarLayout::footerHeight +
                       2 * BarLayout::spacing;

int rowsFor(int count, int columns) {
    return (count + columns - 1) / columns;
}

// With what is between them.
int extent(int count, int size, int gap) {
    return count <= 0 ? 0 : count * (size + gap) - gap;
}

int fitting(int room, int size, int gap) {
    return std::max(1, (room + gap) / (size + gap));
}

// What scrolls shows whole rows.
int wholeRows(int wanted, int room, int size, int gap) {
    return wanted <= room ? wanted : extent(fitting(room, size, gap), size, gap);
}

// Pictures are 16 : 10, as most screens and so most windows are.
int cardHeight(int width) {
    return static_cast<int>(std::lround((width - 2 * BarLayout::cardInset) * 0.625)) +
           BarLayout::cardInset + titleHeight;
}

void placeCards(BarLayout& layout, const BarNeeds& needs, const QSize& room) {
    const int count = std::max(1, needs.windows);
    const auto take = [&](int width, int columns) {
        layout.cardWidth = width;
        layout.cardHeight = cardHeight(width);
        layout.cardColumns = columns;
    };
    const auto columnsOf = [&](int width) {
        return std::min(count, fitting(room.width(), width, BarLayout::gap));
    };
    const auto fits = [&](int width, int columns) {
        return extent(columns, width, BarLayout::gap) <= room.width() &&
               extent(rowsFor(count, columns), cardHeight(width), BarLayout::gap) <= room.height();
    };
    const int wish =
        std::clamp(static_cast<int>(std::lround(needs.cardWidth)), smallestCard, largestCard);
    for (int width = wish; width >= smallestCard; width -= 12) {
        if (!fits(width, columnsOf(width)))
            continue;
        const int columns = rowsFor(count, rowsFor(count, columnsOf(width)));
        const int most = std::min(largestCard, static_cast<int>(width * mostGrowth));
        while (width + 4 <= most && fits(width + 4, columns))
            width += 4;
        return take(width, columns);
    }
    // It scrolls in any case: better seen than one more row.
    const int width = std::min(wish, std::max(smallestCard, wish * 4 / 5));
    take(width, columnsOf(width));
}

int chipColumnsFor(int tabs) {
    return tabs <= 1 ? 1 : tabs <= 8 ? 2 : tabs <= 24 ? 3 : tabs <= 60 ? 4 : 5;
}

int contentHeight(const BarLayout& layout, const BarNeeds& needs, int room) {
    const auto rows = [&](int count, int size, int gap) {
        return wholeRows(extent(count, size, gap), room, size, gap);
    };
    if (needs.searches)
        return std::max(lowestContent,
                        rows(std::min(needs.results, mostResults), BarLayout::resultHeight, 0));
    return std::max(
        {lowestContent,
         rows(rowsFor(needs.windows, layout.cardColumns), layout.cardHeight, BarLayout::gap),
         rows(rowsFor(needs.tabs, layout.chipColumns), BarLayout::chipHeight, BarLayout::chipGap)});
}

} // namespace

BarLayout layoutBar(const BarNeeds& needs, QSize atLeast) {
    const QSize most(std::min(widest, static_cast<int>(needs.area.width() * shareOfWidth)),
                     static_cast<int>(needs.area.height() * shareOfHeight));
    const QSize room(std::max(smallestCard, most.width() - 2 * BarLayout::margin),
                     std::max(lowestContent, most.height() - chrome));
    BarLayout layout;
    placeCards(layout, needs, room);

    const int wanted = std::max(extent(layout.cardColumns, layout.cardWidth, BarLayout::gap),
                                extent(chipColumnsFor(needs.tabs), chipWish, BarLayout::chipGap));
    const int width = std::min(
        most.width(), std::max({narrowest, atLeast.width(), wanted + 2 * BarLayout::margin}));
    const int inside = width - 2 * BarLayout::margin;
    layout.chipColumns =
        std::min(std::max(1, needs.tabs), fitting(inside, chipWish, BarLayout::chipGap));
    layout.chipWidth =
        (inside - (layout.chipColumns - 1) * BarLayout::chipGap) / layout.chipColumns;

    layout.size = {width, contentHeight(layout, needs, room.height()) + chrome};
    if (!needs.searches)
        layout.size.setHeight(
            std::max(layout.size.height(), std::min(atLeast.height(), room.height() + chrome)));
    return layout;
}

} // namespace skipnest::ui
