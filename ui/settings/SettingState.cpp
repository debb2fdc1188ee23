// SPDX-License-Identifier: Apache-2.0
#include "ui/settings/SettingState.h"

#include "app/AppDelegate.h"
#include "platform/Diagnostics.h"
#include "platform/UserDefaults.h"
#include "ui/ComboWording.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonValue>
#include <QStringBuilder>

#include <algorithm>

namespace skipnest::ui {

using model::AppConfiguration;
using platform::Availability;

namespace {

constexpr QChar pathSeparator = u':';

QString text(const char* source) {
    return QCoreApplication::translate("Settings", source);
}

QString defaultOf(const QString& value) {
    return QCoreApplication::translate("Settings", "Default: %1").arg(value);
}

QString onOrOff(bool on) {
    return on ? QCoreApplication::translate("Settings", "on")
              : QCoreApplication::translate("Settings", "off");
}

int indexOf(const std::vector<SettingOption>& options, const QString& raw) {
    const auto found = std::ranges::find(options, raw, &SettingOption::raw);
    return found == options.end() ? -1 : static_cast<int>(found - options.begin());
}

platform::ModifierStyle styleFor(app::AppDelegate& agent) {
    return modifierStyle(agent.ports().app, agent.ports().defaults);
}

bool hasOwner(const Setting& setting) {
    const auto* onOff = std::get_if<DefaultsSwitch>(&setting.binding);
    return onOff != nullptr && onOff->answer != nullptr;
}

// Who shows settings hears of these where it hears of those in the document.
void setDefault(const Setting& setting, const QJsonValue& value, app::AppDelegate& agent) {
    const QString key = QString::fromLatin1(setting.key);
    if (const auto stored = agent.ports().defaults.setValue(key, value); !stored)
        agent.ports().diagnostics.log(u"settings: " % key % u" holds until the end of this run, " %
                                      stored.failure().detail);
    Q_EMIT agent.viewModel().settingsChanged();
}

// Fills in what the kind of setting knows.
struct Reading {
    SettingState& state;
    app::AppDelegate& agent;
    const AppConfiguration& config = agent.viewModel().config();

