// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/Theme.h"

#include <QObject>
#include <qqmlintegration.h>

class QJSEngine;
class QQmlEngine;

namespace skipnest::ui {

// The theme as views see it: `Theme.text`, `Theme.spacing`. One per engine, put there by makeEngine
// (ui/Engine.h); changing the theme repaints everything that is shown.
class ThemeColors final : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(Theme)
    QML_SINGLETON
    Q_PROPERTY(QColor window READ window NOTIFY changed)
    Q_PROPERTY(QColor surface READ surface NOTIFY changed)
    Q_PROPERTY(QColor hover READ hover NOTIFY changed)
    Q_PROPERTY(QColor border READ border NOTIFY changed)
    Q_PROPERTY(QColor text READ text NOTIFY changed)
    Q_PROPERTY(QColor secondaryText READ secondaryText NOTIFY changed)
    Q_PROPERTY(QColor accent READ accent NOTIFY changed)
    Q_PROPERTY(QColor accentText READ accentText NOTIFY changed)
    Q_PROPERTY(QColor warning READ warning NOTIFY changed)
    Q_PROPERTY(QColor danger READ danger NOTIFY changed)
    Q_PROPERTY(QColor success READ success NOTIFY changed)
    // Things may slide and fade on their way; else they are at once where they belong.
    Q_PROPERTY(bool moves READ moves NOTIFY changed)
    // Measures in device-independent pixels.
    Q_PROPERTY(int spacing READ spacing CONSTANT)
    Q_PROPERTY(int margin READ margin CONSTANT)
    Q_PROPERTY(int radius READ radius CONSTANT)
    Q_PROPERTY(int smallSize READ smallSize CONSTANT)
    Q_PROPERTY(int textSize READ textSize CONSTANT)
    Q_PROPERTY(int titleSize READ titleSize CONSTANT)
    Q_PROPERTY(int controlHeight READ controlHeight CONSTANT)
public:
    explicit ThemeColors(model::Theme theme, QObject* parent = nullptr);
    static ThemeColors* create(QQmlEngine* engine, QJSEngine*);

    void setTheme(model::Theme theme);
    void setMoves(bool moves);

    [[nodiscard]] QColor window() const { return palette_->window; }
    [[nodiscard]] QColor surface() const { return palette_->surface; }
    [[nodiscard]] QColor hover() const { return palette_->hover; }
    [[nodiscard]] QColor border() const { return palette_->border; }
    [[nodiscard]] QColor text() const { return palette_->text; }
    [[nodiscard]] QColor secondaryText() const { return palette_->secondaryText; }
    [[nodiscard]] QColor accent() const { return palette_->accent; }
    [[nodiscard]] QColor accentText() const { return palette_->accentText; }
    [[nodiscard]] QColor warning() const { return palette_->warning; }
    [[nodiscard]] QColor danger() const { return palette_->danger; }
    [[nodiscard]] QColor success() const { return palette_->success; }

    [[nodiscard]] bool moves() const { return moves_; }

    [[nodiscard]] static int spacing() { return 8; }
    [[nodiscard]] static int margin() { return 16; }
    [[nodiscard]] static int radius() { return 8; }
    [[nodiscard]] static int smallSize() { return 12; }
    [[nodiscard]] static int textSize() { return 14; }
    [[nodiscard]] static int titleSize() { return 17; }
    [[nodiscard]] static int controlHeight() { return 34; }

Q_SIGNALS:
    void changed();

private:
    const Palette* palette_;
    bool moves_ = true;
};

} // namespace skipnest::ui
