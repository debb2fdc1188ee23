// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/KeyCombo.h"
#include "model/ShortcutItem.h"

#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>
#include <vector>

namespace skipnest::model {

enum class Theme { light, dark, brand };

// The one persisted document; an export file is the same. Four keys are always there. Every other
// one may be absent, and absent means the default, so that defaults can change without rewriting
// files: read those through the ...OrDefault functions, and set a field only because the person
// chose it.
struct AppConfiguration {
    std::int64_t version = 1;
    std::vector<ShortcutItem> shortcuts;
    bool launchAtLogin = false;
    QString menuBarIconName = QStringLiteral("skipnest");

    std::optional<bool> shiftToHide;
    std::optional<std::uint32_t> hideModifierRaw;
    std::optional<bool> windowCycling;
    std::optional<KeyCombo> nextWindowCombo;
    std::optional<KeyCombo> prevWindowCombo;
    std::optional<QString> themeRaw;
    std::optional<bool> didOnboard;
    std::optional<std::int64_t> seenOnboardingVersion;
    std::optional<bool> crashReports;
    std::optional<bool> preciseWindowSwitching;
    std::optional<bool> windowSwitcher;
    std::optional<bool> quickCapture;
    std::optional<bool> browserTabSwitching;
    std::optional<bool> voiceSearch;
    std::optional<KeyCombo> voiceCombo;
    std::optional<QString> voiceLanguage;
    std::optional<QStringList> vocabularyTerms;
    std::optional<std::vector<VocabAlias>> vocabularyAliases;
    std::optional<bool> voiceCleanup;
    std::optional<QString> voiceTrigger;

    // As in ShortcutItem.
    QJsonObject unknownKeys;
    QJsonObject unknownComboKeys;

    // Every shortcut gets a derived hide combo.
    [[nodiscard]] bool shiftToHideOrDefault() const { return shiftToHide.value_or(true); }
    [[nodiscard]] ModifierFlags hideModifierOrDefault() const {
        return {hideModifierRaw.value_or(ModifierFlags::shift.rawValue)};
    }
    [[nodiscard]] bool windowCyclingOrDefault() const { return windowCycling.value_or(false); }
    // ⌃⌥→
    [[nodiscard]] KeyCombo nextWindowComboOrDefault() const {
        return nextWindowCombo.value_or(
            KeyCombo{124, ModifierFlags::control | ModifierFlags::option});
    }
    // ⌃⌥←
    [[nodiscard]] KeyCombo prevWindowComboOrDefault() const {
        return prevWindowCombo.value_or(
            KeyCombo{123, ModifierFlags::control | ModifierFlags::option});
    }
    // An unknown name is the brand theme too; the name itself is kept.
    [[nodiscard]] Theme themeOrDefault() const;
    // Reports are sent only after the person agreed.
    [[nodiscard]] bool crashReportsOrDefault() const { return crashReports.value_or(false); }
    [[nodiscard]] bool preciseWindowSwitchingOrDefault() const {
        return preciseWindowSwitching.value_or(false);
    }
    // Pressing the shortcut of the application in front opens the switcher.
    [[nodiscard]] bool windowSwitcherOrDefault() const { return windowSwitcher.value_or(true); }
    [[nodiscard]] bool quickCaptureOrDefault() const { return quickCapture.value_or(true); }
    [[nodiscard]] bool browserTabSwitchingOrDefault() const {
        return browserTabSwitching.value_or(true);
    }
    [[nodiscard]] bool voiceSearchOrDefault() const { return voiceSearch.value_or(true); }
    // ⌃⌥V
    [[nodiscard]] KeyCombo voiceComboOrDefault() const {
        return voiceCombo.value_or(KeyCombo{9, ModifierFlags::control | ModifierFlags::option});
    }
    // A locale such as "de-DE"; empty: the person's own language, with English beside it.
    [[nodiscard]] QString voiceLanguageOrDefault() const {
        return voiceLanguage.value_or(QString());
    }
    [[nodiscard]] bool voiceCleanupOrDefault() const { return voiceCleanup.value_or(false); }
    // "command", "option", "shift" or "off"; any other text counts as "command".
    [[nodiscard]] QString voiceTriggerOrDefault() const {
        return voiceTrigger.value_or(QStringLiteral("command"));
    }

    bool operator==(const AppConfiguration&) const = default;
};

// "light", "dark", "brand".
[[nodiscard]] QString themeName(Theme theme);

} // namespace skipnest::model
