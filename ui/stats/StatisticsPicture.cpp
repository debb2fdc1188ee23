// SPDX-License-Identifier: Apache-2.0
#include "ui/stats/StatisticsPicture.h"

#include "ui/stats/PluralCount.h"

#include <QCoreApplication>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPainter>

#include <algorithm>

namespace skipnest::ui {
namespace {

constexpr QSize size(600, 315); // drawn twice as large
constexpr int scale = 2;
constexpr QRectF frame(24, 24, 552, 267);
constexpr QRectF content(56, 52, 488, 211);
constexpr qreal chartLeft = 340;

QFont fontOf(int pixels, QFont::Weight weight = QFont::Normal) {
    QFont font = QGuiApplication::font();
    font.setPixelSize(pixels);
    font.setWeight(weight);
    return font;
}

// As large as `font` says, smaller where the text would not fit.
void drawFitting(QPainter& painter, const QRectF& place, const QString& text, QFont font,
                 const QColor& color) {
    while (font.pixelSize() > 11 && QFontMetricsF(font).horizontalAdvance(text) > place.width())
        font.setPixelSize(font.pixelSize() - 1);
    painter.setFont(font);
    painter.setPen(color);
    painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
}

void drawBars(QPainter& painter, const QRectF& place, const StatisticsFigures& figures,
              const Palette& palette) {
    const std::vector<double> lengths = barLengths(figures.weeks);
    if (lengths.empty())
        return;
    const qreal step = place.width() / static_cast<qreal>(lengths.size());
    const qreal width = step * 0.62;
    QColor past = palette.accent;
    past.setAlphaF(0.45F);
    painter.setPen(Qt::NoPen);
    for (std::size_t i = 0; i < lengths.size(); ++i) {
        const qreal height = std::max(4.0, place.height() * lengths[i]);
        const QRectF bar(place.left() + step * static_cast<qreal>(i) + (step - width) / 2,
                         place.bottom() - height, width, height);
        painter.setBrush(i + 1 == lengths.size() ? palette.accent : past);
        painter.drawRoundedRect(bar, 4, 4);
    }
}

} // namespace

QImage statisticsPicture(const StatisticsFigures& figures, const Palette& palette) {
    QImage image(size * scale, QImage::Format_RGB32);
    image.fill(palette.window);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.scale(scale, scale);

    painter.setPen(QPen(palette.border, 1));
    painter.setBrush(palette.surface);
    painter.drawRoundedRect(frame, 14, 14);

    const qreal width = chartLeft - content.left() - 16;
    const auto row = [&](qreal top, qreal height) {
        return QRectF(content.left(), content.top() + top, width, height);
    };
    drawFitting(painter, row(0, 22), QStringLiteral("Skipnest"), fontOf(18, QFont::Bold),
                palette.accent);
    drawFitting(painter, row(32, 84), shownNumber(figures.weekJumps), fontOf(76, QFont::Bold),
                palette.text);
    drawFitting(painter, row(114, 26),
                QCoreApplication::translate("Statistics", "jumps this week", nullptr,
                                            pluralCount(figures.weekJumps)),
                fontOf(20), palette.text);
    drawFitting(painter, row(158, 24), savedText(figures.weekJumps), fontOf(17),
                palette.secondaryText);
    // A run that is not kept alive yet is nothing to show around.
    if (figures.streakDays > 0)
        drawFitting(painter, row(186, 24), streakText(figures), fontOf(17), palette.secondaryText);

    drawBars(painter, QRectF(chartLeft, content.top() + 8, content.right() - chartLeft, 166),
             figures, palette);
    painter.setFont(fontOf(13));
    painter.setPen(palette.secondaryText);
    painter.drawText(QRectF(chartLeft, content.top() + 186, content.right() - chartLeft, 24),
                     Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, shownDay(figures.day));
    return image;
}

} // namespace skipnest::ui
