// SPDX-License-Identifier: Apache-2.0
#include "ui/ThemeColors.h"

#include <QJSEngine>
#include <QQmlEngine>
#include <QVariant>

#include <utility>

namespace skipnest::ui {

ThemeColors::ThemeColors(model::Theme theme, QObject* parent)
    : QObject(parent), palette_(&palette(theme)) {}

ThemeColors* ThemeColors::create(QQmlEngine* engine, QJSEngine*) {
    auto* theme = engine->property("skipnestTheme").value<ThemeColors*>();
    Q_ASSERT(theme != nullptr);
    QJSEngine::setObjectOwnership(theme, QJSEngine::CppOwnership);
    return theme;
}

void ThemeColors::setTheme(model::Theme theme) {
    if (const Palette* wanted = &palette(theme); std::exchange(palette_, wanted) != wanted)
        Q_EMIT changed();
}

void ThemeColors::setMoves(bool moves) {
    if (std::exchange(moves_, moves) != moves)
        Q_EMIT changed();
}

} // namespace skipnest::ui
