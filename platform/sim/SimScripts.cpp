// SPDX-License-Identifier: Apache-2.0
#include "platform/sim/SimScripts.h"

#include "platform/AppleScript.h"

#include <algorithm>

namespace skipnest::sim {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using platform::CycleDirection;
using platform::Duration;
using platform::Instant;
using platform::ScriptAnswer;
using platform::ScriptBudgetExceeded;
using platform::ScriptError;
using platform::ScriptText;

namespace {

// When the timeout around a script ends it.
constexpr Duration scriptTimeout = 4s;

QString receiverOf(const platform::ScriptRequest& request) {
    return std::visit([](const auto& meaning) { return meaning.bundleIdentifier; },
                      request.meaning);
}

} // namespace

SimScripts::SimScripts(VirtualScheduler& scheduler, Journal& journal, SimApplications& apps)
    : scheduler_(scheduler), journal_(journal), apps_(apps) {}

void SimScripts::setAnswer(const QString& receiver, const ScriptAnswer& answer) {
    answers_.insert_or_assign(receiver, answer);
}

void SimScripts::setTabs(const QString& bundleIdentifier, const SimTabs& tabs) {
    tabs_.insert_or_assign(bundleIdentifier, tabs);
}

ScriptAnswer SimScripts::run(const platform::ScriptRequest& request, Duration budget) {
    const QString receiver = receiverOf(request);
    journal_.call(
        u"script"_s,
        {{u"to"_s, receiver}, {u"source"_s, platform::withoutAppleScriptTimeout(request.source)}});
    if (const auto* meaning = std::get_if<platform::CycleWindows>(&request.meaning))
        return cycle(*meaning, budget);

    const SimTabs tabs = tabsOf(receiver);
    const bool listingAnswers = std::holds_alternative<ScriptText>(tabs.listing);
    const auto hangs = [](const ScriptAnswer& answer) {
        return std::holds_alternative<ScriptBudgetExceeded>(answer);
    };
    ScriptAnswer answer = tabs.listing;
    if (std::holds_alternative<platform::RelocateTab>(request.meaning)) {
        using Relocation = SimTabs::Relocation;
        if (tabs.relocation == Relocation::hang)
            answer = ScriptBudgetExceeded{};
        else if (tabs.relocation || listingAnswers)
            answer = ScriptText{tabs.relocation == Relocation::missed ? u"0"_s : u"1"_s};
    } else if (std::holds_alternative<platform::ActivateTab>(request.meaning)) {
        if (tabs.activation == SimTabs::Activation::fail)
            answer = ScriptError{noSuchWindow, u"Invalid index."_s};
        else if (tabs.activation || listingAnswers)
            answer = ScriptText{};
    }
    const Duration takes = hangs(answer) ? scriptTimeout : std::min(tabs.after, scriptTimeout);
    const ScriptAnswer got = queue({answer, takes}, budget);
    const auto* text = std::get_if<ScriptText>(&got);
    if (text != nullptr && text->text != u"0" &&
        !std::holds_alternative<platform::EnumerateTabs>(request.meaning))
        bringToFront(receiver);
    return got;
}

// One script after the other: each waits for those that nobody waits for any more. An answer on the
// very deadline comes too late.
ScriptAnswer SimScripts::queue(const Queued& script, Duration budget) {
    const Instant asked = scheduler_.now();
    queueIsFree_ = std::max(asked, queueIsFree_) + script.takes;
    const Duration waited = queueIsFree_ - asked;
    if (waited >= budget) {
        scheduler_.block(budget);
        return ScriptBudgetExceeded{};
    }
    scheduler_.block(waited);
    return script.answer;
}

SimTabs SimScripts::tabsOf(const QString& bundleIdentifier) const {
    if (const auto told = tabs_.find(bundleIdentifier); told != tabs_.end())
        return told->second;
    const auto apps = apps_.runningApplications();
    if (std::ranges::find(apps, bundleIdentifier,
                          &platform::RunningApplication::bundleIdentifier) == apps.end())
        return {.listing = ScriptError{notRunning, u"Application isn’t running."_s}};
    return {.relocation = SimTabs::Relocation::missed, .activation = SimTabs::Activation::fail};
}

void SimScripts::bringToFront(const QString& bundleIdentifier) {
    const auto apps = apps_.runningApplications();
    const auto browser =
        std::ranges::find(apps, bundleIdentifier, &platform::RunningApplication::bundleIdentifier);
    if (browser != apps.end())
        (void)apps_.bringToFront(browser->name);
}

ScriptAnswer SimScripts::cycle(const platform::CycleWindows& meaning, Duration budget) {
    const auto told = answers_.find(meaning.bundleIdentifier);
    if (told == answers_.end())
        return carryOut(meaning);
    if (std::holds_alternative<ScriptBudgetExceeded>(told->second))
        scheduler_.block(budget);
    return told->second;
}

ScriptAnswer SimScripts::carryOut(const platform::CycleWindows& meaning) {
    const auto apps = apps_.runningApplications();
    const bool runs = std::ranges::any_of(apps, [&meaning](const auto& app) {
        return app.bundleIdentifier == meaning.bundleIdentifier;
    });
    if (!runs)
        return ScriptError{notRunning, u"Application isn’t running."_s};
    const bool done = meaning.direction == CycleDirection::next
                          ? apps_.minimizeNext(meaning.bundleIdentifier)
                          : apps_.restorePrevious(meaning.bundleIdentifier);
    if (!done)
        return ScriptError{noSuchWindow, u"Invalid index."_s};
    return ScriptText{};
}

} // namespace skipnest::sim
