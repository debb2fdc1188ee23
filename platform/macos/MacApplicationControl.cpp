// SPDX-License-Identifier: Apache-2.0
#include "platform/macos/MacApplicationControl.h"

#include <limits>

namespace skipnest::macos {
namespace {

using platform::ApplicationState;
using platform::Failure;
using platform::Outcome;
using platform::ProcessIdentifier;

// What the system takes as a process id; anything else would be cut down to another process's.
bool valid(ProcessIdentifier pid) {
    return pid.value > 0 && pid.value <= std::numeric_limits<std::int32_t>::max();
}

Failure notRunning(ProcessIdentifier pid) {
    return {Failure::Kind::notFound,
            QStringLiteral("no application runs as process %1").arg(pid.value)};
}

Outcome outcome(RequestAnswer answer, ProcessIdentifier pid, const QString& request) {
    switch (answer) {
    case RequestAnswer::taken:
        return platform::Done{};
    case RequestAnswer::refused:
        return Failure{Failure::Kind::refused,
                       QStringLiteral("process %1 did not take: %2").arg(pid.value).arg(request)};
    case RequestAnswer::notRunning:
        break;
    }
    return notRunning(pid);
}

Activation activation(platform::ActivationOption option) {
    switch (option) {
    case platform::ActivationOption::none:
        return Activation::keyWindow;
    case platform::ActivationOption::allWindows:
        return Activation::allWindows;
    case platform::ActivationOption::ignoringOtherApps:
        return Activation::ignoringOtherApps;
    }
    return Activation::keyWindow;
}

} // namespace

MacApplicationControl::MacApplicationControl(ApplicationBridge& bridge) : bridge_(bridge) {}

ApplicationState MacApplicationControl::state(ProcessIdentifier pid) const {
    const auto found = valid(pid) ? bridge_.state(pid.value) : std::nullopt;
    if (!found)
        return {.active = false, .hidden = false, .terminated = true};
    return {.active = found->active, .hidden = found->hidden, .terminated = false};
}

Outcome MacApplicationControl::activate(ProcessIdentifier pid, platform::ActivationOption option) {
    if (!valid(pid))
        return notRunning(pid);
    return outcome(bridge_.activate(pid.value, activation(option)), pid,
                   QStringLiteral("come to the front"));
}

Outcome MacApplicationControl::hide(ProcessIdentifier pid) {
    if (!valid(pid))
        return notRunning(pid);
    return outcome(bridge_.hide(pid.value), pid, QStringLiteral("hide"));
}

Outcome MacApplicationControl::terminate(ProcessIdentifier pid, platform::Termination termination) {
    if (!valid(pid))
        return notRunning(pid);
    switch (termination) {
    case platform::Termination::polite:
        return outcome(bridge_.terminate(pid.value), pid, QStringLiteral("quit"));
    case platform::Termination::forced:
        break;
    }
    return outcome(bridge_.forceTerminate(pid.value), pid, QStringLiteral("quit at once"));
}

} // namespace skipnest::macos
