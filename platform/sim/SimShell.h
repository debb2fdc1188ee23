// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/DistributedNotifications.h"
#include "platform/LoginItem.h"
#include "platform/PanelHost.h"
#include "platform/ProcessLauncher.h"
#include "platform/Screens.h"
#include "platform/ServicesMenu.h"
#include "platform/StatusItem.h"
#include "platform/sim/Journal.h"

#include <map>

namespace skipnest::sim {

// The menu bar of the simulated desktop, and the person's hand on our icon in it.
class SimStatusItem final : public platform::StatusItem {
public:
    void click() const;
    // The entry with this title must exist and be enabled.
    void choose(const QString& title) const;
    void drop(const QStringList& urls) const;
    void setGeometry(std::optional<QRect> geometry) { geometry_ = geometry; }

    [[nodiscard]] bool isShown() const { return events_ != nullptr; }
    [[nodiscard]] const QString& iconName() const { return iconName_; }
    [[nodiscard]] const QString& toolTip() const { return toolTip_; }
    [[nodiscard]] QStringList menuTitles() const;

    [[nodiscard]] platform::Availability availability() const override { return {}; }
    void show(const QString& iconName, platform::StatusItemEvents& events) override;
    void setIcon(const QString& iconName) override { iconName_ = iconName; }
    void setToolTip(const QString& text) override { toolTip_ = text; }
    void setMenu(const std::vector<platform::StatusMenuEntry>& entries) override {
        menu_ = entries;
    }
    [[nodiscard]] std::optional<QRect> geometry() const override { return geometry_; }

private:
    platform::StatusItemEvents* events_ = nullptr;
    QString iconName_;
    QString toolTip_;
    std::vector<platform::StatusMenuEntry> menu_;
    std::optional<QRect> geometry_ = QRect(1200, 0, 24, 24);
};

// Panels that nobody draws: the journal has what would be seen.
class SimPanels final : public platform::PanelHost {
public:
    explicit SimPanels(Journal& journal) : journal_(journal) {}

    // Lets somebody draw after all: every request goes there too. Null for nobody again.
    void drawOn(platform::PanelHost* host);

    // The person clicks elsewhere.
    void clickOutside() { hidePopover(); }
    [[nodiscard]] bool isPopoverCreated() const { return created_; }
    [[nodiscard]] const platform::PopoverRoute& route() const { return route_; }
    [[nodiscard]] QRect popoverFrame() const { return frame_; }
    [[nodiscard]] bool isSwitcherShown() const { return isSwitcherShown_; }

    void createPopover() override;
    [[nodiscard]] QSize popoverSize() const override { return {440, 620}; }
    [[nodiscard]] bool isPopoverShown() const override { return shown_; }
    void showPopover(const platform::PopoverRoute& route, const QRect& frame) override;
    void hidePopover() override;
    [[nodiscard]] platform::Observation
    observePopoverHidden(std::function<void()> hidden) override {
        return hidden_.add(std::move(hidden));
    }
    void createSwitcherBar() override;
    void showSwitcherBar(const QRect& available) override;
    void hideSwitcherBar() override;
    [[nodiscard]] bool isOnboardingShown() const override { return onboarding_; }
    void showOnboarding() override;
    void closeOnboarding() override;

private:
    void noteHidden();

    Journal& journal_;
    platform::PanelHost* host_ = nullptr;
    platform::Observation hostHidden_;
    bool created_ = false;
    bool shown_ = false;
    bool onboarding_ = false;
    bool isSwitcherShown_ = false;
    platform::PopoverRoute route_;
    QRect frame_;
    platform::Observers<> hidden_;
};

class SimScreens final : public platform::Screens {
public:
    void setScreens(std::vector<platform::Screen> screens) { screens_ = std::move(screens); }
    void setPointer(std::optional<QPoint> pointer) { pointer_ = pointer; }
    void setActiveWindowFrame(std::optional<QRect> frame) { activeWindow_ = frame; }

    [[nodiscard]] std::vector<platform::Screen> screens() const override { return screens_; }
    [[nodiscard]] std::optional<QPoint> pointer() const override { return pointer_; }
    [[nodiscard]] std::optional<QRect> activeWindowFrame() const override { return activeWindow_; }

private:
    std::vector<platform::Screen> screens_ = {
        {QRect(0, 0, 1440, 900), QRect(0, 24, 1440, 876), true}};
    std::optional<QPoint> pointer_ = QPoint(720, 450);
    std::optional<QRect> activeWindow_;
};

class SimLoginItem final : public platform::LoginItem {
public:
    explicit SimLoginItem(Journal& journal) : journal_(journal) {}

    // From now on both requests fail so; empty: they work.
    void failWith(const QString& reason) { failure_ = reason; }

    [[nodiscard]] platform::Availability availability() const override { return {}; }
    [[nodiscard]] bool isRegistered() const override { return registered_; }
    platform::Outcome registerItem() override;
    platform::Outcome unregisterItem() override;

private:
    platform::Outcome change(bool registered, const QString& call);

    Journal& journal_;
    bool registered_ = false;
    QString failure_;
};

// Offers nothing anybody sees, so the journal has no call for it: only a count.
class SimServicesMenu final : public platform::ServicesMenu {
public:
    [[nodiscard]] int refreshes() const { return refreshes_; }
    [[nodiscard]] platform::Availability availability() const override { return {}; }
    platform::Outcome refresh() override;

private:
    int refreshes_ = 0;
};

class SimProcessLauncher final : public platform::ProcessLauncher {
public:
    explicit SimProcessLauncher(Journal& journal) : journal_(journal) {}
    platform::Outcome launch(const QString& program, const QStringList& arguments) override;

private:
    Journal& journal_;
};

// Notifications as another process would post them.
class SimDistributedNotifications final : public platform::DistributedNotifications {
public:
    void post(const QString& name, const QString& object = {}) const;
    [[nodiscard]] bool isObserved(const QString& name) const;

    [[nodiscard]] platform::Availability availability() const override { return {}; }
    [[nodiscard]] platform::Observation observe(const QString& name, Received received) override {
        return observers_[name].add(std::move(received));
    }

private:
    std::map<QString, platform::Observers<const QString&>> observers_;
};

} // namespace skipnest::sim
