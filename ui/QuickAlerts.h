// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Alerts.h"
#include "ui/Theme.h"

#include <QObject>
#include <qqmlintegration.h>

#include <functional>
#include <memory>
#include <vector>

class QQuickView;

namespace skipnest::ui {

// What one alert window shows; `choose` is called by its buttons.
class AlertContent final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the alert that it shows")
    Q_PROPERTY(QString message READ message CONSTANT)
    Q_PROPERTY(QString informativeText READ informativeText CONSTANT)
    Q_PROPERTY(QStringList buttons READ buttons CONSTANT)
    Q_PROPERTY(QColor windowColor READ windowColor CONSTANT)
    Q_PROPERTY(QColor surfaceColor READ surfaceColor CONSTANT)
    Q_PROPERTY(QColor borderColor READ borderColor CONSTANT)
    Q_PROPERTY(QColor textColor READ textColor CONSTANT)
    Q_PROPERTY(QColor secondaryTextColor READ secondaryTextColor CONSTANT)
    Q_PROPERTY(QColor accentColor READ accentColor CONSTANT)
    Q_PROPERTY(QColor accentTextColor READ accentTextColor CONSTANT)
    Q_PROPERTY(QColor warningColor READ warningColor CONSTANT)
public:
    AlertContent(platform::Alert alert, const Palette& palette);

    [[nodiscard]] QString message() const { return alert_.message; }
    [[nodiscard]] QString informativeText() const { return alert_.informativeText; }
    [[nodiscard]] QStringList buttons() const { return alert_.buttons; }
    [[nodiscard]] QColor windowColor() const { return palette_.window; }
    [[nodiscard]] QColor surfaceColor() const { return palette_.surface; }
    [[nodiscard]] QColor borderColor() const { return palette_.border; }
    [[nodiscard]] QColor textColor() const { return palette_.text; }
    [[nodiscard]] QColor secondaryTextColor() const { return palette_.secondaryText; }
    [[nodiscard]] QColor accentColor() const { return palette_.accent; }
    [[nodiscard]] QColor accentTextColor() const { return palette_.accentText; }
    [[nodiscard]] QColor warningColor() const { return palette_.warning; }

    [[nodiscard]] const platform::Alert& alert() const { return alert_; }

Q_SIGNALS:
    void chosen(int index);

private:
    platform::Alert alert_;
    Palette palette_;
};

// Alerts as windows of their own, made when needed: most sessions never show one.
class QuickAlerts final : public QObject, public platform::Alerts {
    Q_OBJECT
public:
    // `palette` is asked at each alert for the theme of the moment.
    explicit QuickAlerts(std::function<const Palette&()> palette);
    ~QuickAlerts() override;

    void show(const platform::Alert& alert, std::function<void(int)> answered) override;

private:
    struct Window;
    void closed(Window* window, int answer);
    bool eventFilter(QObject* watched, QEvent* event) override;

    std::function<const Palette&()> palette_;
    std::vector<std::unique_ptr<Window>> windows_;
};

} // namespace skipnest::ui
