// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/AppConfiguration.h"
#include "platform/AppInfo.h"
#include "platform/Availability.h"
#include "platform/Ports.h"

#include <QString>

#include <optional>
#include <span>
#include <variant>
#include <vector>

namespace skipnest::app {
class AppDelegate;
}

namespace skipnest::ui {

enum class SettingSection { general, shortcuts, switcher, capture, voice, privacy };

struct SettingSectionInfo {
    // Settings of a feature that is still to come are shown and stored all the same: a document may
    // come from a program that has it.
    enum class Feature { here, toCome };
    SettingSection section = SettingSection::general;
    const char* title = nullptr; // translated in the context "Settings", as all texts here
    Feature feature = Feature::here;
};

// On or off. `stored` is nothing while the default applies.
struct SwitchSetting {
    bool (*value)(const model::AppConfiguration&);
    bool (*stored)(const model::AppConfiguration&);
    void (*store)(model::AppConfiguration&, std::optional<bool>);
};

// On or off, in the user defaults under the setting's key.
struct DefaultsSwitch {
    bool (*whenAbsent)(const platform::AppInfo&);
    // Whoever acts on the person's answer at once and keeps it; null where nobody does.
    void (*answer)(app::AppDelegate&, bool on) = nullptr;
};

// A line of text, in the user defaults under the setting's key; an empty one leaves them.
struct DefaultsText {
    enum class Form {
        line,
        paths, // kept as an array, typed with ":" between them
    };
    const char* example = nullptr; // shown while it is empty; not translated
    Form form = Form::line;
};

// One of a few numbers, in the user defaults under the setting's key.
struct DefaultsNumber {
    std::span<const double> options;
    double whenAbsent;
    QString (*title)(double);
};

struct SettingOption {
    QString raw;
    QString title;
    QString symbol; // a drawing, where options are chosen by their looks
};

// One of several.
struct ChoiceSetting {
    enum class Look { bar, pictures, dropDown };
    Look look = Look::bar;
    std::vector<SettingOption> (*options)(const model::AppConfiguration&, platform::ModifierStyle);
    QString (*value)(const model::AppConfiguration&);
    bool (*stored)(const model::AppConfiguration&);
    void (*store)(model::AppConfiguration&, const std::optional<QString>& raw);
};

struct ComboSetting {
    model::KeyCombo (model::AppConfiguration::*value)() const;
    std::optional<model::KeyCombo> model::AppConfiguration::*stored;
};

// Lists that are edited word by word.
struct TermsSetting {};
struct AliasesSetting {};

using SettingBinding = std::variant<SwitchSetting, DefaultsSwitch, DefaultsText, DefaultsNumber,
                                    ChoiceSetting, ComboSetting, TermsSetting, AliasesSetting>;

struct Setting {
    const char* key = nullptr; // in the configuration document, or in the user defaults ("sk.…")
    SettingSection section = SettingSection::general;
    const char* title = nullptr;
    const char* description = nullptr; // one sentence
    SettingBinding binding;
    // What of this machine it depends on; null for nothing.
    platform::Availability (*needs)(const platform::Ports&) = nullptr;
};

// In the order in which they are shown.
[[nodiscard]] std::span<const SettingSectionInfo> settingSections();
[[nodiscard]] std::span<const Setting> settings();
// Null where no setting has this key.
[[nodiscard]] const Setting* findSetting(const QString& key);

} // namespace skipnest::ui
