// SPDX-License-Identifier: Apache-2.0
#include "app/ControlCommands.h"

#include "app/HotkeyListing.h"
#include "app/ShortcutVerbs.h"
#include "app/TransferVerbs.h"
#include "platform/Accessibility.h"
#include "platform/PanelHost.h"
#include "platform/Workspace.h"

#include <QStringBuilder>

#include <utility>

namespace skipnest::app {

using hotkeys::JumpArrival;
using model::ShortcutItem;
using platform::CycleDirection;

namespace {

double milliseconds(platform::Duration duration) {
    return std::chrono::duration<double, std::milli>(duration).count();
}

// Null where this desktop does not tell.
QJsonValue arrivedJson(JumpArrival::Outcome outcome) {
    switch (outcome) {
    case JumpArrival::Outcome::arrived:
        return true;
    case JumpArrival::Outcome::missed:
        return false;
    case JumpArrival::Outcome::unseen:
        return {};
    }
    Q_UNREACHABLE();
}

QString shownName(bool isShown) {
    return isShown ? QStringLiteral("shown") : QStringLiteral("hidden");
}

QString stateName(model::StorageState::Kind kind) {
    switch (kind) {
    case model::StorageState::Kind::missing:
        return QStringLiteral("new");
    case model::StorageState::Kind::loaded:
        return QStringLiteral("loaded");
    case model::StorageState::Kind::broken:
        return QStringLiteral("broken");
    }
    Q_UNREACHABLE();
}

} // namespace

ControlCommands::ControlCommands(AppDelegate& agent, const platform::Backend& backend,
                                 Requests requests)
    : agent_(agent), backend_(backend), requests_(std::move(requests)) {}

void ControlCommands::handle(const QJsonObject& request, const ControlSocket::Reply& reply) {
    const QString verb = request.value(u"verb").toString();
    if (verb == u"jump")
        return jump(request, reply);
    if (verb == u"hide")
        return reply(hide(request));
    if (verb == u"add")
        return reply(addVerb(agent_.viewModel(), agent_.ports().files, request));
    if (verb == u"remove")
        return reply(removeVerb(agent_.viewModel(), request));
    if (verb == u"confirm")
        return reply(confirmVerb(agent_.viewModel(), request));
    if (verb == u"export")
        return reply(exportVerb(agent_.transfer(), request));
    if (verb == u"import")
        return reply(
            importVerb(agent_.transfer(), agent_.viewModel(), agent_.ports().files, request));
    if (verb == u"popover")
        return reply(popover(request));
    if (verb == u"switcher")
        return reply(switcher(request));
    if (verb == u"list")
        return reply(ControlReply::success(listVerb(agent_.viewModel())));
    if (verb == u"restore")
        return reply(restore(request));
    if (verb == u"next-window")
        return reply(cycle(CycleDirection::next));
    if (verb == u"previous-window")
        return reply(cycle(CycleDirection::previous));
    if (verb == u"status")
        return reply(status());
    if (verb == u"quit") {
        reply(ControlReply::success(true));
        return requests_.quit();
    }
    if (verb == u"replace") {
        requests_.handOver();
        return reply(ControlReply::success(true));
    }
    reply(ControlReply::failure(u"unknown verb \"" % verb % u"\""));
}

void ControlCommands::jump(const QJsonObject& request, const ControlSocket::Reply& reply) {
    const auto named = confirmedShortcut(agent_.viewModel(), request);
    if (const auto* refusal = std::get_if<ControlReply>(&named))
        return reply(*refusal);
    const ShortcutItem& item = std::get<ShortcutItem>(named);
    const platform::Ports& ports = agent_.ports();
    ports.workspace.setNextActivationToken(request.value(u"token").toString());
    agent_.jumps().jump(item, ports.scheduler.now(), [reply, item](const JumpArrival& arrival) {
        const QJsonObject result{{QStringLiteral("item"), item.name},
                                 {QStringLiteral("arrived"), arrivedJson(arrival.outcome)},
                                 {QStringLiteral("ms"), milliseconds(arrival.took)}};
        if (arrival.outcome != JumpArrival::Outcome::missed)
            return reply(ControlReply::success(result));
        reply(ControlReply::failure(arrival.reason.isEmpty()
                                        ? u'"' % item.name % u"\" did not arrive within 1 s"
                                        : arrival.reason,
                                    {{QStringLiteral("result"), result}}));
    });
}

ControlReply ControlCommands::hide(const QJsonObject& request) {
    const auto named = confirmedShortcut(agent_.viewModel(), request);
    if (const auto* refusal = std::get_if<ControlReply>(&named))
        return *refusal;
    const ShortcutItem& item = std::get<ShortcutItem>(named);
    agent_.jumps().hide(item);
    return ControlReply::success(QJsonObject{{QStringLiteral("item"), item.name}});
}

ControlReply ControlCommands::cycle(CycleDirection direction) {
    agent_.cycler().cycle(direction);
    return ControlReply::success(true);
}

ControlReply ControlCommands::popover(const QJsonObject& request) {
    const QJsonValue target = request.value(u"add");
    if (target.isUndefined()) {
        agent_.shell().togglePopover();
    } else if (const auto added = agent_.shell().addDropped({target.toString()}); !added) {
        return ControlReply::failure(added.failure().detail);
    }
    const bool isShown = agent_.ports().panels.isPopoverShown();
    return ControlReply::success(QJsonObject{
        {QStringLiteral("shown"), isShown},
        {QStringLiteral("screen"), screenName(agent_.shell().route().screen)},
    });
}

ControlReply ControlCommands::switcher(const QJsonObject& request) {
    const platform::Ports& ports = agent_.ports();
    // Where no windows can be seen at all, that is the reason. Asked last: the answer takes time.
    const auto refuse = [&ports](const QString& reason) {
        const platform::Availability windows = ports.accessibility.availability();
        const bool isBlind = windows.state == platform::Availability::State::unavailable;
        return ControlReply::failure(isBlind ? windows.reason % u' ' % windows.remedy : reason);
    };
    if (!agent_.viewModel().config().windowSwitcherOrDefault())
        return ControlReply::failure(
            QStringLiteral("the window switcher is turned off in the settings"));
    std::optional<platform::RunningApplication> app;
    if (request.contains(u"name")) {
        const auto named = confirmedShortcut(agent_.viewModel(), request);
        if (const auto* refusal = std::get_if<ControlReply>(&named))
            return *refusal;
        const ShortcutItem& item = std::get<ShortcutItem>(named);
        app = agent_.jumps().runningTarget(item);
        if (!app)
            return refuse(u"the application of \"" % item.name % u"\" does not run");
    } else {
        app = ports.workspace.frontmostApplication();
        if (!app)
            return refuse(QStringLiteral("no application is in front"));
    }
    if (!agent_.jumps().chooseWindow(*app))
        return refuse(u'"' % app->name % u"\" has no windows or tabs to choose from");
    const auto& shown = agent_.switcher().model().content();
    return ControlReply::success(
        QJsonObject{{QStringLiteral("application"), app->name},
                    {QStringLiteral("windows"), qint64(shown.windows.size())},
                    {QStringLiteral("tabs"), shown.totalTabs}});
}

ControlReply ControlCommands::restore(const QJsonObject& request) {
    const ControlReply reply = restoreVerb(agent_.storage(), request);
    if (reply.done)
        agent_.viewModel().reload();
    return reply;
}

ControlReply ControlCommands::status() const {
    const platform::Ports& ports = agent_.ports();
    const model::StorageState storage = agent_.storage().state();
    QJsonObject configuration{
        {QStringLiteral("path"), ports.app.supportFolder + QStringLiteral("/config.json")},
        {QStringLiteral("state"), stateName(storage.kind)},
    };
    if (storage.movedTo)
        configuration.insert(QStringLiteral("movedTo"), *storage.movedTo);
    if (storage.kind == model::StorageState::Kind::broken)
        configuration.insert(QStringLiteral("reason"), storage.reason);
    if (storage.kind == model::StorageState::Kind::broken || storage.movedTo)
        configuration.insert(QStringLiteral("snapshot"), storage.newestSnapshot
                                                             ? QJsonValue(*storage.newestSnapshot)
                                                             : QJsonValue());
    const platform::Availability hotkeys = ports.hotkeys.availability();
    QJsonObject result{
        {QStringLiteral("pid"), qint64(ports.app.pid.value)},
        {QStringLiteral("version"), ports.app.version},
        {QStringLiteral("session"), backend_.session()},
        {QStringLiteral("config"), configuration},
        {QStringLiteral("shortcuts"), qint64(agent_.viewModel().shortcuts().size())},
        {QStringLiteral("hotkeys"), hotkeysJson(agent_.hotkeys().registered())},
        {QStringLiteral("refused"), refusedJson(agent_.hotkeys().refused())},
        {QStringLiteral("popover"), shownName(ports.panels.isPopoverShown())},
        {QStringLiteral("onboarding"), shownName(ports.panels.isOnboardingShown())},
        {QStringLiteral("timers"), QJsonArray::fromStringList(backend_.runningTimers())},
    };
    if (hotkeys.state != platform::Availability::State::available) {
        result.insert(QStringLiteral("notBound"),
                      QJsonObject{{QStringLiteral("reason"), hotkeys.reason},
                                  {QStringLiteral("remedy"), hotkeys.remedy}});
    }
    if (const auto& last = agent_.jumps().arrivals().last())
        result.insert(QStringLiteral("lastJump"),
                      QJsonObject{{QStringLiteral("arrived"), arrivedJson(last->outcome)},
                                  {QStringLiteral("ms"), milliseconds(last->took)}});
    return ControlReply::success(result);
}

} // namespace skipnest::app
