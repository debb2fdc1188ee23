// SPDX-License-Identifier: Apache-2.0
#include "cli/TraceWriter.h"

#include "cli/TraceStage.h"
#include "model/ComboText.h"
#include "platform/UsKeyboardLayout.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <utility>

namespace skipnest::cli::trace {

using namespace Qt::StringLiterals;
using model::KeyCombo;
using platform::Instant;

namespace {

// The Apple event error of a receiver that did not answer in time.
constexpr int answerTimedOut = -1712;

double seconds(Instant::duration time) {
    constexpr double nanoseconds = 1e9;
    return static_cast<double>(time.count()) / nanoseconds;
}

// "ctrl+opt+j"; the key by its number where its name does not read back as the same key.
QString comboText(const KeyCombo& combo) {
    const platform::UsKeyboardLayout layout;
    const QString text = model::words(combo, layout).toLower().remove(u' ');
    if (const auto parsed = model::parseCombo(text); parsed && *parsed == combo)
        return text;
    // A code that has no name renders as "Key" and the number, after the same modifiers.
    constexpr std::uint16_t nameless = 65535;
    const QString before = model::words({nameless, combo.modifiers}, layout).toLower().remove(u' ');
    return before.chopped(5) + QString::number(combo.keyCode);
}

QJsonValue comboValue(const std::optional<KeyCombo>& combo) {
    return combo ? QJsonValue(comboText(*combo)) : QJsonValue();
}

QString disturbanceName(DisturbTap::How how) {
    switch (how) {
    case DisturbTap::How::timeout:
        return u"timeout"_s;
    case DisturbTap::How::disabled:
        return u"disabled"_s;
    case DisturbTap::How::invalid:
        return u"invalid"_s;
    case DisturbTap::How::unavailable:
        return u"unavailable"_s;
    }
    return {};
}

QString consentName(sim::Consent consent) {
    switch (consent) {
    case sim::Consent::granted:
        return u"granted"_s;
    case sim::Consent::denied:
        return u"denied"_s;
    case sim::Consent::notDetermined:
        return u"notDetermined"_s;
    }
    return {};
}

void put(QJsonObject& object, const QString& name, const std::optional<QString>& value) {
    if (value)
        object[name] = *value;
}
void put(QJsonObject& object, const QString& name, const std::optional<QStringList>& value) {
    if (value)
        object[name] = QJsonArray::fromStringList(*value);
}
void put(QJsonObject& object, const QString& name, const std::optional<bool>& value) {
    if (value)
        object[name] = *value;
}
void put(QJsonObject& object, const QString& name, const std::optional<sim::Consent>& value) {
    if (value)
        object[name] = consentName(*value);
}

QJsonObject named(const QString& name, QJsonObject fields = {}) {
    fields[u"do"_s] = name;
    return fields;
}

QJsonObject json(const SetConfig& e) {
    return named(u"config"_s, {{u"set"_s, e.set}});
}
QJsonObject json(const SetDefaults& e) {
    return named(u"defaults"_s, {{u"set"_s, e.set}});
}
QJsonObject json(const SetClock& e) {
    QJsonObject event = named(u"clock"_s);
    if (e.utc)
        event[u"utc"_s] = e.utc->toUTC().toString(Qt::ISODateWithMs);
    if (e.zone)
        event[u"zone"_s] = QString::fromUtf8(e.zone->id());
    return event;
}
QJsonObject json(const SetLocale& e) {
    QJsonObject event = named(u"locale"_s);
    put(event, u"current"_s, e.current);
    put(event, u"preferred"_s, e.preferred);
    put(event, u"supported"_s, e.supported);
    put(event, u"unavailable"_s, e.unavailable);
    return event;
}
QJsonObject json(const SetTrust& e) {
    QJsonObject event = named(u"trust"_s);
    put(event, u"accessibility"_s, e.accessibility);
    put(event, u"screenRecording"_s, e.screenRecording);
    put(event, u"speech"_s, e.speech);
    put(event, u"microphone"_s, e.microphone);
    put(event, u"contacts"_s, e.contacts);
    return event;
}
QJsonObject windowJson(const sim::SimWindow& window) {
    QJsonObject object{{u"title"_s, window.title}, {u"minimized"_s, window.minimized}};
    if (window.subrole != sim::SimWindow{}.subrole)
        object[u"subrole"_s] = window.subrole ? QJsonValue(*window.subrole) : QJsonValue();
    if (const auto& frame = window.frame)
        object[u"frame"_s] = QJsonArray{frame->x(), frame->y(), frame->width(), frame->height()};
    return object;
}
QJsonObject json(const DeclareApp& e) {
    QJsonObject event = named(u"app"_s, {{u"name"_s, e.app.name}});
    if (!e.app.bundleIdentifier.isEmpty())
        event[u"bundle"_s] = e.app.bundleIdentifier;
    if (!e.app.path.isEmpty())
        event[u"path"_s] = e.app.path;
    if (e.app.pid.value > 0)
        event[u"pid"_s] = static_cast<qint64>(e.app.pid.value);
    event[u"running"_s] = e.app.running == sim::Running::yes;
    QJsonArray windows;
    for (const sim::SimWindow& window : e.app.windows)
        windows.append(windowJson(window));
    event[u"windows"_s] = windows;
    if (e.app.focused != sim::SimApp{}.focused)
        event[u"focused"_s] =
            e.app.focused ? QJsonValue(static_cast<qint64>(*e.app.focused)) : QJsonValue();
    if (e.app.menuBar)
        event[u"menuBar"_s] = static_cast<qint64>(*e.app.menuBar);
    QJsonArray menu;
    for (const sim::SimMenuItem& item : e.app.windowMenu)
        menu.append(QJsonObject{{u"title"_s, item.title},
                                {u"mark"_s, item.mark ? QJsonValue(*item.mark) : QJsonValue()}});
    if (!menu.isEmpty())
        event[u"windowMenu"_s] = menu;
    QJsonObject errors;
    for (const auto& [name, status] : e.app.accessibilityErrors)
        errors[name] = status;
    if (!errors.isEmpty())
        event[u"axError"_s] = errors;
    return event;
}
QJsonObject json(const QuitApp& e) {
    return named(u"quit"_s, {{u"app"_s, e.app}});
}
QJsonObject json(const BringToFront& e) {
    return named(u"front"_s, {{u"app"_s, e.app}});
}
QJsonObject json(const AddShortcut& e) {
    return named(u"shortcut"_s, {{u"name"_s, e.name},
                                 {u"path"_s, e.path},
                                 {u"type"_s, targetTypeName(e.type)},
                                 {u"key"_s, comboValue(e.key)},
                                 {u"hideKey"_s, comboValue(e.hideKey)}});
}
QJsonObject json(const AddFile& e) {
    return named(u"file"_s, {{u"path"_s, e.path}});
}
QJsonObject json(const AddFolder& e) {
    return named(u"folder"_s, {{u"path"_s, e.path}});
}
QJsonObject json(const RemovePath& e) {
    return named(u"remove"_s, {{u"path"_s, e.path}});
}
QJsonObject json(const SetBookmark& e) {
    return named(u"bookmark"_s,
                 {{u"path"_s, e.path},
                  {u"resolves"_s, e.resolves ? QJsonValue(*e.resolves) : QJsonValue()}});
}
QJsonObject json(const SetDefaultApplication& e) {
    return named(u"opens"_s, {{u"path"_s, e.path}, {u"with"_s, e.application}});
}
QJsonObject json(const RefuseCombo& e) {
    return named(u"refuse"_s, {{u"key"_s, comboText(e.key)}, {u"status"_s, e.status}});
}
QJsonObject json(const RefuseHandler& e) {
    return named(u"refuse"_s, {{u"handler"_s, e.status}});
}
QJsonObject json(const IgnoreHide& e) {
    return named(u"hideFails"_s, {{u"app"_s, e.app}});
}
QJsonObject json(const Start&) {
    return named(u"start"_s);
}
QJsonObject json(const ChangeModifiers& e) {
    return named(u"flags"_s, {{u"code"_s, e.keyCode}, {u"flags"_s, sim::modifierNames(e.flags)}});
}
QJsonObject json(const PressKey& e) {
    return named(u"key"_s, {{u"code"_s, TraceWriter::withheldKey},
                            {u"text"_s, QString()},
                            {u"flags"_s, sim::modifierNames(e.flags)},
                            {u"repeat"_s, e.repeat}});
}
QJsonObject json(const PressHotkey& e) {
    return named(u"hotkey"_s, {{u"key"_s, comboText(e.key)}});
}
QJsonObject json(const PressButton& e) {
    return named(u"press"_s, {{u"button"_s, e.button}});
}
QJsonObject json(const LeavePanel&) {
    return named(u"panelKeyLost"_s);
}
QJsonObject json(const ClickOutside&) {
    return named(u"click"_s, {{u"outside"_s, true}});
}
QJsonObject json(const DisturbTap& e) {
    return named(u"tap"_s, {{u"which"_s, u"switcher"_s}, {u"event"_s, disturbanceName(e.how)}});
}
QJsonObject json(const HoverEntry& e) {
    return named(u"hover"_s, {{u"index"_s, e.index}});
}
QJsonObject json(const PickEntry& e) {
    return named(u"pick"_s, {{u"index"_s, e.index}});
}
QJsonObject json(const AnswerRequests& e) {
    QJsonObject event = named(u"reply"_s, {{u"path"_s, e.path}});
    if (const auto* failure = std::get_if<platform::Failure>(&e.answer)) {
        event[u"error"_s] = failure->detail;
    } else {
        const auto& reply = std::get<platform::HttpReply>(e.answer);
        event[u"status"_s] = reply.status;
        event[u"body"_s] = QString::fromUtf8(reply.body);
    }
    return event;
}
QJsonObject json(const AnswerScript& e) {
    QJsonObject event = named(u"script"_s, {{u"to"_s, e.receiver}});
    if (const auto* output = std::get_if<platform::ScriptText>(&e.answer))
        event[u"output"_s] = output->text;
    else if (const auto* error = std::get_if<platform::ScriptError>(&e.answer))
        event[u"error"_s] = error->number;
    else
        event[u"error"_s] = answerTimedOut;
    return event;
}
QJsonObject json(const AnswerTabs& e) {
    QJsonObject event = named(u"tabs"_s, {{u"bundle"_s, e.browser}});
    if (const auto* output = std::get_if<platform::ScriptText>(&e.tabs.listing))
        event[u"output"_s] = output->text;
    else if (const auto* error = std::get_if<platform::ScriptError>(&e.tabs.listing))
        event[u"error"_s] = error->number;
    else
        event[u"hang"_s] = true;
    using Relocation = sim::SimTabs::Relocation;
    if (const auto relocation = e.tabs.relocation)
        event[u"relocate"_s] = *relocation == Relocation::found    ? u"1"_s
                               : *relocation == Relocation::missed ? u"0"_s
                                                                   : u"hang"_s;
    if (const auto activation = e.tabs.activation)
        event[u"activate"_s] = *activation == sim::SimTabs::Activation::ok ? u"ok"_s : u"fail"_s;
    event[u"after"_s] = seconds(e.tabs.after);
    return event;
}
QJsonObject json(const Wait& e) {
    return named(u"wait"_s, {{u"until"_s, seconds(e.until.time_since_epoch())}});
}

} // namespace

QJsonObject toJson(const What& what) {
    return std::visit([](const auto& event) { return json(event); }, what);
}

TraceWriter::TraceWriter(Instant start, WriteLine writeLine)
    : start_(start), last_(start), writeLine_(std::move(writeLine)) {}

void TraceWriter::write(Instant at, const What& what) {
    last_ = std::max(last_, at);
    QJsonObject event = toJson(what);
    event[u"at"_s] = seconds(last_ - start_);
    writeLine_(QJsonDocument(event).toJson(QJsonDocument::Compact));
}

} // namespace skipnest::cli::trace
