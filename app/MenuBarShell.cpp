// SPDX-License-Identifier: Apache-2.0
#include "app/MenuBarShell.h"

#include "app/PopoverPlacement.h"
#include "platform/Alerts.h"
#include "platform/Diagnostics.h"
#include "platform/Screens.h"

#include <QCoreApplication>
#include <QStringBuilder>

#include <algorithm>
#include <functional>
#include <utility>

namespace skipnest::app {

using model::ShortcutItem;
using platform::NotificationCenter;
using platform::PopoverRoute;
using platform::StatusMenuEntry;

namespace {

using namespace std::chrono_literals;

// A click on the icon first takes the popover's focus, which hides it, and arrives then.
constexpr platform::Duration sameClick = 300ms;

constexpr std::size_t targetsInMenu = 5;

// One line of a menu, whatever the shortcut is called.
QString menuTitle(const QString& name) {
    constexpr qsizetype longest = 40;
    const QString line = name.simplified();
    return line.size() <= longest ? line : line.first(longest - 1) + u'…';
}

} // namespace

MenuBarShell::MenuBarShell(const platform::Ports& ports, model::ShortcutListViewModel& list,
                           NotificationCenter& notifications, Actions actions)
    : ports_(ports), list_(list), notifications_(notifications), actions_(std::move(actions)) {}

MenuBarShell::~MenuBarShell() = default;

void MenuBarShell::createStatusItemAndPopover() {
    using List = model::ShortcutListViewModel;
    rebuildMenu();
    ports_.statusItem.setToolTip(QStringLiteral("Skipnest"));
    ports_.statusItem.show(list_.menuBarIconName(), *this);
    ports_.panels.createPopover();

    observations_.push_back(ports_.panels.observePopoverHidden([this] { popoverHidden(); }));
    observations_.push_back(notifications_.observe(NotificationCenter::toggleMainPopover(),
                                                   [this] { togglePopover(); }));
    observations_.push_back(
        notifications_.observe(NotificationCenter::closePopover(), [this] { closePopover(); }));
    observations_.push_back(
        notifications_.observe(NotificationCenter::menuBarIconChanged(),
                               [this] { ports_.statusItem.setIcon(list_.menuBarIconName()); }));
    QObject::connect(&list_, &List::menuBarIconNameChanged, &listContext_,
                     [this] { notifications_.post(NotificationCenter::menuBarIconChanged()); });
    QObject::connect(&list_, &List::shortcutsChanged, &listContext_, [this] { rebuildMenu(); });
}

void MenuBarShell::togglePopover() {
    toggle(!ports_.panels.isPopoverShown());
}

void MenuBarShell::toggle(bool show) {
    if (show)
        showPopover();
    else
        closePopover();
    ports_.diagnostics.log(u"popover toggled via ⌃⌥ (shown=" %
                           QLatin1String(show ? "true" : "false") % u')');
}

void MenuBarShell::showPopover(const PopoverRoute& route) {
    route_ = route;
    wentAwayAt_.reset();
    ports_.panels.showPopover(route, popoverFrame(ports_.screens, ports_.statusItem.geometry(),
                                                  ports_.panels.popoverSize()));
}

void MenuBarShell::closePopover() {
    hiding_ = Hiding::byUs;
    ports_.panels.hidePopover();
    hiding_ = Hiding::byThemselves;
}

void MenuBarShell::popoverHidden() {
    if (hiding_ == Hiding::byThemselves)
        wentAwayAt_ = ports_.scheduler.now();
}

void MenuBarShell::statusItemClicked() {
    const bool isShown = ports_.panels.isPopoverShown();
    const auto wentAway = std::exchange(wentAwayAt_, std::nullopt);
    const bool justHidden = !isShown && wentAway && ports_.scheduler.now() - *wentAway <= sameClick;
    toggle(!isShown && !justHidden);
}

std::vector<ShortcutItem> MenuBarShell::mostUsed() const {
    std::vector<std::pair<std::int64_t, const ShortcutItem*>> ranked;
    for (const ShortcutItem& item : list_.shortcuts())
        if (item.keyCombo && list_.isConfirmed(item.id))
            ranked.emplace_back(actions_.uses ? actions_.uses(item.name) : 0, &item);
    std::ranges::stable_sort(ranked, std::greater{}, [](const auto& pair) { return pair.first; });
    ranked.resize(std::min(ranked.size(), targetsInMenu));
    std::vector<ShortcutItem> items;
    for (const auto& [uses, item] : ranked)
        items.push_back(*item);
    return items;
}

void MenuBarShell::usesChanged() {
    const auto items = mostUsed();
    if (!std::ranges::equal(items, inMenu_, {}, &ShortcutItem::id))
        rebuildMenu();
}

void MenuBarShell::rebuildMenu() {
    const auto text = [](const char* source) {
        return QCoreApplication::translate("MenuBarShell", source);
    };
    std::vector<StatusMenuEntry> entries;
    menuActions_.clear();
    const auto add = [&](const QString& title, std::function<void()> action) {
        if (!action)
            return;
        menuActions_.push_back(std::move(action));
        entries.push_back({static_cast<int>(menuActions_.size()), title});
    };
    const auto separate = [&entries] {
        if (!entries.empty() && entries.back().id != 0)
            entries.push_back({});
    };

    add(text(QT_TRANSLATE_NOOP("MenuBarShell", "Open")), [this] { showPopover(); });
    separate();
    inMenu_.clear();
    if (actions_.jump) {
        for (const ShortcutItem& item : mostUsed()) {
            add(menuTitle(item.name), [this, item] { actions_.jump(item); });
            inMenu_.push_back(item.id);
        }
    }
    separate();
    add(text(QT_TRANSLATE_NOOP("MenuBarShell", "Capture")), actions_.capture);
    add(text(QT_TRANSLATE_NOOP("MenuBarShell", "Voice")), actions_.voice);
    separate();
    add(text(QT_TRANSLATE_NOOP("MenuBarShell", "Settings")), [this] {
        showPopover({platform::PopoverScreen::settings, {}});
    });
    add(text(QT_TRANSLATE_NOOP("MenuBarShell", "Check for Updates")), actions_.checkForUpdates);
    separate();
    add(text(QT_TRANSLATE_NOOP("MenuBarShell", "Quit")), actions_.quit);
    if (entries.back().id == 0)
        entries.pop_back();
    ports_.statusItem.setMenu(entries);
}

void MenuBarShell::statusMenuChosen(int id) {
    if (id < 1 || static_cast<std::size_t>(id) > menuActions_.size())
        return;
    // A copy: what is chosen may change the menu.
    const auto action = menuActions_[static_cast<std::size_t>(id) - 1];
    action();
}

bool MenuBarShell::needsOnboarding(const model::AppConfiguration& configuration) {
    return !configuration.didOnboard.value_or(false) ||
           configuration.seenOnboardingVersion.value_or(0) < currentOnboardingVersion;
}

void MenuBarShell::showOnboarding() {
    ports_.panels.showOnboarding();
}

void MenuBarShell::finishOnboarding() {
    list_.changeSettings([](model::AppConfiguration& configuration) {
        configuration.didOnboard = true;
        // A newer program may have shown more.
        configuration.seenOnboardingVersion =
            std::max(configuration.seenOnboardingVersion.value_or(0), currentOnboardingVersion);
    });
    ports_.panels.closeOnboarding();
}

std::optional<DropRefusal> MenuBarShell::openFirst(const QStringList& urls) {
    const auto target = droppedTarget(urls, ports_.files);
    if (const auto* refusal = std::get_if<DropRefusal>(&target))
        return *refusal;
    showPopover({platform::PopoverScreen::add, std::get<QString>(target)});
    return std::nullopt;
}

platform::Outcome MenuBarShell::addDropped(const QStringList& urls) {
    if (const auto refusal = openFirst(urls))
        return platform::Failure{platform::Failure::Kind::notFound, refusalText(*refusal)};
    return platform::Done{};
}

void MenuBarShell::dropped(const QStringList& urls) {
    const auto refusal = openFirst(urls);
    if (!refusal) {
        if (actions_.droppedOnIcon)
            actions_.droppedOnIcon();
        return;
    }
    ports_.alerts.show({QCoreApplication::translate("MenuBarShell", "This cannot get a key"),
                        translatedRefusal(*refusal),
                        {QCoreApplication::translate("MenuBarShell", "OK")}},
                       [](int) {});
}

} // namespace skipnest::app
