// SPDX-License-Identifier: Apache-2.0
#include "platform/sim/SimShell.h"

#include <QJsonArray>

#include <algorithm>

namespace skipnest::sim {

using namespace Qt::StringLiterals;
using platform::Done;
using platform::Failure;
using platform::Outcome;

void SimStatusItem::click() const {
    if (events_ != nullptr)
        events_->statusItemClicked();
}

void SimStatusItem::choose(const QString& title) const {
    const auto found = std::ranges::find_if(menu_, [&title](const auto& entry) {
        return entry.id != 0 && entry.title == title && entry.enabled;
    });
    if (events_ == nullptr || found == menu_.end())
        qFatal("the status menu offers no \"%s\"", qUtf8Printable(title));
    events_->statusMenuChosen(found->id);
}

void SimStatusItem::drop(const QStringList& urls) const {
    if (events_ != nullptr)
        events_->dropped(urls);
}

QStringList SimStatusItem::menuTitles() const {
    QStringList titles;
    for (const platform::StatusMenuEntry& entry : menu_)
        titles.append(entry.id == 0 ? u"-"_s : entry.title);
    return titles;
}

void SimStatusItem::show(const QString& iconName, platform::StatusItemEvents& events) {
    iconName_ = iconName;
    events_ = &events;
}

void SimPanels::drawOn(platform::PanelHost* host) {
    host_ = host;
    hostHidden_ = host_ == nullptr ? platform::Observation()
                                   : host_->observePopoverHidden([this] { noteHidden(); });
}

void SimPanels::createPopover() {
    created_ = true;
    if (host_ != nullptr)
        host_->createPopover();
}

void SimPanels::showPopover(const platform::PopoverRoute& route, const QRect& frame) {
    const bool unchanged = shown_ && route == route_;
    shown_ = true;
    route_ = route;
    frame_ = frame;
    if (host_ != nullptr)
        host_->showPopover(route, frame);
    if (unchanged)
        return;
    QJsonObject fields{{u"state"_s, platform::screenName(route.screen)}};
    if (!route.targetPath.isEmpty())
        fields.insert(u"path"_s, route.targetPath);
    journal_.panel(u"popover"_s, fields);
}

void SimPanels::hidePopover() {
    if (host_ != nullptr)
        host_->hidePopover();
    noteHidden();
}

void SimPanels::noteHidden() {
    if (!std::exchange(shown_, false))
        return;
    journal_.panel(u"popover"_s, {{u"state"_s, u"closed"_s}});
    hidden_.notify();
}

void SimPanels::createSwitcherBar() {
    if (host_ != nullptr)
        host_->createSwitcherBar();
}

void SimPanels::showSwitcherBar(const QRect& available) {
    isSwitcherShown_ = true;
    if (host_ != nullptr)
        host_->showSwitcherBar(available);
}

void SimPanels::hideSwitcherBar() {
    isSwitcherShown_ = false;
    if (host_ != nullptr)
        host_->hideSwitcherBar();
}

void SimPanels::showOnboarding() {
    onboarding_ = true;
    if (host_ != nullptr)
        host_->showOnboarding();
}

void SimPanels::closeOnboarding() {
    onboarding_ = false;
    if (host_ != nullptr)
        host_->closeOnboarding();
}

Outcome SimLoginItem::registerItem() {
    return change(true, u"registerLoginItem"_s);
}

Outcome SimLoginItem::unregisterItem() {
    return change(false, u"unregisterLoginItem"_s);
}

Outcome SimLoginItem::change(bool registered, const QString& call) {
    journal_.call(call);
    if (!failure_.isEmpty())
        return Failure{Failure::Kind::system, failure_};
    registered_ = registered;
    return Done{};
}

Outcome SimServicesMenu::refresh() {
    ++refreshes_;
    return Done{};
}

Outcome SimProcessLauncher::launch(const QString& program, const QStringList& arguments) {
    journal_.call(u"launch"_s, {{u"program"_s, program},
                                {u"arguments"_s, QJsonArray::fromStringList(arguments)}});
    return Done{};
}

void SimDistributedNotifications::post(const QString& name, const QString& object) const {
    if (const auto found = observers_.find(name); found != observers_.end())
        found->second.notify(object);
}

bool SimDistributedNotifications::isObserved(const QString& name) const {
    const auto found = observers_.find(name);
    return found != observers_.end() && !found->second.empty();
}

} // namespace skipnest::sim
