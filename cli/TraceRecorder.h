// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "app/AppDelegate.h"
#include "cli/TraceWriter.h"
#include "platform/KeyEvents.h"

#include <QFile>

#include <memory>
#include <optional>
#include <set>

namespace skipnest::cli {

// Writes what happens to a running agent as a trace that `skipnest replay` reads: the stage first
// (settings, shortcuts, applications with their windows left out), then modifier keys, our hotkeys,
// other keys without what they were, and who comes to the front. Everything stays on this machine
// until the person passes the file on; it names applications and shortcut targets, nothing else.
class TraceRecorder final : public platform::KeyEventListener {
public:
    // Fails where the file exists or cannot be made (0600).
    [[nodiscard]] static platform::Result<std::unique_ptr<TraceRecorder>>
    open(const QString& path, app::AppDelegate& agent);

    void modifiersChanged(const platform::ModifierEvent& event) override;
    void otherKeyPressed(platform::Instant time) override;

private:
    explicit TraceRecorder(app::AppDelegate& agent) : agent_(agent) {}

    void writeStage();
    void declare(const platform::RunningApplication& app);
    void activated(const platform::RunningApplication& app);
    void writePendingKey();
    void hotkeyPressed(const hotkeys::PlannedHotkey& hotkey, platform::Instant time);

    app::AppDelegate& agent_;
    QFile file_;
    std::unique_ptr<trace::TraceWriter> writer_;
    std::set<QString> declared_;
    // A key that may yet turn out to be a hotkey's.
    std::optional<platform::Instant> pendingKey_;
    platform::Timer pendingTimer_;
    std::optional<platform::Instant> lastHotkey_;
    platform::KeyTap tap_;
    platform::Observation activations_;
    platform::Observation presses_;
};

} // namespace skipnest::cli
