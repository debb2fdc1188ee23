// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Result.h"

#include <QJsonObject>

namespace skipnest::cli::trace {

// The program that a trace is played to, as the player sees it: everything else goes through the
// simulated desktop's ports.
class TraceAgent {
public:
    virtual ~TraceAgent() = default;

    // Launches the agent on the desktop as it stands; config.json is already in its place. Called
    // at most once.
    virtual platform::Outcome start() = 0;
    // The person changes these keys of the running agent's document, which is saved as usual.
    virtual platform::Outcome changeSettings(const QJsonObject& set) = 0;
    // The person points at an entry of the open panel, or clicks it, counted from 0.
    virtual platform::Outcome hover(int index) = 0;
    virtual platform::Outcome pick(int index) = 0;
    // "config", "hotkeys", "stats" and "panel" as the last line of a replay prints them. Asked of a
    // running agent only.
    [[nodiscard]] virtual QJsonObject snapshot() const = 0;
};

} // namespace skipnest::cli::trace
