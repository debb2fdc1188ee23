// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Availability.h"
#include "platform/Result.h"
#include "platform/Scheduler.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <variant>

namespace skipnest::platform {

enum class CycleDirection { next, previous };

// Minimise the first window that is not minimised (next), or bring back the last that is
// (previous), in the application with this identifier.
struct CycleWindows {
    QString bundleIdentifier;
    CycleDirection direction = CycleDirection::next;
};

// The tabs of every window of a browser: one line a tab, ending in ASCII 10, of five fields parted
// by ASCII 1: window number and tab number, both from 1, title, "1" for the selected tab of its
// window else "0", address.
struct EnumerateTabs {
    QString bundleIdentifier;
};
// Selects the tab at this place and brings its window to the front.
struct ActivateTab {
    QString bundleIdentifier;
    std::int64_t windowIndex = 0;
    std::int64_t tabIndex = 0;
};
// The same for the tab with this address, else this title, looked for first at this place. Answers
// "1" where it was found, else "0".
struct RelocateTab {
    QString bundleIdentifier;
    std::int64_t windowIndex = 0;
    std::int64_t tabIndex = 0;
    QString url;
    QString title;
};

// A script text together with what it means: macOS runs the text, other systems carry out the
// meaning and answer with the same result text or error number.
struct ScriptRequest {
    QString source;
    std::variant<CycleWindows, EnumerateTabs, ActivateTab, RelocateTab> meaning;
};

struct ScriptText {
    QString text;
};
struct ScriptError {
    int number = 0; // Apple event error number
    QString description;
};
struct ScriptBudgetExceeded {};
using ScriptAnswer = std::variant<ScriptText, ScriptError, ScriptBudgetExceeded>;

class ScriptRunner {
public:
    virtual ~ScriptRunner() = default;

    [[nodiscard]] virtual Availability availability() const = 0;

    // Browsers whose tabs can be asked for here beyond those of every system, by identifier; they
    // are asked by meaning, their script texts are never run.
    [[nodiscard]] virtual QStringList furtherBrowsers() const { return {}; }

    // From here on browsers that have to connect by themselves may do so. Called once, by the
    // process that is the agent.
    virtual Outcome acceptBrowsers() { return Done{}; }

    // Waits at most `budget` for the answer. A late answer is dropped.
    [[nodiscard]] virtual ScriptAnswer run(const ScriptRequest& request, Duration budget) = 0;
};

} // namespace skipnest::platform
