// SPDX-License-Identifier: Apache-2.0
#include "hotkeys/HotkeyManager.h"

#include <QStringBuilder>

#include <limits>
#include <utility>

namespace skipnest::hotkeys {

using model::KeyCombo;
using platform::Availability;
using platform::HotkeyHandling;
using platform::HotkeyIdentifier;

namespace {

using namespace std::chrono_literals;

// How often a combo that another program holds is tried again. Long enough for the agent to count
// as idle, short enough that nobody restarts it by hand first.
constexpr platform::Duration retryPeriod = 20s;

} // namespace

HotkeyManager::HotkeyManager(platform::HotkeyBackend& backend,
                             const platform::KeyboardLayout& layout,
                             platform::Diagnostics& diagnostics, platform::Scheduler& scheduler)
    : backend_(backend), layout_(layout), diagnostics_(diagnostics), scheduler_(scheduler) {}

HotkeyManager::~HotkeyManager() {
    if (handlerInstalled_)
        (void)backend_.installHandler(nullptr);
}

void HotkeyManager::installHandler() {
    if (handlerInstalled_)
        return;
    const std::int32_t status = backend_.installHandler(this);
    handlerInstalled_ = status == 0;
    if (!handlerInstalled_)
        diagnostics_.print(
            QStringLiteral("[Skipnest] Failed to install hotkey event handler (status %1).")
                .arg(status));
}

std::uint32_t HotkeyManager::takeIdentifier() {
    if (nextHotKeyID_ == std::numeric_limits<std::uint32_t>::max())
        qFatal("hotkey identifiers are used up");
    return nextHotKeyID_++;
}

void HotkeyManager::registerHotkey(const PlannedHotkey& hotkey, Action action) {
    installHandler();
    unregister(hotkey.combo);
    std::vector<Pending> batch;
    batch.push_back({takeIdentifier(), hotkey, std::move(action)});
    registerBatch(std::move(batch));
}

void HotkeyManager::unregister(const KeyCombo& combo) {
    const auto isCombo = [&combo](const auto& entry) { return entry.second.hotkey.combo == combo; };
    std::erase_if(registrations_, isCombo);
    std::erase_if(refused_, isCombo);
    if (refused_.empty())
        retryTimer_.reset();
}

void HotkeyManager::unregisterAll() {
    registrations_.clear();
    refused_.clear();
    retryTimer_.reset();
}

void HotkeyManager::registerAll(const std::vector<model::ShortcutItem>& items,
                                const model::AppConfiguration& configuration,
                                const HotkeyActions& actions) {
    unregisterAll();
    if (const Availability can = backend_.availability();
        can.state == Availability::State::unavailable) {
        diagnostics_.log(QStringLiteral("hotkeys: none bound, %1").arg(can.reason));
        return;
    }
    installHandler();
    const auto actionOf = [&actions](const PlannedHotkey& hotkey) -> Action {
        switch (hotkey.action) {
        case HotkeyAction::jump:
            return [jump = actions.onJump, item = *hotkey.item] { jump(item); };
        case HotkeyAction::hide:
            return [hide = actions.onHide, item = *hotkey.item] { hide(item); };
        case HotkeyAction::nextWindow:
            return actions.onNextWindow;
        case HotkeyAction::previousWindow:
            return actions.onPreviousWindow;
        case HotkeyAction::voice:
            return actions.onVoice;
        }
        Q_UNREACHABLE();
    };
    // All in one batch, which the backend answers in one round trip. Only a combo that stands twice
    // needs the earlier one to be registered, and gone again, first.
    std::vector<Pending> batch;
    for (PlannedHotkey& hotkey : planHotkeys(items, configuration)) {
        const bool isRepeated = std::ranges::any_of(batch, [&hotkey](const Pending& earlier) {
            return earlier.hotkey.combo == hotkey.combo;
        });
        if (isRepeated)
            registerBatch(std::exchange(batch, {}));
        unregister(hotkey.combo);
        Action action = actionOf(hotkey);
        batch.push_back({takeIdentifier(), std::move(hotkey), std::move(action)});
    }
    registerBatch(std::move(batch));
}

void HotkeyManager::registerBatch(std::vector<Pending> batch) {
    if (batch.empty())
        return;
    std::vector<platform::HotkeyRequest> requests;
    requests.reserve(batch.size());
    for (const Pending& pending : batch) {
        const KeyCombo& combo = pending.hotkey.combo;
        requests.push_back({{pending.id}, combo.keyCode, combo.modifiers.carbonModifiers()});
    }
    std::vector<platform::HotkeyRegistration> answers = backend_.registerHotkeys(requests);
    Q_ASSERT(answers.size() == batch.size());
    for (std::size_t i = 0; i < batch.size(); ++i) {
        Pending& pending = batch[i];
        const KeyCombo& combo = pending.hotkey.combo;
        const QString comboWords = words(combo, layout_);
        const std::int32_t status = answers[i].status;
        if (status == 0 && answers[i].grab) {
            diagnostics_.log(u"hotkey registered " % comboWords);
            registrations_[pending.id] = {std::move(pending.hotkey), std::move(pending.action),
                                          std::move(answers[i].grab)};
            continue;
        }
        diagnostics_.log(QStringLiteral("hotkey REGISTER FAILED %1 mods=%2 key=%3 status=%4")
                             .arg(comboWords)
                             .arg(combo.modifiers.carbonModifiers())
                             .arg(combo.keyCode)
                             .arg(status));
        diagnostics_.print(QStringLiteral("[Skipnest] Failed to register hotkey %1 (status %2).")
                               .arg(comboWords)
                               .arg(status));
        refused_[pending.id] = {std::move(pending.hotkey), std::move(pending.action), status};
    }
    if (!refused_.empty() && !retryTimer_)
        retryTimer_ = scheduler_.every(retryPeriod, "refused hotkeys", [this] { retryRefused(); });
}

void HotkeyManager::retryRefused() {
    std::vector<platform::HotkeyRequest> requests;
    for (const auto& [id, refusal] : refused_) {
        const KeyCombo& combo = refusal.hotkey.combo;
        requests.push_back({{id}, combo.keyCode, combo.modifiers.carbonModifiers()});
    }
    std::vector<platform::HotkeyRegistration> answers = backend_.registerHotkeys(requests);
    for (std::size_t i = 0; i < requests.size(); ++i) {
        const auto refusal = refused_.find(requests[i].id.value);
        refusal->second.status = answers[i].status;
        if (answers[i].status != 0 || !answers[i].grab)
            continue;
        diagnostics_.log(u"hotkey registered " % words(refusal->second.hotkey.combo, layout_));
        registrations_[refusal->first] = {std::move(refusal->second.hotkey),
                                          std::move(refusal->second.action),
                                          std::move(answers[i].grab)};
        refused_.erase(refusal);
    }
    if (refused_.empty())
        retryTimer_.reset();
}

void HotkeyManager::refusedHotkeysMayBeFree() {
    if (!refused_.empty())
        retryRefused();
}

HotkeyHandling HotkeyManager::hotkeyPressed(HotkeyIdentifier id, platform::Instant time) {
    const auto found = registrations_.find(id.value);
    if (found == registrations_.end())
        return HotkeyHandling::notHandled;
    // A copy: the action may rebuild all registrations, its own included.
    const Action action = found->second.action;
    presses_.notify(found->second.hotkey, time);
    pressTime_ = time;
    action();
    pressTime_.reset();
    return HotkeyHandling::handled;
}

std::vector<HotkeyManager::Entry> HotkeyManager::registered() const {
    std::vector<Entry> entries;
    for (const auto& [id, registration] : registrations_)
        entries.push_back({id, registration.hotkey, 0});
    return entries;
}

std::vector<HotkeyManager::Entry> HotkeyManager::refused() const {
    std::vector<Entry> entries;
    for (const auto& [id, refusal] : refused_)
        entries.push_back({id, refusal.hotkey, refusal.status});
    return entries;
}

} // namespace skipnest::hotkeys
