// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QSize>

namespace skipnest::ui {

// How much there is to show, and in what room.
struct BarNeeds {
    QSize area;             // what the bar may not outgrow
    double cardWidth = 220; // wished for
    int windows = 0;
    int tabs = 0;    // of the window whose tabs are shown
    int results = 0; // of the query
    bool searches = false;
};

// Where things go in the bar, in device-independent pixels. Cards of the wished width stand in one
// or several balanced rows and grow into what is left over; they shrink where that makes all of
// them fit, and scroll where even that does not.
struct BarLayout {
    QSize size; // of the whole bar
    int cardWidth = 0;
    int cardHeight = 0;
    int cardColumns = 1;
    int chipWidth = 0;
    int chipColumns = 1;

    static constexpr int margin = 18;
    static constexpr int gap = 12;      // between cards
    static constexpr int cardInset = 8; // from the card's edge to its picture
    static constexpr int cornerRadius = 14;
    static constexpr int chipGap = 8;
    static constexpr int chipHeight = 40;
    static constexpr int resultHeight = 44;
    static constexpr int headerHeight = 36;
    static constexpr int footerHeight = 22;
    static constexpr int spacing = 14; // between header, content and footer

    bool operator==(const BarLayout&) const = default;
};

// Not smaller than `atLeast`, so that a bar in view does not jump about; but what a query finds is
// only as high as it has to be, as a short list in a large bar would be lost.
[[nodiscard]] BarLayout layoutBar(const BarNeeds& needs, QSize atLeast = {});

} // namespace skipnest::ui
