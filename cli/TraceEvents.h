// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/KeyCombo.h"
#include "model/ShortcutItem.h"
#include "platform/EventFlags.h"
#include "platform/Scheduler.h"
#include "platform/ScriptRunner.h"
#include "platform/sim/SimDesktop.h"

#include <QDateTime>
#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <QTimeZone>

#include <cstdint>
#include <optional>
#include <variant>

namespace skipnest::cli::trace {

// What can happen in a trace, one type an event; the comment names it as the file does. Where a
// field is optional, absence leaves what stands.

struct SetConfig { // config
    QJsonObject set;
};
struct SetDefaults { // defaults
    QJsonObject set;
};
struct SetClock { // clock
    std::optional<QDateTime> utc;
    std::optional<QTimeZone> zone;
};
struct SetLocale { // locale
    std::optional<QString> current;
    std::optional<QStringList> preferred;
    std::optional<QStringList> supported;
    std::optional<QStringList> unavailable;
};
struct SetTrust { // trust
    std::optional<bool> accessibility;
    std::optional<bool> screenRecording;
    std::optional<sim::Consent> speech;
    std::optional<sim::Consent> microphone;
    std::optional<sim::Consent> contacts;
};
struct DeclareApp { // app
    sim::SimApp app;
};
struct QuitApp { // quit
    QString app;
};
struct BringToFront { // front
    QString app;
};
struct AddShortcut { // shortcut
    QString name;
    QString path;
    model::ShortcutItem::TargetType type = model::ShortcutItem::TargetType::application;
    std::optional<model::KeyCombo> key;
    std::optional<model::KeyCombo> hideKey;
};
struct AddFile { // file
    QString path;
};
struct AddFolder { // folder
    QString path;
};
struct RemovePath { // remove
    QString path;
};
struct SetBookmark { // bookmark
    QString path;
    std::optional<QString> resolves;
};
struct SetDefaultApplication { // opens
    QString path;
    QString application;
};
struct RefuseCombo { // refuse, with key
    model::KeyCombo key;
    std::int32_t status = 0;
};
struct RefuseHandler { // refuse, with handler
    std::int32_t status = 0;
};
struct IgnoreHide { // hideFails
    QString app;
};
struct Start {};         // start
struct ChangeModifiers { // flags
    std::uint16_t keyCode = 0;
    platform::EventFlags flags;
};
struct PressKey { // key
    std::uint16_t keyCode = 0;
    QString text;
    platform::EventFlags flags;
    bool repeat = false;
};
struct PressHotkey { // hotkey
    model::KeyCombo key;
};
struct PressButton { // press
    QString button;
};
struct LeavePanel {};   // panelKeyLost
struct ClickOutside {}; // click, with "outside"
struct DisturbTap {     // tap, of the switcher
    enum class How { timeout, disabled, invalid, unavailable };
    How how = How::timeout;
};
struct HoverEntry { // hover
    int index = 0;
};
struct PickEntry { // pick
    int index = 0;
};
struct AnswerScript { // script
    QString receiver;
    platform::ScriptAnswer answer;
};
struct AnswerTabs { // tabs
    QString browser;
    sim::SimTabs tabs;
};
struct AnswerRequests { // reply
    QString path;
    sim::SimHttp::Answer answer;
};
struct Wait { // wait
    platform::Instant until;
};

using What =
    std::variant<SetConfig, SetDefaults, SetClock, SetLocale, SetTrust, DeclareApp, QuitApp,
                 BringToFront, AddShortcut, AddFile, AddFolder, RemovePath, SetBookmark,
                 SetDefaultApplication, RefuseCombo, RefuseHandler, IgnoreHide, Start,
                 ChangeModifiers, PressKey, PressHotkey, PressButton, LeavePanel, ClickOutside,
                 DisturbTap, HoverEntry, PickEntry, AnswerScript, AnswerTabs, AnswerRequests, Wait>;

struct Event {
    std::optional<platform::Instant> at; // absent: as soon as the one before is done
    What what;
};

} // namespace skipnest::cli::trace
