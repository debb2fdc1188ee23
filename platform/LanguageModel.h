// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Availability.h"
#include "platform/Owned.h"
#include "platform/Result.h"
#include "platform/Scheduler.h"

#include <QByteArray>
#include <QString>

#include <functional>

namespace skipnest::platform {

// What a model is to do, the same for every request of one use: nothing of the person is in it.
struct ModelTask {
    QString instructions;
    // Names and holds the JSON schema of the answer, as text: the order of its properties is the
    // order in which the model answers. Empty for plain text.
    QString schemaName = {};
    QByteArray schema = {};
};

// A request on its way; dropping it ends it, and nothing is told any more.
using ModelRequest = Owned<struct ModelRequestTag>;

// Answers a text by another one. Every request stands alone: none knows of an earlier one, and all
// run at temperature zero.
class LanguageModel {
public:
    using Completion = std::function<void(const Result<QString>& answer)>;

    virtual ~LanguageModel() = default;

    // Unavailable where the person has set none up. Asked before every request, so it costs nothing
    // and asks nobody.
    [[nodiscard]] virtual Availability availability() const = 0;

    // The answer as the model gave it: a schema is passed on, never checked here. `completion` is
    // called once, on the main thread, never from inside this call. Failures: `unavailable`,
    // `timedOut` after `deadline`, `refused`, `tooLarge`, `malformed` for what is no answer.
    [[nodiscard]] virtual ModelRequest respond(const ModelTask& task, const QString& prompt,
                                               Duration deadline, Completion completion) = 0;

    // A request of this task will follow within seconds: what can be prepared, is. Nobody hears how
    // it went.
    virtual void warm(const ModelTask& task) = 0;
};

} // namespace skipnest::platform
