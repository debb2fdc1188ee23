// SPDX-License-Identifier: Apache-2.0
#include "ui/QuickPanels.h"

#include "app/AppDelegate.h"
#include "app/MenuBarShell.h"
#include "platform/Screens.h"
#include "platform/UserDefaults.h"
#include "ui/Engine.h"
#include "ui/PopoverModel.h"
#include "ui/onboarding/OnboardingModel.h"
#include "ui/switcher/SwitcherBarWindow.h"

#include <QEvent>
#include <QJsonValue>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>

namespace skipnest::ui {

QuickPanels::QuickPanels() = default;

QuickPanels::~QuickPanels() {
    detach();
}

void QuickPanels::attach(app::AppDelegate& agent) {
    agent_ = &agent;
    switcherModel_ = &agent.switcher().model();
}

void QuickPanels::detach() {
    switcherBar_.reset();
    switcherModel_ = nullptr;
    onboarding_.reset();
    onboardingModel_.reset();
    popover_.reset();
    popoverModel_.reset();
    engine_.reset();
    agent_ = nullptr;
}

void QuickPanels::createEngine() {
    Q_ASSERT(agent_ != nullptr);
    if (engine_ != nullptr)
        return;
    auto& list = agent_->viewModel();
    engine_ = makeEngine(agent_->ports().icons, list.theme());
    connect(&list, &model::ShortcutListViewModel::themeChanged, this,
            [this] { themeOf(*engine_).setTheme(agent_->viewModel().theme()); });
    const auto takeMotion = [this] {
        const QJsonValue less = agent_->ports().defaults.value(QStringLiteral("sk.lessMotion"));
        themeOf(*engine_).setMoves(!less.toBool(false));
    };
    takeMotion();
    connect(&list, &model::ShortcutListViewModel::settingsChanged, this, takeMotion);
}

void QuickPanels::createPopover() {
    createEngine();
    popoverModel_ = std::make_unique<PopoverModel>(*agent_);
    popover_ = std::make_unique<QQuickView>(engine_.get(), nullptr);
    popover_->setTitle(QStringLiteral("Skipnest"));
    popover_->setFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    popover_->setResizeMode(QQuickView::SizeRootObjectToView);
    popover_->resize(popoverSize());
    const auto paintBackground = [this] { popover_->setColor(themeOf(*engine_).window()); };
    paintBackground();
    connect(&themeOf(*engine_), &ThemeColors::changed, this, paintBackground);
    popover_->setInitialProperties(
        {{QStringLiteral("popover"), QVariant::fromValue(popoverModel_.get())}});
    popover_->setSource(QUrl(QStringLiteral("qrc:/Skipnest/Popover.qml")));
    popover_->installEventFilter(this);
    connect(popover_.get(), &QWindow::activeChanged, this, [this] {
        if (!popover_->isActive())
            popoverLostFocus();
    });
    // The native window too, so that showing it later is one request.
    popover_->create();
}

QSize QuickPanels::popoverSize() const {
    return {440, 620};
}

bool QuickPanels::isPopoverShown() const {
    return popover_ != nullptr && popover_->isVisible();
}

void QuickPanels::showPopover(const platform::PopoverRoute& route, const QRect& frame) {
    popoverModel_->willShow(route);
    if (!popover_->isVisible())
        popover_->setGeometry(frame);
    popover_->show();
    popover_->raise();
    popover_->requestActivate();
}

void QuickPanels::hidePopover() {
    if (!isPopoverShown())
        return;
    popover_->hide();
    popoverModel_->wasHidden();
    hidden_.notify();
}

void QuickPanels::popoverLostFocus() {
    // A recording takes the keyboard, which looks the same from here.
    if (!agent_->viewModel().hotkeysSuspended() && !popoverModel_->isReadElsewhere())
        hidePopover();
}

platform::Observation QuickPanels::observePopoverHidden(std::function<void()> hidden) {
    return hidden_.add(std::move(hidden));
}

void QuickPanels::createSwitcherBar() {
    createEngine();
    switcherBar_ = std::make_unique<SwitcherBarWindow>(
        *engine_, *switcherModel_, agent_->ports().executor, agent_->ports().scheduler);
}

void QuickPanels::showSwitcherBar(const QRect& available) {
    if (switcherBar_ != nullptr)
        switcherBar_->show(available);
}

void QuickPanels::hideSwitcherBar() {
    if (switcherBar_ != nullptr)
        switcherBar_->hide();
}

bool QuickPanels::isOnboardingShown() const {
    return onboarding_ != nullptr && onboarding_->isVisible();
}

void QuickPanels::showOnboarding() {
    if (onboarding_ == nullptr) {
        onboardingModel_ = std::make_unique<OnboardingModel>(*agent_);
        onboarding_ = std::make_unique<QQuickView>(engine_.get(), nullptr);
        onboarding_->setTitle(tr("Welcome to Skipnest"));
        onboarding_->setResizeMode(QQuickView::SizeRootObjectToView);
        onboarding_->setColor(themeOf(*engine_).window());
        connect(&themeOf(*engine_), &ThemeColors::changed, onboarding_.get(),
                [this] { onboarding_->setColor(themeOf(*engine_).window()); });
        onboarding_->setInitialProperties(
            {{QStringLiteral("onboarding"), QVariant::fromValue(onboardingModel_.get())}});
        onboarding_->setSource(QUrl(QStringLiteral("qrc:/Skipnest/onboarding/Onboarding.qml")));
        onboarding_->installEventFilter(this);
        const QRect available = platform::screenForPanel(agent_->ports().screens).available;
        QRect frame(QPoint(), QSize(680, 560));
        if (available.isValid()) {
            frame.setSize(frame.size().boundedTo(available.size()));
            frame.moveCenter(available.center());
            onboarding_->setPosition(frame.topLeft());
        }
        onboarding_->resize(frame.size());
        onboarding_->setMinimumSize(frame.size());
    }
    onboarding_->show();
    onboarding_->raise();
    onboarding_->requestActivate();
}

void QuickPanels::closeOnboarding() {
    if (onboarding_ == nullptr)
        return;
    onboarding_->hide();
    // Closed from inside its own event handlers: gone once they have returned.
    onboardingModel_->stop();
    onboarding_.release()->deleteLater();
    onboardingModel_.release()->deleteLater();
}

bool QuickPanels::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Close)
        return false;
    if (watched == onboarding_.get())
        closeOnboarding();
    else
        hidePopover();
    // Hidden by us, never destroyed by the window system.
    event->ignore();
    return true;
}

} // namespace skipnest::ui
