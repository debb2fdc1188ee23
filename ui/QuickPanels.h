// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/PanelHost.h"

#include <QObject>

#include <memory>

class QQmlEngine;
class QQuickView;

namespace skipnest::app {
class AppDelegate;
}

namespace skipnest::switcher {
class SwitcherModel;
}

namespace skipnest::ui {

class OnboardingModel;
class PopoverModel;
class SwitcherBarWindow;

// The popover, the switcher's bar and the onboarding window in Qt Quick. Popover and bar are built
// once and only shown and hidden afterwards; onboarding is made when it is needed and gone when it
// is closed.
class QuickPanels final : public QObject, public platform::PanelHost {
    Q_OBJECT
public:
    QuickPanels();
    ~QuickPanels() override;

    // What the panels show: made, and not launched yet. Before any other call, and it must outlive
    // the panels or be taken back by detach().
    void attach(app::AppDelegate& agent);
    void detach();
    // For tests and pictures: the bar that is created next shows this model, which must live until
    // detach(), and not the agent's.
    void setSwitcher(switcher::SwitcherModel& model) { switcherModel_ = &model; }

    void createPopover() override;
    [[nodiscard]] QSize popoverSize() const override;
    [[nodiscard]] bool isPopoverShown() const override;
    void showPopover(const platform::PopoverRoute& route, const QRect& frame) override;
    void hidePopover() override;
    [[nodiscard]] platform::Observation observePopoverHidden(std::function<void()> hidden) override;
    void createSwitcherBar() override;
    void showSwitcherBar(const QRect& available) override;
    void hideSwitcherBar() override;
    [[nodiscard]] bool isOnboardingShown() const override;
    void showOnboarding() override;
    void closeOnboarding() override;

    // For tests and pictures of the screens.
    [[nodiscard]] QQuickView* popoverView() const { return popover_.get(); }
    [[nodiscard]] QQuickView* onboardingView() const { return onboarding_.get(); }
    [[nodiscard]] PopoverModel& popoverModel() const { return *popoverModel_; }
    [[nodiscard]] SwitcherBarWindow* switcherBar() const { return switcherBar_.get(); }

private:
    void createEngine();
    bool eventFilter(QObject* watched, QEvent* event) override;
    void popoverLostFocus();

    app::AppDelegate* agent_ = nullptr;
    std::unique_ptr<QQmlEngine> engine_;
    std::unique_ptr<PopoverModel> popoverModel_;
    std::unique_ptr<QQuickView> popover_;
    std::unique_ptr<OnboardingModel> onboardingModel_;
    std::unique_ptr<QQuickView> onboarding_;
    switcher::SwitcherModel* switcherModel_ = nullptr;
    std::unique_ptr<SwitcherBarWindow> switcherBar_;
    platform::Observers<> hidden_;
};

} // namespace skipnest::ui
