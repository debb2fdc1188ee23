// SPDX-License-Identifier: Apache-2.0
#include "services/Pings.h"

#include <QJsonArray>
#include <QJsonObject>

#include <array>
#include <utility>

namespace skipnest::services {
namespace {

using namespace Qt::StringLiterals;

constexpr std::array stageNames = {"first_start", "onboarded", "first_jump"};
constexpr std::array outcomeNames = {"hit", "miss", "pick", "fix"};

// Both in the order of their enumeration.
QString name(Pings::Stage stage) {
    return QString::fromLatin1(stageNames.at(static_cast<std::size_t>(stage)));
}
QString name(Pings::VoiceOutcome outcome) {
    return QString::fromLatin1(outcomeNames.at(static_cast<std::size_t>(outcome)));
}

QString agreedKey() {
    return u"sk.pings"_s;
}

QStringList readStages(const QJsonValue& value) {
    QStringList stages;
    for (const QJsonValue& stage : value.toArray())
        stages.append(stage.toString());
    return stages;
}

// What the service has taken, and which stages there are to report.
struct Sent {
    QString first;   // version of the first install ping ever
    QString version; // of the last one
    QStringList stages;
};

Sent readSent(const platform::UserDefaults& defaults) {
    const QJsonObject sent = defaults.value(u"sk.pings.sent"_s).toObject();
    return {sent.value("first"_L1).toString(), sent.value("version"_L1).toString(),
            readStages(sent.value("stages"_L1))};
}

// Unsaved, the running program still knows it; the next run would report once more.
void writeSent(platform::UserDefaults& defaults, const Sent& sent) {
    (void)defaults.setValue(u"sk.pings.sent"_s,
                            QJsonObject{{u"first"_s, sent.first},
                                        {u"version"_s, sent.version},
                                        {u"stages"_s, QJsonArray::fromStringList(sent.stages)}});
}

} // namespace

Pings::Pings(platform::WebService& web, platform::UserDefaults& defaults,
             const InstallIdentity& identity, platform::Diagnostics& diagnostics, QString language)
    : web_(web), defaults_(defaults), identity_(identity), diagnostics_(diagnostics),
      language_(std::move(language)) {}

bool Pings::isAgreed() const {
    return defaults_.value(agreedKey()).toBool(false);
}

void Pings::setAgreed(bool agreed) {
    (void)defaults_.setValue(agreedKey(), agreed); // unsaved, it holds for this run
    sendWhatWaits();
}

void Pings::started() {
    sendWhatWaits();
}

void Pings::reached(Stage stage) {
    const QString key = u"sk.pings.reached"_s;
    QStringList stages = readStages(defaults_.value(key));
    if (!stages.contains(name(stage))) {
        stages.append(name(stage));
        (void)defaults_.setValue(key, QJsonArray::fromStringList(stages));
    }
    if (maySend())
        sendStage(name(stage));
}

void Pings::voice(VoiceOutcome outcome) {
    if (maySend())
        send(u"/voice.php"_s,
             {{u"o"_s, name(outcome)}, {u"id"_s, identity_.identifier()}, {u"l"_s, language_}});
}

void Pings::sendWhatWaits() {
    if (!maySend())
        return;
    sendInstall();
    const QStringList reached = readStages(defaults_.value(u"sk.pings.reached"_s));
    for (const char* stage : stageNames) {
        if (reached.contains(QLatin1StringView(stage)))
            sendStage(QString::fromLatin1(stage));
    }
}

QString Pings::reporter() const {
    const QString first = readSent(defaults_).first;
    return first.isEmpty() || first == identity_.version() ? u"new"_s : u"update"_s;
}

void Pings::sendInstall() {
    if (std::exchange(hasTriedInstall_, true) || readSent(defaults_).version == identity_.version())
        return;
    platform::FormFields fields = identity_.commonFields();
    fields.emplace_back(u"r"_s, reporter());
    send(u"/version.php"_s, fields, [this] {
        Sent sent = readSent(defaults_);
        if (sent.first.isEmpty())
            sent.first = identity_.version();
        sent.version = identity_.version();
        writeSent(defaults_, sent);
    });
}

void Pings::sendStage(const QString& stage) {
    if (triedStages_.contains(stage) || readSent(defaults_).stages.contains(stage))
        return;
    triedStages_.append(stage);
    diagnostics_.log(u"funnel: report stage="_s + stage);
    platform::FormFields fields = identity_.commonFields();
    fields.emplace_back(u"stage"_s, stage);
    fields.emplace_back(u"r"_s, reporter());
    send(u"/version.php"_s, fields, [this, stage] {
        Sent sent = readSent(defaults_);
        sent.stages.append(stage);
        writeSent(defaults_, sent);
    });
}

void Pings::send(const QString& path, const platform::FormFields& fields,
                 std::function<void()> taken) {
    web_.get(path, fields,
             [this, alive = std::weak_ptr(alive_), path,
              taken = std::move(taken)](const platform::Result<platform::HttpReply>& reply) {
                 if (alive.expired())
                     return;
                 if (!reply)
                     return diagnostics_.log(
                         u"ping: %1 failed (%2)"_s.arg(path, reply.failure().detail));
                 if (!reply->isSuccess())
                     return diagnostics_.log(
                         u"ping: %1 failed (status %2)"_s.arg(path).arg(reply->status));
                 if (taken)
                     taken();
             });
}

} // namespace skipnest::services
