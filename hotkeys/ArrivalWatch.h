// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Diagnostics.h"
#include "platform/Scheduler.h"
#include "platform/Workspace.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>

namespace skipnest::hotkeys {

// Where a jump should end: an application, by path or identifier, that then is in front.
struct JumpDestination {
    QString path;             // of the application
    QString bundleIdentifier; // empty where it has none

    [[nodiscard]] bool isReachedBy(const platform::RunningApplication& app) const {
        return (!path.isEmpty() && app.bundlePath == path) ||
               (!bundleIdentifier.isEmpty() && app.bundleIdentifier == bundleIdentifier);
    }
};

struct JumpArrival {
    enum class Outcome {
        arrived,
        missed,
        unseen, // the request was taken, and this desktop does not tell what came to the front
    };
    Outcome outcome = Outcome::missed;
    platform::Duration took{}; // from the key press (or the request) to the target in front
    QString reason;            // why it did not arrive, where that is known
};

// Looks whether a jump got where it was going. A window manager may refuse to hand over the focus
// without a word: when the target runs and is not in front 150 ms after it was asked to be, the way
// past the window manager is tried, once, and the log says which way worked. One that is only
// starting gets that long from its first window on. After a second the jump counts as not arrived;
// a program that is still starting may come later by itself.
class ArrivalWatch {
public:
    using Completion = std::function<void(const JumpArrival&)>;

    ArrivalWatch(platform::Workspace& workspace, platform::ApplicationControl& applications,
                 platform::Diagnostics& diagnostics, platform::Scheduler& scheduler);

    // Begins to watch before the request is made, so that no arrival is missed. A later jump ends
    // the earlier ones: the person is on the way somewhere else. `completion` is called once.
    void begin(const JumpDestination& destination, const QString& name, platform::Instant pressed,
               Completion completion);
    // The system took the request. Ends the watch where there is nothing to see: on a desktop that
    // does not tell which application is in front, and for a target of which nobody knows what
    // opens it.
    void requestTaken();
    // The request failed; nothing will come.
    void abandon(const QString& reason);

    // The last jump that ended, for `status` and the tests of a desktop's manners.
    [[nodiscard]] const std::optional<JumpArrival>& last() const { return last_; }

private:
    struct Watch {
        JumpDestination destination;
        QString name;
        platform::Instant pressed;
        Completion completion;
        bool isRunning = false; // when last looked
        bool triedSecondWay = false;
    };

    [[nodiscard]] std::optional<platform::RunningApplication> runningTarget() const;
    void activated(const platform::RunningApplication& app);
    void check();
    void armCheck();
    void end(JumpArrival::Outcome outcome, const QString& reason = {});

    platform::Workspace& workspace_;
    platform::ApplicationControl& applications_;
    platform::Diagnostics& diagnostics_;
    platform::Scheduler& scheduler_;
    std::optional<Watch> watch_;
    std::optional<JumpArrival> last_;
    platform::Timer checkTimer_;
    platform::Observation activations_;
};

} // namespace skipnest::hotkeys
