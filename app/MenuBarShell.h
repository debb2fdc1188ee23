// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "app/DroppedTarget.h"
#include "model/ShortcutListViewModel.h"
#include "platform/NotificationCenter.h"
#include "platform/PanelHost.h"
#include "platform/Ports.h"
#include "platform/Scheduler.h"
#include "platform/StatusItem.h"

#include <QObject>
#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

namespace skipnest::app {

// The status item, the popover below it, and onboarding: what a person sees of the agent.
class MenuBarShell final : private platform::StatusItemEvents {
public:
    // What the menu starts. Actions of features that are not there yet are left empty, and their
    // entries are left out of the menu.
    struct Actions {
        std::function<void(const model::ShortcutItem&)> jump;
        std::function<void()> capture;
        std::function<void()> voice;
        std::function<void()> checkForUpdates;
        std::function<void()> quit;
        std::function<void()> droppedOnIcon = {}; // something that can get a key
        // How often a target of this name was jumped to; without it the menu takes the list's
        // order.
        std::function<std::int64_t(const QString& name)> uses = {};
    };

    MenuBarShell(const platform::Ports& ports, model::ShortcutListViewModel& list,
                 platform::NotificationCenter& notifications, Actions actions);
    ~MenuBarShell() override;

    // Puts up the status item and builds the popover, hidden.
    void createStatusItemAndPopover();

    void togglePopover();
    // On the given screen of the popover, wherever it was.
    void showPopover(const platform::PopoverRoute& route = {});
    void closePopover();
    // What the popover was last opened on.
    [[nodiscard]] const platform::PopoverRoute& route() const { return route_; }

    // Whether this document's person has still to be led to a first shortcut.
    [[nodiscard]] static bool needsOnboarding(const model::AppConfiguration& configuration);
    static constexpr std::int64_t currentOnboardingVersion = 1;
    void showOnboarding();
    // Stores that onboarding was seen and closes it.
    void finishOnboarding();

    // The counts of `uses` have changed.
    void usesChanged();

    // Files and folders by URL or path: opens the add screen with the first that is one. Answers
    // why nothing could be added where none is.
    platform::Outcome addDropped(const QStringList& urls);

private:
    void statusItemClicked() override;
    void statusMenuChosen(int id) override;
    void dropped(const QStringList& urls) override;

    [[nodiscard]] std::optional<DropRefusal> openFirst(const QStringList& urls);
    void toggle(bool show);
    void popoverHidden();
    void rebuildMenu();
    // Those of the menu, the most used first.
    [[nodiscard]] std::vector<model::ShortcutItem> mostUsed() const;

    platform::Ports ports_;
    model::ShortcutListViewModel& list_;
    platform::NotificationCenter& notifications_;
    Actions actions_;
    platform::PopoverRoute route_;
    std::vector<model::RecordId> inMenu_;            // the targets of the menu
    std::vector<std::function<void()>> menuActions_; // by entry id, which counts from 1
    enum class Hiding { byThemselves, byUs };
    Hiding hiding_ = Hiding::byThemselves;
    std::optional<platform::Instant> wentAwayAt_; // the popover hid because the person left it
    std::vector<platform::Observation> observations_;
    QObject listContext_; // connections to the list end with the shell
};

} // namespace skipnest::app
