// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Availability.h"
#include "platform/Scheduler.h"

#include <QString>

#include <variant>

namespace skipnest::platform {

enum class CycleDirection { next, previous };

// Minimise the first window that is not minimised (next), or bring back the last that is
// (previous), in the application with this identifier.
struct CycleWindows {
    QString bundleIdentifier;
    CycleDirection direction = CycleDirection::next;
};

// A script text together with what it means: macOS runs the text, other systems carry out the
// meaning and answer with the same result text or error number.
struct ScriptRequest {
    QString source;
    std::variant<CycleWindows> meaning;
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

    // Waits at most `budget` for the answer. A late answer is dropped.
    [[nodiscard]] virtual ScriptAnswer run(const ScriptRequest& request, Duration budget) = 0;
};

} // namespace skipnest::platform
