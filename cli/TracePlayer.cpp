// SPDX-License-Identifier: Apache-2.0
#include "cli/TracePlayer.h"

#include "cli/TraceReader.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <utility>

namespace skipnest::cli::trace {

using namespace Qt::StringLiterals;
using platform::Done;
using platform::Failure;
using platform::Instant;
using platform::Outcome;

namespace {

Failure refused(const QString& detail) {
    return {Failure::Kind::refused, detail};
}

sim::HotkeyCombo hotkeyCombo(const model::KeyCombo& combo) {
    return {combo.keyCode, combo.modifiers.carbonModifiers()};
}

// Seconds in as few digits as tell the time apart: 0.72, never 0.72000000000000008.
QByteArray secondsText(Instant time) {
    constexpr double nanoseconds = 1e9;
    const double seconds = static_cast<double>(time.time_since_epoch().count()) / nanoseconds;
    return QJsonDocument(QJsonArray{seconds}).toJson(QJsonDocument::Compact).mid(1).chopped(1);
}

template <typename T> void setIfGiven(T& value, const std::optional<T>& given) {
    if (given)
        value = *given;
}

} // namespace

TracePlayer::TracePlayer(sim::SimDesktop& desk, TraceAgent& agent, WriteLine writeLine)
    : desk_(desk), agent_(agent), writeLine_(std::move(writeLine)),
      journal_(
          desk.journal().observe([this](const sim::JournalEntry& entry) { writeEntry(entry); })) {}

void TracePlayer::write(Instant time, const QJsonObject& rest) {
    const QByteArray fields = QJsonDocument(rest).toJson(QJsonDocument::Compact);
    writeLine_("{\"t\":" + secondsText(time) + ',' + fields.mid(1));
}

void TracePlayer::writeEntry(const sim::JournalEntry& entry) {
    QJsonObject fields = entry.fields;
    switch (entry.kind) {
    case sim::JournalEntry::Kind::log:
        fields[u"log"_s] = entry.text;
        break;
    case sim::JournalEntry::Kind::print:
        fields[u"print"_s] = entry.text;
        break;
    case sim::JournalEntry::Kind::call:
        fields[u"call"_s] = entry.text;
        break;
    case sim::JournalEntry::Kind::panel:
        fields[u"panel"_s] = entry.text;
        break;
    }
    write(entry.time, fields);
}

void TracePlayer::writeEnd() {
    QJsonObject end = started_ ? agent_.snapshot()
                               : QJsonObject{{u"config"_s, stage_.document()},
                                             {u"hotkeys"_s, QJsonArray()},
                                             {u"stats"_s, QJsonObject()},
                                             {u"panel"_s, QJsonValue()}};
    const QString front = desk_.frontApp();
    end[u"front"_s] = front.isEmpty() ? QJsonValue() : QJsonValue(front);
    write(desk_.now(), {{u"end"_s, end}});
}

Outcome TracePlayer::play(QIODevice& trace) {
    TraceReader reader(trace);
    while (true) {
        const auto event = reader.next();
        if (!event)
            return event.failure();
        if (!*event)
            break;
        if (const Outcome delivered = deliver(**event); !delivered)
            return Failure{delivered.failure().kind,
                           u"line %1: %2"_s.arg(reader.line()).arg(delivered.failure().detail)};
    }
    writeEnd();
    return Done{};
}

Outcome TracePlayer::deliver(const Event& event) {
    const Instant at = event.at.value_or(desk_.now());
    desk_.advanceTo(at);
    const Outcome played =
        std::visit([this, at](const auto& what) { return play(what, at); }, event.what);
    desk_.runPosted();
    if (const auto fault = desk_.fault())
        return Failure{Failure::Kind::timedOut, *fault};
    return played;
}

Outcome TracePlayer::play(const SetConfig& event, Instant) {
    if (started_)
        return agent_.changeSettings(event.set);
    stage_.apply(event);
    return Done{};
}

Outcome TracePlayer::play(const SetDefaults& event, Instant) {
    for (auto key = event.set.begin(); key != event.set.end(); ++key)
        if (const Outcome set = desk_.defaults().setValue(key.key(), key.value()); !set)
            return set;
    return Done{};
}

Outcome TracePlayer::play(const SetClock& event, Instant) {
    if (event.utc)
        desk_.wallClock().setUtc(*event.utc);
    if (event.zone)
        desk_.wallClock().setZone(*event.zone);
    return Done{};
}

Outcome TracePlayer::play(const SetLocale& event, Instant) {
    sim::Locale locale = desk_.locale();
    setIfGiven(locale.current, event.current);
    setIfGiven(locale.preferred, event.preferred);
    setIfGiven(locale.supported, event.supported);
    setIfGiven(locale.unavailable, event.unavailable);
    desk_.setLocale(locale);
    return Done{};
}

Outcome TracePlayer::play(const SetTrust& event, Instant) {
    sim::Trust trust = desk_.trust();
    setIfGiven(trust.accessibility, event.accessibility);
    setIfGiven(trust.screenRecording, event.screenRecording);
    setIfGiven(trust.speech, event.speech);
    setIfGiven(trust.microphone, event.microphone);
    setIfGiven(trust.contacts, event.contacts);
    desk_.setTrust(trust);
    return Done{};
}

Outcome TracePlayer::play(const DeclareApp& event, Instant) {
    const platform::ProcessIdentifier pid = event.app.pid;
    const sim::SimApp* holder = desk_.applications().findRunning(pid);
    if (pid == desk_.appInfo().pid || (holder && holder->name != event.app.name))
        return refused(
            u"pid %1 is taken by %2"_s.arg(pid.value).arg(holder ? holder->name : u"Skipnest"_s));
    desk_.installApp(event.app);
    return Done{};
}

Outcome TracePlayer::play(const QuitApp& event, Instant) {
    return desk_.applications().quit(event.app);
}

Outcome TracePlayer::play(const BringToFront& event, Instant) {
    return desk_.applications().bringToFront(event.app);
}

Outcome TracePlayer::play(const AddShortcut& event, Instant) {
    const QDateTime now = desk_.wallClock().nowUtc();
    if (!started_) {
        stage_.add(event, now);
        return Done{};
    }
    QJsonArray shortcuts = agent_.snapshot()[u"config"_s][u"shortcuts"_s].toArray();
    shortcuts.append(stage_.record(event, shortcuts.size(), now));
    return agent_.changeSettings({{u"shortcuts"_s, shortcuts}});
}

Outcome TracePlayer::play(const AddFile& event, Instant) {
    return desk_.addFile(event.path);
}

Outcome TracePlayer::play(const AddFolder& event, Instant) {
    return desk_.addFolder(event.path);
}

Outcome TracePlayer::play(const RemovePath& event, Instant) {
    return desk_.removePath(event.path);
}

Outcome TracePlayer::play(const SetBookmark& event, Instant) {
    stage_.setBookmarked(event.path);
    desk_.bookmarks().setTarget(event.path, event.resolves);
    return Done{};
}

Outcome TracePlayer::play(const SetDefaultApplication& event, Instant) {
    desk_.applications().setDefaultApplication(event.path, event.application);
    return Done{};
}

Outcome TracePlayer::play(const RefuseCombo& event, Instant) {
    desk_.hotkeys().refuse(hotkeyCombo(event.key), event.status);
    return Done{};
}

Outcome TracePlayer::play(const RefuseHandler& event, Instant) {
    desk_.hotkeys().refuseHandler(event.status);
    return Done{};
}

Outcome TracePlayer::play(const IgnoreHide& event, Instant) {
    return desk_.applications().ignoreHide(event.app);
}

Outcome TracePlayer::play(const Start&, Instant) {
    if (started_)
        return refused(u"the agent runs already"_s);
    if (stage_.isDescribed()) {
        const QString path = desk_.appInfo().supportFolder + u"/config.json"_s;
        const QByteArray document = QJsonDocument(stage_.document()).toJson();
        if (const Outcome written = desk_.addFile(path, document); !written)
            return written;
    }
    started_ = true;
    return agent_.start();
}

Outcome TracePlayer::play(const ChangeModifiers& event, Instant seen) {
    desk_.changeModifiers(event.keyCode, event.flags, seen);
    return Done{};
}

Outcome TracePlayer::play(const PressKey& event, Instant seen) {
    desk_.pressKey({event.keyCode, event.flags, event.text, event.repeat, seen});
    return Done{};
}

Outcome TracePlayer::play(const PressHotkey& event, Instant seen) {
    desk_.pressHotkey(hotkeyCombo(event.key), seen);
    return Done{};
}

Outcome TracePlayer::play(const PressButton& event, Instant) {
    desk_.pressAlertButton(event.button);
    return Done{};
}

Outcome TracePlayer::play(const LeavePanel&, Instant) {
    desk_.panels().clickOutside();
    return Done{};
}

Outcome TracePlayer::play(const ClickOutside&, Instant) {
    desk_.clickOutside();
    return Done{};
}

Outcome TracePlayer::play(const DisturbTap& event, Instant) {
    using Disabled = platform::KeyInterceptor::Disabled;
    switch (event.how) {
    case DisturbTap::How::timeout:
        desk_.keyEvents().interruptInterceptor(Disabled::timeout);
        break;
    case DisturbTap::How::disabled:
        desk_.keyEvents().interruptInterceptor(Disabled::userInput);
        break;
    case DisturbTap::How::invalid:
        desk_.keyEvents().loseInterceptor();
        break;
    case DisturbTap::How::unavailable:
        desk_.keyEvents().refuseInterceptors();
        break;
    }
    return Done{};
}

Outcome TracePlayer::play(const HoverEntry& event, Instant) {
    return started_ ? agent_.hover(event.index) : refused(u"the agent does not run"_s);
}

Outcome TracePlayer::play(const PickEntry& event, Instant) {
    return started_ ? agent_.pick(event.index) : refused(u"the agent does not run"_s);
}

Outcome TracePlayer::play(const AnswerRequests& event, Instant) {
    desk_.http().setAnswer(event.path, event.answer);
    return Done{};
}

Outcome TracePlayer::play(const AnswerTabs& event, Instant) {
    desk_.scripts().setTabs(event.browser, event.tabs);
    return Done{};
}

Outcome TracePlayer::play(const AnswerScript& event, Instant) {
    desk_.scripts().setAnswer(event.receiver, event.answer);
    return Done{};
}

Outcome TracePlayer::play(const Wait& event, Instant) {
    desk_.advanceTo(event.until);
    return Done{};
}

} // namespace skipnest::cli::trace
