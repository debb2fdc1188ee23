// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "cli/TraceAgent.h"
#include "cli/TraceEvents.h"
#include "cli/TraceStage.h"
#include "platform/Result.h"
#include "platform/sim/SimDesktop.h"

#include <QIODevice>

#include <functional>

namespace skipnest::cli::trace {

// Plays a trace on a simulated desktop with an agent on it, and writes what comes out as it
// happens: one JSON object a line, without the line break.
class TracePlayer {
public:
    using WriteLine = std::function<void(const QByteArray&)>;

    // `agent` works on `desk`; both outlive the player.
    TracePlayer(sim::SimDesktop& desk, TraceAgent& agent, WriteLine writeLine);

    // Plays from the first line to the last and ends with the "end" line. Fails at the first event
    // that cannot be read or played, with "line N: " and the reason; what came before is written.
    [[nodiscard]] platform::Outcome play(QIODevice& trace);

private:
    [[nodiscard]] platform::Outcome deliver(const Event& event);
    void writeEntry(const sim::JournalEntry& entry);
    void write(platform::Instant time, const QJsonObject& rest);
    void writeEnd();

    // One for each kind of event; `seen` is when it happened for the person.
    platform::Outcome play(const SetConfig& event, platform::Instant seen);
    platform::Outcome play(const SetDefaults& event, platform::Instant seen);
    platform::Outcome play(const SetClock& event, platform::Instant seen);
    platform::Outcome play(const SetLocale& event, platform::Instant seen);
    platform::Outcome play(const SetTrust& event, platform::Instant seen);
    platform::Outcome play(const DeclareApp& event, platform::Instant seen);
    platform::Outcome play(const QuitApp& event, platform::Instant seen);
    platform::Outcome play(const BringToFront& event, platform::Instant seen);
    platform::Outcome play(const AddShortcut& event, platform::Instant seen);
    platform::Outcome play(const AddFile& event, platform::Instant seen);
    platform::Outcome play(const AddFolder& event, platform::Instant seen);
    platform::Outcome play(const RemovePath& event, platform::Instant seen);
    platform::Outcome play(const SetBookmark& event, platform::Instant seen);
    platform::Outcome play(const SetDefaultApplication& event, platform::Instant seen);
    platform::Outcome play(const RefuseCombo& event, platform::Instant seen);
    platform::Outcome play(const RefuseHandler& event, platform::Instant seen);
    platform::Outcome play(const IgnoreHide& event, platform::Instant seen);
    platform::Outcome play(const Start& event, platform::Instant seen);
    platform::Outcome play(const ChangeModifiers& event, platform::Instant seen);
    platform::Outcome play(const PressKey& event, platform::Instant seen);
    platform::Outcome play(const PressHotkey& event, platform::Instant seen);
    platform::Outcome play(const PressButton& event, platform::Instant seen);
    platform::Outcome play(const LeavePanel& event, platform::Instant seen);
    platform::Outcome play(const ClickOutside& event, platform::Instant seen);
    platform::Outcome play(const DisturbTap& event, platform::Instant seen);
    platform::Outcome play(const HoverEntry& event, platform::Instant seen);
    platform::Outcome play(const PickEntry& event, platform::Instant seen);
    platform::Outcome play(const AnswerScript& event, platform::Instant seen);
    platform::Outcome play(const AnswerTabs& event, platform::Instant seen);
    platform::Outcome play(const AnswerRequests& event, platform::Instant seen);
    platform::Outcome play(const Wait& event, platform::Instant seen);

    sim::SimDesktop& desk_;
    TraceAgent& agent_;
    WriteLine writeLine_;
    TraceStage stage_;
    bool started_ = false;
    platform::Observation journal_;
};

} // namespace skipnest::cli::trace