    void operator()(const SwitchSetting& setting) const {
        state.control = QStringLiteral("switch");
        state.isOn = setting.value(config);
        state.canReset = setting.stored(config);
        state.defaultText = defaultOf(onOrOff(setting.value(AppConfiguration())));
    }
    void operator()(const DefaultsSwitch& setting) const {
        const QJsonValue stored = agent.ports().defaults.value(state.name);
        const bool whenAbsent = setting.whenAbsent(agent.ports().app);
        state.control = QStringLiteral("switch");
        state.isOn = stored.toBool(whenAbsent);
        state.canReset = !stored.isUndefined();
        state.defaultText = defaultOf(onOrOff(whenAbsent));
    }
    void operator()(const DefaultsText& setting) const {
        const QJsonValue stored = agent.ports().defaults.value(state.name);
        state.control = QStringLiteral("text");
        state.text = setting.form == DefaultsText::Form::paths
                         ? stored.toVariant().toStringList().join(pathSeparator)
                         : stored.toString();
        state.example = QString::fromLatin1(setting.example);
    }
    void operator()(const DefaultsNumber& setting) const {
        const QJsonValue stored = agent.ports().defaults.value(state.name);
        state.control = QStringLiteral("bar");
        for (const double option : setting.options)
            state.options.append(setting.title(option));
        const auto found = std::ranges::find(setting.options, stored.toDouble(setting.whenAbsent));
        if (found != setting.options.end())
            state.current = static_cast<int>(found - setting.options.begin());
        state.canReset = !stored.isUndefined();
        state.defaultText = defaultOf(setting.title(setting.whenAbsent));
    }
    void operator()(const ChoiceSetting& setting) const {
        switch (setting.look) {
        case ChoiceSetting::Look::bar:
            state.control = QStringLiteral("bar");
            break;
        case ChoiceSetting::Look::pictures:
            state.control = QStringLiteral("pictures");
            break;
        case ChoiceSetting::Look::dropDown:
            state.control = QStringLiteral("dropDown");
            break;
        }
        const auto options = setting.options(config, styleFor(agent));
        for (const SettingOption& option : options) {
            state.options.append(option.title);
            state.symbols.append(option.symbol);
        }
        state.current = indexOf(options, setting.value(config));
        state.canReset = setting.stored(config);
        const int whenAbsent = indexOf(options, setting.value(AppConfiguration()));
        state.defaultText = defaultOf(state.options.value(whenAbsent));
    }
    void operator()(const ComboSetting& setting) const {
        const auto& layout = agent.ports().keyboardLayout;
        state.control = QStringLiteral("combo");
        state.comboKeys = comboKeys((config.*setting.value)(), layout, styleFor(agent));
        state.canReset = (config.*setting.stored).has_value();
        state.defaultText =
            defaultOf(comboText((AppConfiguration().*setting.value)(), layout, styleFor(agent)));
    }
    void operator()(const TermsSetting&) const { state.control = QStringLiteral("terms"); }
    void operator()(const AliasesSetting&) const { state.control = QStringLiteral("aliases"); }
};

} // namespace

bool SettingState::matches(const QStringList& words) const {
    const QString all =
        title % u' ' % description % u' ' % name % u' ' % options.join(u' ') % u' ' % note;
    return std::ranges::all_of(
        words, [&all](const QString& word) { return all.contains(word, Qt::CaseInsensitive); });
}

SettingState settingState(const Setting& setting, app::AppDelegate& agent) {
    SettingState state;
    state.name = QString::fromLatin1(setting.key);
    state.title = text(setting.title);
    state.description = text(setting.description);
    std::visit(Reading{state, agent}, setting.binding);
    if (setting.needs != nullptr) {
        const Availability needed = setting.needs(agent.ports());
        if (needed.state != Availability::State::available)
            state.note = QString(needed.reason % u' ' % needed.remedy).trimmed();
    }
    return state;
}

void switchSetting(const Setting& setting, bool on, app::AppDelegate& agent) {
    if (const auto* config = std::get_if<SwitchSetting>(&setting.binding))
        agent.viewModel().changeSettings([&](AppConfiguration& c) { config->store(c, on); });
    else if (hasOwner(setting)) {
        std::get<DefaultsSwitch>(setting.binding).answer(agent, on);
        Q_EMIT agent.viewModel().settingsChanged();
    } else if (std::holds_alternative<DefaultsSwitch>(setting.binding))
        setDefault(setting, on, agent);
}

void chooseSetting(const Setting& setting, int option, app::AppDelegate& agent) {
    if (const auto* number = std::get_if<DefaultsNumber>(&setting.binding)) {
        if (option >= 0 && option < std::ssize(number->options))
            setDefault(setting, number->options[static_cast<std::size_t>(option)], agent);
        return;
    }
    const auto* choice = std::get_if<ChoiceSetting>(&setting.binding);
    if (choice == nullptr)
        return;
    const auto options = choice->options(agent.viewModel().config(), styleFor(agent));
    if (option < 0 || option >= std::ssize(options))
        return;
    const QString raw = options[static_cast<std::size_t>(option)].raw;
    agent.viewModel().changeSettings([&](AppConfiguration& c) { choice->store(c, raw); });
}

void setTextSetting(const Setting& setting, const QString& text, app::AppDelegate& agent) {
    const auto* binding = std::get_if<DefaultsText>(&setting.binding);
    if (binding == nullptr)
        return;
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty())
        return setDefault(setting, QJsonValue::Undefined, agent);
    if (binding->form == DefaultsText::Form::line)
        return setDefault(setting, trimmed, agent);
    setDefault(setting,
               QJsonArray::fromStringList(trimmed.split(pathSeparator, Qt::SkipEmptyParts)), agent);
}

void setComboSetting(const Setting& setting, const model::KeyCombo& combo,
                     app::AppDelegate& agent) {
    if (const auto* binding = std::get_if<ComboSetting>(&setting.binding))
        agent.viewModel().changeSettings([&](AppConfiguration& c) { c.*binding->stored = combo; });
}

void resetSetting(const Setting& setting, app::AppDelegate& agent) {
    if (const auto* onOff = std::get_if<DefaultsSwitch>(&setting.binding);
        onOff != nullptr && hasOwner(setting))
        onOff->answer(agent, onOff->whenAbsent(agent.ports().app));
    if (std::holds_alternative<DefaultsSwitch>(setting.binding) ||
        std::holds_alternative<DefaultsText>(setting.binding) ||
        std::holds_alternative<DefaultsNumber>(setting.binding))
        return setDefault(setting, QJsonValue::Undefined, agent);
    agent.viewModel().changeSettings([&setting](AppConfiguration& c) {
        if (const auto* onOff = std::get_if<SwitchSetting>(&setting.binding))
            onOff->store(c, std::nullopt);
        else if (const auto* choice = std::get_if<ChoiceSetting>(&setting.binding))
            choice->store(c, std::nullopt);
        else if (const auto* combo = std::get_if<ComboSetting>(&setting.binding))
            (c.*combo->stored).reset();
    });
}

} // namespace skipnest::ui
