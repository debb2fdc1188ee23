// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Diagnostics.h"
#include "platform/Observers.h"
#include "platform/Scheduler.h"

#include <QJsonObject>
#include <QString>

#include <functional>
#include <string>
#include <vector>

namespace skipnest::sim {

// One thing that came out of the program: a debug-log line, a line on standard output, or a call,
// an effect on the desktop with its name and fields.
struct JournalEntry {
    enum class Kind { log, print, call, panel };

    platform::Instant time;
    Kind kind = Kind::call;
    QString text; // the line, or the name of the call or the panel
    QJsonObject fields;

    bool operator==(const JournalEntry&) const = default;
};

// Everything the program did, in order. It is the program's Diagnostics, and where each part of the
// desktop notes what was asked of it, at the moment of asking.
class Journal final : public platform::Diagnostics {
public:
    explicit Journal(const platform::Scheduler& scheduler) : scheduler_(scheduler) {}

    void log(const QString& line) override;
    void print(const QString& line) override;
    void call(const QString& name, const QJsonObject& fields = {});
    // A panel opened, changed or closed; `fields` hold its "state" and what it shows.
    void panel(const QString& name, const QJsonObject& fields);

    [[nodiscard]] const std::vector<JournalEntry>& entries() const { return entries_; }
    // "activate app=Notes options=allWindows", fields by name, for each call; in timedCalls() after
    // the time in seconds: "0.72 hide app=Notes".
    [[nodiscard]] std::vector<std::string> calls() const;
    [[nodiscard]] std::vector<std::string> timedCalls() const;
    [[nodiscard]] std::vector<std::string> panels() const; // "popover state=list"
    [[nodiscard]] std::vector<std::string> logLines() const;
    [[nodiscard]] std::vector<std::string> prints() const;
    // Forgets what happened so far; a test's first act is often only the way to its second.
    void clear() { entries_.clear(); }

    // Told of each entry as it happens.
    [[nodiscard]] platform::Observation observe(std::function<void(const JournalEntry&)> observer);

private:
    void add(JournalEntry::Kind kind, const QString& text, const QJsonObject& fields);
    [[nodiscard]] std::vector<std::string> lines(JournalEntry::Kind kind) const;

    const platform::Scheduler& scheduler_;
    std::vector<JournalEntry> entries_;
    platform::Observers<const JournalEntry&> observers_;
};

// The call in one line, without its time.
[[nodiscard]] QString describe(const JournalEntry& entry);

} // namespace skipnest::sim
