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

// Pictures are 16 : 10, as most screens and so most windows are.
int cardHeight(int width) {
    return static_cast<int>(std::lround((width - 2 * BarLayout::cardInset) * 0.625)) +
           BarLayout::cardInset + titleHeight;
}

void placeCards(BarLayout& layout, const BarNeeds& needs, const QSize& room) {
    const int count = std::max(1, needs.windows);
    const auto take = [&](int width) {
        layout.cardWidth = width;
        layout.cardHeight = cardHeight(width);
        layout.cardColumns = std::min(count, fitting(room.width(), width, BarLayout::gap));
    };
    const auto fits = [&] {
        return extent(rowsFor(count, layout.cardColumns), layout.cardHeight, BarLayout::gap) <=
               room.height();
    };
    const int wish =
        std::clamp(static_cast<int>(std::lround(needs.cardWidth)), smallestCard, largestCard);
    for (int width = wish; width >= smallestCard; width -= 12) {
        take(width);
        if (fits()) {
            layout.cardColumns = rowsFor(count, rowsFor(count, layout.cardColumns));
            return;
        }
    }
    // It scrolls in any case: better seen than one more row.
    take(std::min(wish, std::max(smallestCard, wish * 4 / 5)));
}

int chipColumnsFor(int tabs) {
    return tabs <= 1 ? 1 : tabs <= 8 ? 2 : tabs <= 24 ? 3 : tabs <= 60 ? 4 : 5;
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

    int content =
        extent(rowsFor(needs.windows, layout.cardColumns), layout.cardHeight, BarLayout::gap);
    if (needs.tabs > 0)
        content = std::max(content, extent(rowsFor(needs.tabs, layout.chipColumns),
                                           BarLayout::chipHeight, BarLayout::chipGap));
    if (needs.searches)
        content = std::max(content, std::min(needs.results, mostResults) * BarLayout::resultHeight);
    content = std::clamp(content, lowestContent, room.height());
    const int height =
        std::max(content + chrome, std::min(atLeast.height(), room.height() + chrome));
    layout.size = {width, height};
    return layout;
}

} // namespace skipnest::ui
