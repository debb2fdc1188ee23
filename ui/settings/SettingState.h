// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/settings/SettingsTable.h"

#include <QStringList>

namespace skipnest::app {
class AppDelegate;
}

namespace skipnest::ui {

// A setting as it stands, in the words of the screen.
struct SettingState {
    QString name; // Setting::key
    // "switch", "bar", "pictures", "dropDown", "combo", "text", "terms" or "aliases"
    QString control;
    QString title;
    QString description;
    QString defaultText; // "Default: on"; empty for lists
    QString note;        // why it has little or no effect on this machine
    bool isOn = false;
    QStringList options;
    QStringList symbols; // one an option, for "pictures"
    int current = -1;    // index of the option in force; -1 where none of them is
    QStringList comboKeys;
    QString text;          // of a "text"
    QString example;       // shown in its place while it is empty
    bool canReset = false; // the person chose a value

    [[nodiscard]] const QString& key() const { return name; }
    // Whether every one of these words stands somewhere in it.
    [[nodiscard]] bool matches(const QStringList& words) const;
    bool operator==(const SettingState&) const = default;
};

[[nodiscard]] SettingState settingState(const Setting& setting, app::AppDelegate& agent);

// Each writes the document or the user defaults. What does not fit the setting changes nothing.
void switchSetting(const Setting& setting, bool on, app::AppDelegate& agent);
void chooseSetting(const Setting& setting, int option, app::AppDelegate& agent);
void setTextSetting(const Setting& setting, const QString& text, app::AppDelegate& agent);
void setComboSetting(const Setting& setting, const model::KeyCombo& combo, app::AppDelegate& agent);
// Back to the default, by taking the value out of the document.
void resetSetting(const Setting& setting, app::AppDelegate& agent);

} // namespace skipnest::ui
