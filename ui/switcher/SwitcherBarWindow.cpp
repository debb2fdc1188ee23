// SPDX-License-Identifier: Apache-2.0
#include "ui/switcher/SwitcherBarWindow.h"

#include "ui/Engine.h"

#include <QGuiApplication>
#include <QQmlEngine>
#include <QQuickView>
#include <QScreen>

namespace skipnest::ui {

SwitcherBarWindow::SwitcherBarWindow(QQmlEngine& engine, switcher::SwitcherModel& model,
                                     platform::Executor& executor)
    : model_(model, executor), view_(std::make_unique<QQuickView>(&engine, nullptr)) {
    view_->setTitle(QStringLiteral("Skipnest"));
    view_->setFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                    Qt::WindowDoesNotAcceptFocus | Qt::BypassWindowManagerHint);
    view_->setResizeMode(QQuickView::SizeRootObjectToView);
    view_->resize(640, 280);
    ThemeColors& theme = themeOf(engine);
    const auto paintBackground = [this, &theme] { view_->setColor(theme.window()); };
    paintBackground();
    connect(&theme, &ThemeColors::changed, this, paintBackground);
    view_->setInitialProperties({{QStringLiteral("bar"), QVariant::fromValue(&model_)}});
    view_->setSource(QUrl(QStringLiteral("qrc:/Skipnest/switcher/SwitcherBar.qml")));
    connect(&model_, &SwitcherBarModel::frameChanged, this, &SwitcherBarWindow::place);
    // The native window too, so that showing it later is one request.
    view_->create();
}

SwitcherBarWindow::~SwitcherBarWindow() = default;

void SwitcherBarWindow::show(const QRect& area) {
    const QScreen* screen = QGuiApplication::screenAt(area.center());
    model_.show(area, screen != nullptr ? screen->devicePixelRatio() : view_->devicePixelRatio());
    view_->show();
    view_->raise();
}

void SwitcherBarWindow::hide() {
    view_->hide();
    model_.hide();
}

void SwitcherBarWindow::place() {
    view_->setGeometry(model_.frame());
}

} // namespace skipnest::ui
