// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Scheduler.h"
#include "platform/UserDefaults.h"

#include <QString>

namespace skipnest::platform {

// How the person has set up a language model, in the user defaults. Read at each use: a change
// holds from the next phrase on.
struct LanguageModelSettings {
    // The names of the entries.
    static constexpr auto endpointKey = "sk.languageModel.endpoint";
    static constexpr auto nameKey = "sk.languageModel.name";
    static constexpr auto deadlineKey = "sk.languageModel.deadline";
    static constexpr auto alwaysKey = "sk.languageModel.always";
    static constexpr auto otherMachinesKey = "sk.languageModel.otherMachines";

    // A phrase waits this long for its answer. Below half a second hardly any model answers; nobody
    // waits ten for a window.
    static constexpr Duration shortestDeadline = std::chrono::milliseconds(500);
    static constexpr Duration usualDeadline = std::chrono::milliseconds(1500);
    static constexpr Duration longestDeadline = std::chrono::seconds(10);

    QString endpoint; // an address; empty: no model is ever asked
    QString name;     // of the model; empty where the server has just one
    Duration deadline = usualDeadline;
    bool asksAlways = false;          // also where the tables explain the phrase
    bool allowsOtherMachines = false; // an endpoint that is not this machine

    // An entry of a wrong type counts as absent; a deadline out of bounds as the nearest bound.
    [[nodiscard]] static LanguageModelSettings read(const UserDefaults& defaults);
};

} // namespace skipnest::platform
