// SPDX-License-Identifier: Apache-2.0
#include "cli/TraceReader.h"

#include "cli/TraceShapes.h"
#include "model/ComboText.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <utility>

namespace skipnest::cli::trace {

using namespace Qt::StringLiterals;
using model::KeyCombo;
using platform::EventFlags;
using platform::Failure;
using platform::Instant;
using platform::Result;

namespace {

// The functions below read fields that checkShape() has found to be of their types.

Failure malformed(const QString& detail) {
    return {Failure::Kind::malformed, detail};
}

Instant instant(const QJsonValue& seconds) {
    constexpr double nanoseconds = 1e9;
    return Instant(platform::Duration(std::llround(seconds.toDouble() * nanoseconds)));
}

std::optional<QString> text(const QJsonValue& value) {
    return value.isString() ? std::optional(value.toString()) : std::nullopt;
}

std::optional<bool> boolean(const QJsonValue& value) {
    return value.isBool() ? std::optional(value.toBool()) : std::nullopt;
}

std::optional<QStringList> texts(const QJsonValue& value) {
    if (!value.isArray())
        return std::nullopt;
    QStringList list;
    for (const QJsonValue entry : value.toArray())
        list.append(entry.toString());
    return list;
}

std::optional<KeyCombo> combo(const QJsonValue& value) {
    const auto parsed = model::parseCombo(value.toString());
    return value.isString() && parsed ? std::optional(*parsed) : std::nullopt;
}

std::optional<sim::Consent> consent(const QJsonValue& value) {
    if (!value.isString())
        return std::nullopt;
    if (value.toString() == u"granted")
        return sim::Consent::granted;
    return value.toString() == u"denied" ? sim::Consent::denied : sim::Consent::notDetermined;
}

EventFlags modifiers(const QJsonValue& value) {
    EventFlags flags;
    for (const QJsonValue name : value.toArray())
        flags.bits |= sim::modifierNamed(name.toString()).value_or(EventFlags{}).bits;
    return flags;
}

Result<What> clock(const QJsonObject& event) {
    SetClock clock;
    if (const auto utc = text(event[u"utc"_s])) {
        clock.utc = QDateTime::fromString(*utc, Qt::ISODateWithMs);
        if (!clock.utc->isValid() || clock.utc->timeSpec() == Qt::LocalTime)
            return malformed(u"\"utc\" of \"clock\" must be a time such as "
                             "\"2026-07-24T21:59:50Z\""_s);
        clock.utc = clock.utc->toUTC();
    }
    if (const auto zone = text(event[u"zone"_s])) {
        clock.zone = QTimeZone(zone->toUtf8());
        if (!clock.zone->isValid())
            return malformed(u"\"%1\" is no time zone"_s.arg(*zone));
    }
    return What(clock);
}

std::optional<std::size_t> index(const QJsonValue& value) {
    return value.isDouble() ? std::optional(static_cast<std::size_t>(value.toInteger()))
                            : std::nullopt;
}

sim::SimWindow window(const QJsonObject& entry) {
    sim::SimWindow window{entry[u"title"_s].toString(), entry[u"minimized"_s].toBool()};
    if (entry.contains(u"subrole"_s))
        window.subrole = text(entry[u"subrole"_s]);
    if (const QJsonArray frame = entry[u"frame"_s].toArray(); frame.size() == 4)
        window.frame = QRectF(frame[0].toDouble(), frame[1].toDouble(), frame[2].toDouble(),
                              frame[3].toDouble());
    return window;
}

Result<What> app(const QJsonObject& event) {
    sim::SimApp app{
        .name = event[u"name"_s].toString(),
        .bundleIdentifier = event[u"bundle"_s].toString(),
        .path = event[u"path"_s].toString(),
        .pid = {event[u"pid"_s].toInteger(-1)},
        .running = event[u"running"_s].toBool(true) ? sim::Running::yes : sim::Running::no,
    };
    for (const QJsonValue entry : event[u"windows"_s].toArray())
        app.windows.push_back(window(entry.toObject()));
    for (const QJsonValue entry : event[u"windowMenu"_s].toArray())
        app.windowMenu.push_back({entry[u"title"_s].toString(), text(entry[u"mark"_s])});
    if (event.contains(u"focused"_s))
        app.focused = index(event[u"focused"_s]);
    // A Window menu is the last but one: where nothing is said of the others, one follows it.
    if (event.contains(u"menuBar"_s))
        app.menuBar = static_cast<std::uint32_t>(event[u"menuBar"_s].toInteger());
    else if (!app.windowMenu.empty())
        app.menuBar = 2;
    const QJsonObject errors = event[u"axError"_s].toObject();
    for (auto error = errors.begin(); error != errors.end(); ++error)
        app.accessibilityErrors[error.key()] = static_cast<int>(error->toInteger());
    if (app.name.isEmpty())
        return malformed(u"\"name\" of \"app\" must not be empty"_s);
    return What(DeclareApp{std::move(app)});
}

Result<What> shortcut(const QJsonObject& event) {
    using TargetType = model::ShortcutItem::TargetType;
    const QString type = event[u"type"_s].toString();
    return What(AddShortcut{
        .name = event[u"name"_s].toString(),
        .path = event[u"path"_s].toString(),
        .type = type == u"application" ? TargetType::application
                : type == u"folder"    ? TargetType::folder
                                       : TargetType::file,
        .key = combo(event[u"key"_s]),
        .hideKey = combo(event[u"hideKey"_s]),
    });
}

Result<What> refuse(const QJsonObject& event) {
    const bool isCombo = event.contains(u"key"_s) && event.contains(u"status"_s);
    const bool isHandler = event.contains(u"handler"_s) && !event.contains(u"status"_s);
    if (isCombo == isHandler)
        return malformed(u"\"refuse\" needs \"key\" and \"status\", or \"handler\""_s);
    if (isHandler)
        return What(RefuseHandler{static_cast<std::int32_t>(event[u"handler"_s].toInteger())});
    return What(RefuseCombo{combo(event[u"key"_s]).value_or(KeyCombo{}),
                            static_cast<std::int32_t>(event[u"status"_s].toInteger())});
}

Result<What> press(const QJsonObject& event) {
    const QString button = event[u"button"_s].toString();
    constexpr auto panelButtons =
        std::to_array<QStringView>({u"fix", u"confirm", u"cancel", u"enable"});
    if (std::ranges::find(panelButtons, QStringView(button)) != panelButtons.end())
        return Failure{Failure::Kind::unavailable,
                       u"the button \"%1\" is not simulated yet"_s.arg(button)};
    return What(PressButton{button});
}

Result<What> click(const QJsonObject& event) {
    if (!event[u"outside"_s].toBool())
        return malformed(u"\"click\" needs \"outside\": true"_s);
    return What(ClickOutside{});
}

DisturbTap::How disturbanceNamed(const QString& name) {
    using How = DisturbTap::How;
    return name == u"timeout"    ? How::timeout
           : name == u"disabled" ? How::disabled
           : name == u"invalid"  ? How::invalid
                                 : How::unavailable;
}

Result<What> tap(const QJsonObject& event) {
    const QString which = event[u"which"_s].toString();
    if (which != u"switcher")
        return Failure{Failure::Kind::unavailable,
                       u"the tap \"%1\" is not simulated yet"_s.arg(which)};
    return What(DisturbTap{disturbanceNamed(event[u"event"_s].toString())});
}

int entryIndex(const QJsonObject& event) {
    return event[u"index"_s].toInt();
}

platform::ScriptError scriptError(const QJsonValue& number) {
    return {static_cast<int>(number.toInteger()),
            u"The script failed with error %1."_s.arg(number.toInteger())};
}

Result<What> script(const QJsonObject& event) {
    if (event.contains(u"output"_s) == event.contains(u"error"_s))
        return malformed(u"\"script\" needs either \"output\" or \"error\""_s);
    AnswerScript answer{event[u"to"_s].toString(), {}};
    if (event.contains(u"error"_s))
        answer.answer = scriptError(event[u"error"_s]);
    else
        answer.answer = platform::ScriptText{event[u"output"_s].toString()};
    return What(std::move(answer));
}

Result<What> tabs(const QJsonObject& event) {
    const bool hangs = event[u"hang"_s].toBool();
    const bool failed = event.contains(u"error"_s);
    if (int{hangs} + int{failed} + int{event.contains(u"output"_s)} > 1)
        return malformed(u"\"tabs\" has one of \"output\", \"error\" and \"hang\""_s);
    AnswerTabs answer{event[u"bundle"_s].toString(), {}};
    if (hangs)
        answer.tabs.listing = platform::ScriptBudgetExceeded{};
    else if (failed)
        answer.tabs.listing = scriptError(event[u"error"_s]);
    else
        answer.tabs.listing = platform::ScriptText{event[u"output"_s].toString()};
    if (const auto relocate = text(event[u"relocate"_s])) {
        using Relocation = sim::SimTabs::Relocation;
        answer.tabs.relocation = *relocate == u"1"   ? Relocation::found
                                 : *relocate == u"0" ? Relocation::missed
                                                     : Relocation::hang;
    }
    if (const auto activate = text(event[u"activate"_s])) {
        using Activation = sim::SimTabs::Activation;
        answer.tabs.activation = *activate == u"ok" ? Activation::ok : Activation::fail;
    }
    answer.tabs.after = instant(event[u"after"_s]).time_since_epoch();
    return What(std::move(answer));
}

std::uint16_t keyCode(const QJsonObject& event) {
    return static_cast<std::uint16_t>(event[u"code"_s].toInteger());
}

QString appName(const QJsonObject& event) {
    return event[u"app"_s].toString();
}

QString pathOf(const QJsonObject& event) {
    return event[u"path"_s].toString();
}

Result<What> reply(const QJsonObject& event) {
    if (const auto error = text(event[u"error"_s]))
        return What(AnswerRequests{pathOf(event), Failure{Failure::Kind::refused, *error}});
    return What(
        AnswerRequests{pathOf(event), platform::HttpReply{event[u"status"_s].toInt(200),
                                                          event[u"body"_s].toString().toUtf8()}});
}

struct Builder {
    QStringView name;
    Result<What> (*build)(const QJsonObject&);
};

// An event of the format without a row here has no feature yet that it could be played to.
constexpr auto builders = std::to_array<Builder>({
    {u"config",
     [](const QJsonObject& e) -> Result<What> { return What(SetConfig{e[u"set"_s].toObject()}); }},
    {u"defaults",
     [](const QJsonObject& e) -> Result<What> {
         return What(SetDefaults{e[u"set"_s].toObject()});
     }},
    {u"clock", clock},
    {u"locale",
     [](const QJsonObject& e) -> Result<What> {
         return What(SetLocale{text(e[u"current"_s]), texts(e[u"preferred"_s]),
                               texts(e[u"supported"_s]), texts(e[u"unavailable"_s])});
     }},
    {u"trust",
     [](const QJsonObject& e) -> Result<What> {
         return What(SetTrust{boolean(e[u"accessibility"_s]), boolean(e[u"screenRecording"_s]),
                              consent(e[u"speech"_s]), consent(e[u"microphone"_s]),
                              consent(e[u"contacts"_s])});
     }},
    {u"app", app},
    {u"quit", [](const QJsonObject& e) -> Result<What> { return What(QuitApp{appName(e)}); }},
    {u"front", [](const QJsonObject& e) -> Result<What> { return What(BringToFront{appName(e)}); }},
    {u"shortcut", shortcut},
    {u"file", [](const QJsonObject& e) -> Result<What> { return What(AddFile{pathOf(e)}); }},
    {u"folder", [](const QJsonObject& e) -> Result<What> { return What(AddFolder{pathOf(e)}); }},
    {u"remove", [](const QJsonObject& e) -> Result<What> { return What(RemovePath{pathOf(e)}); }},
    {u"bookmark",
     [](const QJsonObject& e) -> Result<What> {
         return What(SetBookmark{pathOf(e), text(e[u"resolves"_s])});
     }},
    {u"opens",
     [](const QJsonObject& e) -> Result<What> {
         return What(SetDefaultApplication{pathOf(e), e[u"with"_s].toString()});
     }},
    {u"refuse", refuse},
    {u"hideFails",
     [](const QJsonObject& e) -> Result<What> { return What(IgnoreHide{appName(e)}); }},
    {u"start", [](const QJsonObject&) -> Result<What> { return What(Start{}); }},
    {u"flags",
     [](const QJsonObject& e) -> Result<What> {
         return What(ChangeModifiers{keyCode(e), modifiers(e[u"flags"_s])});
     }},
    {u"key",
     [](const QJsonObject& e) -> Result<What> {
         return What(PressKey{keyCode(e), e[u"text"_s].toString(), modifiers(e[u"flags"_s]),
                              e[u"repeat"_s].toBool()});
     }},
    {u"hotkey",
     [](const QJsonObject& e) -> Result<What> {
         return What(PressHotkey{combo(e[u"key"_s]).value_or(KeyCombo{})});
     }},
    {u"press", press},
    {u"panelKeyLost", [](const QJsonObject&) -> Result<What> { return What(LeavePanel{}); }},
    {u"click", click},
    {u"tap", tap},
    {u"hover",
     [](const QJsonObject& e) -> Result<What> { return What(HoverEntry{entryIndex(e)}); }},
    {u"pick", [](const QJsonObject& e) -> Result<What> { return What(PickEntry{entryIndex(e)}); }},
    {u"tabs", tabs},
    {u"script", script},
    {u"reply", reply},
    {u"wait",
     [](const QJsonObject& e) -> Result<What> { return What(Wait{instant(e[u"until"_s])}); }},
});

} // namespace

Result<Event> eventFromJson(const QJsonObject& object) {
    const Result<QString> name = checkShape(object);
    if (!name)
        return name.failure();
    const auto builder = std::ranges::find(builders, QStringView(*name), &Builder::name);
    if (builder == builders.end())
        return Failure{Failure::Kind::unavailable, u"\"%1\" is not simulated yet"_s.arg(*name)};
    Result<What> what = builder->build(object);
    if (!what)
        return what.failure();
    Event event{std::nullopt, std::move(what).value()};
    if (object.contains(u"at"_s))
        event.at = instant(object[u"at"_s]);
    return event;
}

Result<std::optional<QByteArray>> TraceReader::nextLine() {
    using Line = std::optional<QByteArray>;
    while (!ended_) {
        // One byte more than allowed tells a line that is too long from one that just fits.
        QByteArray line = input_.readLine(longestLine + 2);
        if (line.isEmpty()) {
            ended_ = true;
            break;
        }
        ++line_;
        bytes_ += line.size();
        if (line.endsWith('\n'))
            line.chop(1);
        if (line.size() > longestLine)
            return Failure{Failure::Kind::tooLarge, u"the line is longer than 1 MB"_s};
        if (bytes_ > largestTrace)
            return Failure{Failure::Kind::tooLarge, u"the trace is larger than 64 MB"_s};
        constexpr QByteArrayView byteOrderMark("\xEF\xBB\xBF");
        if (line_ == 1 && line.startsWith(byteOrderMark))
            line.remove(0, byteOrderMark.size());
        if (!line.trimmed().isEmpty())
            return Line(std::move(line));
    }
    return Line();
}

Result<Event> TraceReader::read(const QByteArray& line) {
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(line, &error);
    if (error.error != QJsonParseError::NoError)
        return malformed(u"no JSON: %1"_s.arg(error.errorString()));
    if (!document.isObject())
        return malformed(u"an event is a JSON object"_s);
    Result<Event> event = eventFromJson(document.object());
    if (!event)
        return event;
    const Instant at = event->at.value_or(time_);
    if (at < time_)
        return malformed(u"time runs backwards"_s);
    time_ = at;
    if (const auto* wait = std::get_if<Wait>(&event->what)) {
        if (wait->until < time_)
            return malformed(u"time runs backwards"_s);
        time_ = wait->until;
    }
    return event;
}

Result<std::optional<Event>> TraceReader::next() {
    const auto failed = [this](const Failure& failure) {
        ended_ = true;
        return Failure{failure.kind, u"line %1: %2"_s.arg(line_).arg(failure.detail)};
    };
    const auto line = nextLine();
    if (!line)
        return failed(line.failure());
    if (!*line)
        return std::optional<Event>();
    Result<Event> event = read(**line);
    if (!event)
        return failed(event.failure());
    return std::optional<Event>(std::move(event).value());
}

} // namespace skipnest::cli::trace
