// SPDX-License-Identifier: Apache-2.0
#include "ui/settings/SettingsTable.h"

#include "app/AppDelegate.h"
#include "platform/Accessibility.h"
#include "platform/DesktopShortcuts.h"
#include "platform/HotkeyBackend.h"
#include "platform/LanguageModel.h"
#include "platform/LanguageModelSettings.h"
#include "platform/LoginItem.h"
#include "platform/MenuBarIcons.h"
#include "platform/ScreenCapture.h"
#include "platform/ScriptRunner.h"
#include "platform/StatusItem.h"
#include "ui/ComboWording.h"

#include <QCoreApplication>
#include <QLocale>
#include <QStringBuilder>

#include <algorithm>
#include <array>

namespace skipnest::ui {

using model::AppConfiguration;
using model::ModifierFlags;
using platform::ModifierStyle;
using platform::Ports;

namespace {

// A switch behind an optional field and the function that knows its default.
template <auto field, auto value> constexpr SwitchSetting optionalSwitch() {
    return {[](const AppConfiguration& c) { return (c.*value)(); },
            [](const AppConfiguration& c) { return (c.*field).has_value(); },
            [](AppConfiguration& c, std::optional<bool> on) { c.*field = on; }};
}

constexpr SwitchSetting launchAtLogin{
    [](const AppConfiguration& c) { return c.launchAtLogin; },
    [](const AppConfiguration& c) { return c.launchAtLogin != AppConfiguration().launchAtLogin; },
    [](AppConfiguration& c, std::optional<bool> on) {
        c.launchAtLogin = on.value_or(AppConfiguration().launchAtLogin);
    }};

constexpr ChoiceSetting menuBarIcon{
    ChoiceSetting::Look::pictures,
    [](const AppConfiguration&, ModifierStyle) {
        std::vector<SettingOption> options;
        for (const platform::MenuBarIcon& icon : platform::menuBarIcons)
            options.push_back({QString::fromLatin1(icon.name),
                               QCoreApplication::translate("MenuBarIcons", icon.title),
                               u"menubar-" % QString::fromLatin1(icon.name)});
        return options;
    },
    [](const AppConfiguration& c) { return c.menuBarIconName; },
    [](const AppConfiguration& c) {
        return c.menuBarIconName != AppConfiguration().menuBarIconName;
    },
    [](AppConfiguration& c, const std::optional<QString>& raw) {
        c.menuBarIconName = raw.value_or(AppConfiguration().menuBarIconName);
    }};

constexpr ChoiceSetting theme{
    ChoiceSetting::Look::bar,
    [](const AppConfiguration&, ModifierStyle) {
        return std::vector<SettingOption>{{model::themeName(model::Theme::light),
                                           QCoreApplication::translate("Settings", "Light"),
                                           {}},
                                          {model::themeName(model::Theme::dark),
                                           QCoreApplication::translate("Settings", "Dark"),
                                           {}},
                                          {model::themeName(model::Theme::brand),
                                           QCoreApplication::translate("Settings", "Skipnest"),
                                           {}}};
    },
    [](const AppConfiguration& c) { return model::themeName(c.themeOrDefault()); },
    [](const AppConfiguration& c) { return c.themeRaw.has_value(); },
    [](AppConfiguration& c, const std::optional<QString>& raw) { c.themeRaw = raw; }};

// A file may hold a set of several, or none of the four: then none is shown as chosen.
constexpr ChoiceSetting hideModifier{
    ChoiceSetting::Look::bar,
    [](const AppConfiguration&, ModifierStyle style) {
        std::vector<SettingOption> options;
        for (const ModifierFlags flag : {ModifierFlags::control, ModifierFlags::option,
                                         ModifierFlags::shift, ModifierFlags::command})
            options.push_back(
                {QString::number(flag.rawValue), modifierKeys(flag, style).value(0), {}});
        return options;
    },
    [](const AppConfiguration& c) { return QString::number(c.hideModifierOrDefault().rawValue); },
    [](const AppConfiguration& c) { return c.hideModifierRaw.has_value(); },
    [](AppConfiguration& c, const std::optional<QString>& raw) {
        c.hideModifierRaw = raw ? std::optional(raw->toUInt()) : std::nullopt;
    }};

constexpr ChoiceSetting voiceTrigger{
    ChoiceSetting::Look::bar,
    [](const AppConfiguration&, ModifierStyle style) {
        return std::vector<SettingOption>{
            {QStringLiteral("command"), modifierKeys(ModifierFlags::command, style).value(0), {}},
            {QStringLiteral("option"), modifierKeys(ModifierFlags::option, style).value(0), {}},
            {QStringLiteral("shift"), modifierKeys(ModifierFlags::shift, style).value(0), {}},
            {QStringLiteral("off"), QCoreApplication::translate("Settings", "Off"), {}}};
    },
    [](const AppConfiguration& c) {
        const QString raw = c.voiceTriggerOrDefault();
        const bool known = raw == u"option" || raw == u"shift" || raw == u"off";
        return known ? raw : QStringLiteral("command");
    },
    [](const AppConfiguration& c) { return c.voiceTrigger.has_value(); },
    [](AppConfiguration& c, const std::optional<QString>& raw) { c.voiceTrigger = raw; }};

QString languageTitle(const QString& identifier) {
    if (identifier.isEmpty())
        return QCoreApplication::translate("Settings", "Automatic (your language + English)");
    const QLocale locale(identifier);
    // Nothing that this system knows by that name.
    if (locale == QLocale::c())
        return identifier;
    QString language = locale.nativeLanguageName();
    language.replace(0, 1, locale.toUpper(language.left(1)));
    return language % u" (" % locale.nativeTerritoryName() % u")";
}

constexpr ChoiceSetting voiceLanguage{
    ChoiceSetting::Look::dropDown,
    [](const AppConfiguration& c, ModifierStyle) {
        QStringList identifiers{QString()};
        for (const char* each : {"de-DE", "en-GB", "en-US", "es-ES", "fr-FR", "it-IT", "nl-NL",
                                 "pl-PL", "pt-BR", "pt-PT", "sv-SE", "tr-TR", "uk-UA"})
            identifiers.append(QString::fromLatin1(each));
        if (!identifiers.contains(c.voiceLanguageOrDefault()))
            identifiers.append(c.voiceLanguageOrDefault());
        std::vector<SettingOption> options;
        for (const QString& identifier : identifiers)
            options.push_back({identifier, languageTitle(identifier), {}});
        return options;
    },
    [](const AppConfiguration& c) { return c.voiceLanguageOrDefault(); },
    [](const AppConfiguration& c) { return c.voiceLanguage.has_value(); },
    [](AppConfiguration& c, const std::optional<QString>& raw) { c.voiceLanguage = raw; }};

constexpr DefaultsSwitch comboGlyphs{
    [](const platform::AppInfo& app) { return app.modifierStyle == ModifierStyle::glyphs; }};

constexpr DefaultsSwitch windowPreviews{
    [](const platform::AppInfo&) { return true; },
    [](app::AppDelegate& agent, bool on) { agent.setWindowPreviews(on); }};

using ModelSettings = platform::LanguageModelSettings;

constexpr double inSeconds(platform::Duration duration) {
    return std::chrono::duration<double>(duration).count();
}

constexpr std::array deadlines{inSeconds(ModelSettings::shortestDeadline),
                               1.0,
                               inSeconds(ModelSettings::usualDeadline),
                               3.0,
                               5.0,
                               inSeconds(ModelSettings::longestDeadline)};
constexpr DefaultsNumber modelDeadline{
    deadlines, inSeconds(ModelSettings::usualDeadline), [](double seconds) {
        return QCoreApplication::translate("Settings", "%1 s").arg(QLocale().toString(seconds));
    }};

constexpr DefaultsSwitch off{[](const platform::AppInfo&) { return false; }};

constexpr DefaultsSwitch pings{
    [](const platform::AppInfo&) { return false; },
    [](app::AppDelegate& agent, bool on) { agent.pings().setAgreed(on); }};

platform::Availability statusItem(const Ports& ports) {
    return ports.statusItem.availability();
}
platform::Availability loginItem(const Ports& ports) {
    return ports.loginItem.availability();
}
platform::Availability hotkeys(const Ports& ports) {
    return ports.hotkeys.availability();
}
platform::Availability scripts(const Ports& ports) {
    return ports.scripts.availability();
}
platform::Availability accessibility(const Ports& ports) {
    return ports.accessibility.availability();
}
platform::Availability screenCapture(const Ports& ports) {
    return ports.screenCapture.availability();
}
// Without an address there is nothing to say: it is the person's to set one.
platform::Availability languageModel(const Ports& ports) {
    if (ModelSettings::read(ports.defaults).endpoint.isEmpty())
        return {};
    return ports.languageModel.availability();
}

using enum SettingSection;
using Config = AppConfiguration;

constexpr auto sectionTable = std::to_array<SettingSectionInfo>({
    {general, QT_TRANSLATE_NOOP("Settings", "General"), SettingSectionInfo::Feature::here},
    {shortcuts, QT_TRANSLATE_NOOP("Settings", "Shortcuts"), SettingSectionInfo::Feature::here},
    {switcher, QT_TRANSLATE_NOOP("Settings", "Window switcher"), SettingSectionInfo::Feature::here},
    {capture, QT_TRANSLATE_NOOP("Settings", "Quick capture"), SettingSectionInfo::Feature::toCome},
    {voice, QT_TRANSLATE_NOOP("Settings", "Voice"), SettingSectionInfo::Feature::toCome},
    {privacy, QT_TRANSLATE_NOOP("Settings", "Privacy"), SettingSectionInfo::Feature::here},
});

constexpr auto settingTable = std::to_array<Setting>({
    {"themeRaw", general, QT_TRANSLATE_NOOP("Settings", "Theme"),
     QT_TRANSLATE_NOOP("Settings", "The colours of all windows of Skipnest."), theme},
    {"menuBarIconName", general, QT_TRANSLATE_NOOP("Settings", "Icon"),
     QT_TRANSLATE_NOOP("Settings", "The drawing in the menu bar or tray."), menuBarIcon,
     &statusItem},
    {"launchAtLogin", general, QT_TRANSLATE_NOOP("Settings", "Launch at login"),
     QT_TRANSLATE_NOOP("Settings", "Skipnest starts when you log in, without a window."),
     launchAtLogin, &loginItem},
    {"sk.comboGlyphs", general, QT_TRANSLATE_NOOP("Settings", "Modifier keys as ⌃⌥⇧⌘"),
     QT_TRANSLATE_NOOP("Settings", "Keys are shown as glyphs in place of Ctrl, Alt, Shift, Super."),
     comboGlyphs},
    {"sk.lessMotion", general, QT_TRANSLATE_NOOP("Settings", "Less motion"),
     QT_TRANSLATE_NOOP("Settings", "Nothing slides or fades; it is there at once."), off},

    {"shiftToHide", shortcuts, QT_TRANSLATE_NOOP("Settings", "Hide with one more key"),
     QT_TRANSLATE_NOOP("Settings",
                       "Holding the hide key too makes a shortcut hide its application."),
     optionalSwitch<&Config::shiftToHide, &Config::shiftToHideOrDefault>()},
    {"hideModifierRaw", shortcuts, QT_TRANSLATE_NOOP("Settings", "Hide key"),
     QT_TRANSLATE_NOOP("Settings", "The key that is held in addition to hide."), hideModifier},
    {"windowCycling", shortcuts, QT_TRANSLATE_NOOP("Settings", "Step through windows"),
     QT_TRANSLATE_NOOP("Settings",
                       "Two more shortcuts go through the windows of the application in front."),
     optionalSwitch<&Config::windowCycling, &Config::windowCyclingOrDefault>(), &scripts},
    {"nextWindowCombo", shortcuts, QT_TRANSLATE_NOOP("Settings", "Next window"),
     QT_TRANSLATE_NOOP("Settings", "The shortcut for the next window."),
     ComboSetting{&Config::nextWindowComboOrDefault, &Config::nextWindowCombo}, &hotkeys},
    {"prevWindowCombo", shortcuts, QT_TRANSLATE_NOOP("Settings", "Previous window"),
     QT_TRANSLATE_NOOP("Settings", "The shortcut for the window before."),
     ComboSetting{&Config::prevWindowComboOrDefault, &Config::prevWindowCombo}, &hotkeys},

    {"windowSwitcher", switcher, QT_TRANSLATE_NOOP("Settings", "Window switcher"),
     QT_TRANSLATE_NOOP("Settings",
                       "The shortcut of the application in front opens a bar with its windows."),
     optionalSwitch<&Config::windowSwitcher, &Config::windowSwitcherOrDefault>(), &accessibility},
    {"sk.windowPreviews", switcher, QT_TRANSLATE_NOOP("Settings", "Pictures of windows"),
     QT_TRANSLATE_NOOP(
         "Settings", "The bar shows what is in each window. Pictures stay in memory; switched off, "
                     "none is taken."),
     windowPreviews, &screenCapture},
    {"preciseWindowSwitching", switcher, QT_TRANSLATE_NOOP("Settings", "Precise switching"),
     QT_TRANSLATE_NOOP("Settings", "Takes a little longer to raise exactly the window chosen."),
     optionalSwitch<&Config::preciseWindowSwitching, &Config::preciseWindowSwitchingOrDefault>()},
    {"browserTabSwitching", switcher, QT_TRANSLATE_NOOP("Settings", "Browser tabs"),
     QT_TRANSLATE_NOOP("Settings", "In a browser the bar lists the tabs of all its windows."),
     optionalSwitch<&Config::browserTabSwitching, &Config::browserTabSwitchingOrDefault>()},

    {"quickCapture", capture, QT_TRANSLATE_NOOP("Settings", "Quick capture"),
     QT_TRANSLATE_NOOP("Settings",
                       "Tapping Ctrl twice gives a shortcut to what is in front of you."),
     optionalSwitch<&Config::quickCapture, &Config::quickCaptureOrDefault>()},

    {"voiceSearch", voice, QT_TRANSLATE_NOOP("Settings", "Voice"),
     QT_TRANSLATE_NOOP("Settings", "Say where to go: an application, a file, a window or a tab."),
     optionalSwitch<&Config::voiceSearch, &Config::voiceSearchOrDefault>()},
    {"voiceCombo", voice, QT_TRANSLATE_NOOP("Settings", "Voice shortcut"),
     QT_TRANSLATE_NOOP("Settings", "The shortcut that starts and stops listening."),
     ComboSetting{&Config::voiceComboOrDefault, &Config::voiceCombo}, &hotkeys},
    {"voiceTrigger", voice, QT_TRANSLATE_NOOP("Settings", "Double tap"),
     QT_TRANSLATE_NOOP("Settings", "Tapping this key twice starts listening too."), voiceTrigger},
    {"voiceLanguage", voice, QT_TRANSLATE_NOOP("Settings", "Spoken language"),
     QT_TRANSLATE_NOOP("Settings", "The language that is listened for."), voiceLanguage},
    {"voiceCleanup", voice, QT_TRANSLATE_NOOP("Settings", "Tidy up dictated messages"),
     QT_TRANSLATE_NOOP("Settings", "Slips of the tongue are put right before a message is typed."),
     optionalSwitch<&Config::voiceCleanup, &Config::voiceCleanupOrDefault>()},
    {"vocabularyTerms", voice, QT_TRANSLATE_NOOP("Settings", "Words to know"),
     QT_TRANSLATE_NOOP("Settings", "Names and words that recognition should expect."),
     TermsSetting{}},
    {"vocabularyAliases", voice, QT_TRANSLATE_NOOP("Settings", "Heard and meant"),
     QT_TRANSLATE_NOOP("Settings", "What is often misheard, and what it is read as instead."),
     AliasesSetting{}},
    {ModelSettings::endpointKey, voice, QT_TRANSLATE_NOOP("Settings", "Language model"),
     QT_TRANSLATE_NOOP("Settings",
                       "The address of a server on this computer that is asked what a phrase means "
                       "(llama.cpp, Ollama). Empty: none is asked."),
     DefaultsText{"http://127.0.0.1:8080"}, &languageModel},
    {ModelSettings::nameKey, voice, QT_TRANSLATE_NOOP("Settings", "Name of the model"),
     QT_TRANSLATE_NOOP("Settings", "For servers that have several."), DefaultsText{"qwen2.5:3b"}},
    {ModelSettings::deadlineKey, voice, QT_TRANSLATE_NOOP("Settings", "Patience with the model"),
     QT_TRANSLATE_NOOP("Settings", "After this long a phrase is understood without it."),
     modelDeadline},
    {ModelSettings::alwaysKey, voice, QT_TRANSLATE_NOOP("Settings", "Always ask the model"),
     QT_TRANSLATE_NOOP("Settings", "Also about phrases whose meaning is plain."), off},
    {ModelSettings::otherMachinesKey, voice,
     QT_TRANSLATE_NOOP("Settings", "A model on another computer"),
     QT_TRANSLATE_NOOP("Settings",
                       "What you say is sent there. Off: only this computer is ever asked."),
     off},
    {"sk.contacts.folders", voice, QT_TRANSLATE_NOOP("Settings", "Folders with contacts"),
     QT_TRANSLATE_NOOP("Settings",
                       "Folders of vCard files besides the usual ones, with : between them."),
     DefaultsText{"~/Contacts", DefaultsText::Form::paths}},

    {"crashReports", privacy, QT_TRANSLATE_NOOP("Settings", "Send crash reports"),
     QT_TRANSLATE_NOOP("Settings",
                       "After a crash the place in the program is sent, and nothing of yours. "
                       "You see the first report before it goes."),
     optionalSwitch<&Config::crashReports, &Config::crashReportsOrDefault>()},
    {"sk.pings", privacy, QT_TRANSLATE_NOOP("Settings", "Send anonymous usage counts"),
     QT_TRANSLATE_NOOP("Settings",
                       "Version, a random number for this installation, your language, how far the "
                       "first steps got, and whether a spoken jump hit. Never names or texts."),
     pings},
});

} // namespace

std::span<const SettingSectionInfo> settingSections() {
    return sectionTable;
}

std::span<const Setting> settings() {
    return settingTable;
}

const Setting* findSetting(const QString& key) {
    const auto found = std::ranges::find_if(
        settingTable, [&key](const Setting& each) { return key == QLatin1String(each.key); });
    return found == settingTable.end() ? nullptr : &*found;
}

} // namespace skipnest::ui
