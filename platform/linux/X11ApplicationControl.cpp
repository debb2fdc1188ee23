// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/X11ApplicationControl.h"

#include "platform/linux/ProcessFacts.h"

#include <algorithm>
#include <csignal>
#include <map>
#include <memory>
#include <set>

namespace skipnest::linuxdesktop {
namespace {

using namespace std::chrono_literals;
using platform::ActivationOption;
using platform::ApplicationState;
using platform::Done;
using platform::Failure;
using platform::Outcome;
using platform::ProcessIdentifier;
using platform::Termination;

// Time for a program to close its windows and to end by itself.
constexpr platform::Duration closingTime = 2s;

Failure notRunning(ProcessIdentifier pid) {
    return {Failure::Kind::notFound,
            QStringLiteral("No running application has the process id %1").arg(pid.value)};
}

} // namespace

X11ApplicationControl::X11ApplicationControl(platform::Scheduler& scheduler, X11Windows& windows,
                                             X11Applications& applications,
                                             X11WindowCommands& commands)
    : windows_(windows), applications_(applications), commands_(commands), delayed_(scheduler) {}

ApplicationState X11ApplicationControl::state(ProcessIdentifier pid) const {
    const X11Application* application = find(pid);
    if (application == nullptr || hasEnded(*application))
        return {false, false, true};
    const bool hidden = std::all_of(application->windows.begin(), application->windows.end(),
                                    [this](xcb_window_t window) {
                                        const X11Window* known = windows_.find(window);
                                        return known == nullptr || windows_.isHidden(*known);
                                    });
    return {applications_.active() == application, hidden, false};
}

Outcome X11ApplicationControl::activate(ProcessIdentifier pid, ActivationOption option) {
    const X11Application* application = find(pid);
    if (application == nullptr)
        return notRunning(pid);
    const xcb_window_t recent = application->windows.front();
    switch (option) {
    case ActivationOption::none: {
        // One of its windows that is on its way to the front is the one that is meant, though
        // another was there more recently.
        const auto& windows = application->windows;
        if (std::find(windows.begin(), windows.end(), windows_.requestedActive()) == windows.end())
            commands_.activate(recent);
        break;
    }
    case ActivationOption::allWindows: {
        // From the bottom up, so that the order among them stays.
        const auto& windows = application->windows;
        for (const xcb_window_t window : windows_.stacking()) {
            const X11Window* known = windows_.find(window);
            if (known != nullptr && !windows_.isHidden(*known) &&
                std::find(windows.begin(), windows.end(), window) != windows.end())
                commands_.raise(window);
        }
        commands_.activate(recent);
        break;
    }
    case ActivationOption::ignoringOtherApps:
        commands_.force(recent);
        break;
    }
    return Done{};
}

Outcome X11ApplicationControl::hide(ProcessIdentifier pid) {
    const X11Application* application = find(pid);
    if (application == nullptr)
        return notRunning(pid);
    if (!windows_.hasWindowManager())
        return Failure{Failure::Kind::unavailable,
                       QStringLiteral("No window manager runs that could hide windows")};
    bool hiding = false;
    for (const xcb_window_t window : application->windows) {
        const X11Window* known = windows_.find(window);
        if (known == nullptr)
            continue;
        if (windows_.isHidden(*known)) {
            hiding = true;
        } else if (known->canMinimise) {
            commands_.iconify(window);
            hiding = true;
        }
    }
    if (!hiding)
        return Failure{Failure::Kind::unavailable,
                       QStringLiteral("The window manager does not minimise windows of %1")
                           .arg(application->identity.name)};
    return Done{};
}

Outcome X11ApplicationControl::terminate(ProcessIdentifier pid, Termination termination) {
    const X11Application* application = find(pid);
    if (application == nullptr)
        return notRunning(pid);
    if (termination == Termination::forced)
        return kill(*application);
    terminatePolitely(*application);
    return Done{};
}

// A process that has been killed may end before its windows do. Only a number that once led to a
// program can tell: those from inside a sandbox mean nothing here, whether or not they exist.
bool X11ApplicationControl::hasEnded(const X11Application& application) const {
    const X11Window* recent = windows_.find(application.windows.front());
    return recent != nullptr && !recent->facts.executable.isEmpty() && !processExists(recent->pid);
}

const X11Application* X11ApplicationControl::find(ProcessIdentifier pid) const {
    applications_.update();
    return applications_.withPid(pid);
}

// Processes that a signal may go to: of this machine, and with no window of another application.
std::vector<std::int64_t>
X11ApplicationControl::ownProcesses(const X11Application& application) const {
    std::set<std::int64_t> own;
    std::set<std::int64_t> others;
    for (const X11Application& each : applications_.all()) {
        for (const xcb_window_t window : each.windows) {
            const X11Window* known = windows_.find(window);
            // A pid without a program that can be read is another user's, or from inside a sandbox
            // where numbers mean something else.
            if (known == nullptr || known->pid <= 1)
                continue;
            if (&each != &application)
                others.insert(known->pid);
            else if (known->machineKnown && !known->facts.executable.isEmpty())
                own.insert(known->pid);
        }
    }
    std::vector<std::int64_t> processes;
    std::set_difference(own.begin(), own.end(), others.begin(), others.end(),
                        std::back_inserter(processes));
    return processes;
}

bool X11ApplicationControl::showsWindows(std::int64_t process) const {
    const auto& windows = windows_.stacking();
    return std::any_of(windows.begin(), windows.end(), [&](xcb_window_t window) {
        const X11Window* known = windows_.find(window);
        return known != nullptr && known->pid == process;
    });
}

void X11ApplicationControl::terminatePolitely(const X11Application& application) {
    std::map<std::int64_t, std::shared_ptr<ProcessHandle>> processes;
    for (const std::int64_t process : ownProcesses(application))
        processes.emplace(process, std::make_shared<ProcessHandle>(process));
    for (const xcb_window_t window : application.windows)
        commands_.close(window);
    if (processes.empty())
        return;
    delayed_.after(closingTime, "end of a terminated application",
                   [this, processes = std::move(processes)] {
                       windows_.settle();
                       for (const auto& [pid, process] : processes) {
                           // A window that is left asks about unsaved work, which a signal
                           // destroys.
                           if (!showsWindows(pid))
                               (void)process->signal(SIGTERM); // fails where it has ended
                       }
                   });
}

Outcome X11ApplicationControl::kill(const X11Application& application) {
    const std::vector<std::int64_t> processes = ownProcesses(application);
    if (processes.empty()) {
        const bool shared = application.processId > 1 &&
                            std::any_of(applications_.all().begin(), applications_.all().end(),
                                        [&](const X11Application& other) {
                                            return &other != &application &&
                                                   other.processId == application.processId;
                                        });
        if (shared)
            return Failure{Failure::Kind::refused,
                           QStringLiteral("The process of %1 shows other applications as well")
                               .arg(application.identity.name)};
        for (const xcb_window_t window : application.windows)
            commands_.disconnect(window);
        return Done{};
    }
    for (const std::int64_t process : processes) {
        if (!ProcessHandle(process).signal(SIGKILL) && processExists(process))
            return Failure{Failure::Kind::refused,
                           QStringLiteral("The process %1 of %2 may not be ended")
                               .arg(process)
                               .arg(application.identity.name)};
    }
    return Done{};
}

} // namespace skipnest::linuxdesktop
