// SPDX-License-Identifier: Apache-2.0
#include "ui/switcher/SwitcherBarWindow.h"

#include "ui/Engine.h"

#include <QGuiApplication>
#include <QQmlEngine>
#include <QQuickView>
#include <QScreen>

#include <cmath>

namespace skipnest::ui {
namespace {

// The server paints what was below the bar before it does anything else, over 20 windows for some
// milliseconds. The window manager's turn comes first: it has a window to bring to the front.
constexpr platform::Duration leaving = std::chrono::milliseconds(4);

// Without a compositor a window is either there or not: its corners are cut out pixel by pixel.
QRegion rounded(const QSize& size, int radius) {
    QRegion region(QRect({}, size).adjusted(0, radius, 0, -radius));
    for (int y = 0; y < radius; ++y) {
        const double down = radius - y - 0.5;
        const int inset =
            radius - static_cast<int>(std::lround(std::sqrt(radius * radius - down * down)));
        const int width = size.width() - 2 * inset;
        region += QRect(inset, y, width, 1);
        region += QRect(inset, size.height() - 1 - y, width, 1);
    }
    return region;
}

} // namespace

SwitcherBarWindow::SwitcherBarWindow(QQmlEngine& engine, switcher::SwitcherModel& model,
                                     platform::Executor& executor, platform::Scheduler& scheduler)
    : model_(model, executor), view_(std::make_unique<QQuickView>(&engine, nullptr)),
      scheduler_(scheduler) {
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
    leaving_.reset();
    const QScreen* screen = QGuiApplication::screenAt(area.center());
    model_.show(area, screen != nullptr ? screen->devicePixelRatio() : view_->devicePixelRatio());
    view_->show();
    view_->raise();
}

void SwitcherBarWindow::hide() {
    model_.hide();
    leaving_ = scheduler_.after(leaving, "bar leaves", [this] { view_->hide(); });
}

void SwitcherBarWindow::place() {
    const QRect& frame = model_.frame();
    if (frame.size() != view_->mask().boundingRect().size())
        view_->setMask(rounded(frame.size(), BarLayout::cornerRadius));
    view_->setGeometry(frame);
}

} // namespace skipnest::ui
