// SPDX-License-Identifier: Apache-2.0
#include "ui/onboarding/ComboSuggestion.h"

#include "app/AppDelegate.h"
#include "hotkeys/HotkeyPlan.h"
#include "model/ComboRules.h"
#include "platform/HotkeyBackend.h"
#include "platform/KeyboardLayout.h"

#include <QHash>

#include <algorithm>

namespace skipnest::ui {

using model::KeyCombo;
using model::ModifierFlags;
using platform::HotkeyRequest;

namespace {

// The codes of the keys that type characters.
constexpr std::uint16_t lastCharacterKey = 50;
// Asked for in one round trip; with more of them refused, something else is wrong.
constexpr std::size_t mostTried = 12;
// The hotkey manager's own numbers start at 1.
constexpr platform::HotkeyIdentifier trialIdentifier{0};

QHash<QString, std::uint16_t> keysByCharacter(const platform::KeyboardLayout& layout) {
    QHash<QString, std::uint16_t> keys;
    for (std::uint16_t code = 0; code <= lastCharacterKey; ++code)
        if (const auto character = layout.character(code); character && !keys.contains(*character))
            keys.insert(*character, code);
    return keys;
}

} // namespace

std::vector<KeyCombo> comboCandidates(const QString& name, const platform::KeyboardLayout& layout) {
    const auto keys = keysByCharacter(layout);
    std::vector<KeyCombo> candidates;
    const auto add = [&](const QString& character) {
        const auto key = keys.find(character);
        if (key == keys.end())
            return false;
        const KeyCombo combo{*key, ModifierFlags::control | ModifierFlags::option};
        if (std::ranges::find(candidates, combo) == candidates.end())
            candidates.push_back(combo);
        return true;
    };
    for (const QChar c : name.toLower().normalized(QString::NormalizationForm_C)) {
        if (c.isLetterOrNumber() && !add(c))
            add(QString(c).normalized(QString::NormalizationForm_D).first(1));
    }
    for (char16_t c = u'a'; c <= u'z'; ++c)
        add(QChar(c));
    return candidates;
}

std::optional<KeyCombo> suggestedCombo(const QString& name, app::AppDelegate& agent) {
    const platform::Ports& ports = agent.ports();
    auto& list = agent.viewModel();
    const auto plan = hotkeys::planHotkeys(list.shortcuts(), list.config());
    std::vector<KeyCombo> open;
    for (const KeyCombo& combo : comboCandidates(name, ports.keyboardLayout)) {
        const bool isPlanned =
            std::ranges::find(plan, combo, &hotkeys::PlannedHotkey::combo) != plan.end();
        if (!isPlanned && !agent.ledger().desktopShortcut(combo) &&
            !model::refusal(combo, ports.keyboardLayout))
            open.push_back(combo);
    }
    if (open.empty())
        return std::nullopt;
    if (ports.hotkeys.availability().state == platform::Availability::State::unavailable)
        return open.front();

    open.resize(std::min(open.size(), mostTried));
    std::vector<HotkeyRequest> requests;
    for (const KeyCombo& combo : open)
        requests.push_back({trialIdentifier, combo.keyCode, combo.modifiers.carbonModifiers()});
    const auto answers = ports.hotkeys.registerHotkeys(requests);
    const auto granted = std::ranges::find(answers, 0, &platform::HotkeyRegistration::status);
    if (granted == answers.end())
        return std::nullopt;
    return open[static_cast<std::size_t>(granted - answers.begin())];
}

} // namespace skipnest::ui
