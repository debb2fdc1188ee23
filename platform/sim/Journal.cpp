// SPDX-License-Identifier: Apache-2.0
#include "platform/sim/Journal.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <utility>

namespace skipnest::sim {
namespace {

// The value as JSON, a string without its quotes.
QString valueText(const QJsonValue& value) {
    const QByteArray array =
        QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact).mid(1).chopped(1);
    return QString::fromUtf8(value.isString() ? array.mid(1).chopped(1) : array);
}

} // namespace

QString describe(const JournalEntry& entry) {
    QString line = entry.text;
    for (auto field = entry.fields.begin(); field != entry.fields.end(); ++field)
        line += u' ' + field.key() + u'=' + valueText(field.value());
    return line;
}

void Journal::log(const QString& line) {
    add(JournalEntry::Kind::log, line, {});
}

void Journal::print(const QString& line) {
    add(JournalEntry::Kind::print, line, {});
}

void Journal::call(const QString& name, const QJsonObject& fields) {
    add(JournalEntry::Kind::call, name, fields);
}

void Journal::panel(const QString& name, const QJsonObject& fields) {
    add(JournalEntry::Kind::panel, name, fields);
}

void Journal::add(JournalEntry::Kind kind, const QString& text, const QJsonObject& fields) {
    const JournalEntry entry{scheduler_.now(), kind, text, fields};
    entries_.push_back(entry);
    observers_.notify(entry);
}

platform::Observation Journal::observe(std::function<void(const JournalEntry&)> observer) {
    return observers_.add(std::move(observer));
}

std::vector<std::string> Journal::lines(JournalEntry::Kind kind) const {
    std::vector<std::string> lines;
    for (const JournalEntry& entry : entries_)
        if (entry.kind == kind)
            lines.push_back(describe(entry).toStdString());
    return lines;
}

std::vector<std::string> Journal::calls() const {
    return lines(JournalEntry::Kind::call);
}

std::vector<std::string> Journal::panels() const {
    return lines(JournalEntry::Kind::panel);
}

std::vector<std::string> Journal::logLines() const {
    return lines(JournalEntry::Kind::log);
}

std::vector<std::string> Journal::prints() const {
    return lines(JournalEntry::Kind::print);
}

std::vector<std::string> Journal::timedCalls() const {
    std::vector<std::string> calls;
    for (const JournalEntry& entry : entries_) {
        if (entry.kind != JournalEntry::Kind::call)
            continue;
        const double seconds = std::chrono::duration<double>(entry.time.time_since_epoch()).count();
        calls.push_back((QString::number(seconds) + u' ' + describe(entry)).toStdString());
    }
    return calls;
}

} // namespace skipnest::sim
