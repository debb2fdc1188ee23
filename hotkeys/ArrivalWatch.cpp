// SPDX-License-Identifier: Apache-2.0
#include "hotkeys/ArrivalWatch.h"

#include <algorithm>
#include <utility>

namespace skipnest::hotkeys {

using platform::RunningApplication;

namespace {

using namespace std::chrono_literals;

// A running application that is asked to come to the front is there within 5 ms on the window
// managers measured; one that is not after 150 ms was refused.
constexpr platform::Duration checkEvery = 150ms;
constexpr platform::Duration giveUpAfter = 1s;

QString milliseconds(platform::Duration duration) {
    return QString::number(std::chrono::duration<double, std::milli>(duration).count(), 'f', 0);
}

} // namespace

ArrivalWatch::ArrivalWatch(platform::Workspace& workspace,
                           platform::ApplicationControl& applications,
                           platform::Diagnostics& diagnostics, platform::Scheduler& scheduler)
    : workspace_(workspace), applications_(applications), diagnostics_(diagnostics),
      scheduler_(scheduler), activations_(workspace.observeActivations(
                                 [this](const RunningApplication& app) { activated(app); })) {}

void ArrivalWatch::begin(const JumpDestination& destination, const QString& name,
                         platform::Instant pressed, Completion completion) {
    if (watch_)
        end(JumpArrival::Outcome::missed);
    watch_ = Watch{destination, name, pressed, std::move(completion)};
    watch_->isRunning = runningTarget().has_value();
    armCheck();
}

void ArrivalWatch::requestTaken() {
    const bool isSeen = workspace_.availability().state == platform::Availability::State::available;
    if (watch_ && (!isSeen || watch_->destination.path.isEmpty()))
        end(JumpArrival::Outcome::unseen);
}

void ArrivalWatch::abandon(const QString& reason) {
    if (watch_)
        end(JumpArrival::Outcome::missed, reason);
}

std::optional<RunningApplication> ArrivalWatch::runningTarget() const {
    const std::vector<RunningApplication> running = workspace_.runningApplications();
    const auto target = std::ranges::find_if(running, [this](const RunningApplication& app) {
        return watch_->destination.isReachedBy(app);
    });
    return target == running.end() ? std::nullopt : std::optional(*target);
}

void ArrivalWatch::armCheck() {
    checkTimer_ = scheduler_.after(checkEvery, "jump arrival", [this] { check(); });
}

void ArrivalWatch::activated(const RunningApplication& app) {
    if (watch_ && watch_->destination.isReachedBy(app))
        end(JumpArrival::Outcome::arrived);
}

void ArrivalWatch::check() {
    const auto front = workspace_.frontmostApplication();
    if (front && watch_->destination.isReachedBy(*front))
        return end(JumpArrival::Outcome::arrived);
    if (scheduler_.now() - watch_->pressed >= giveUpAfter) {
        diagnostics_.log(QStringLiteral("jump: '%1' did not arrive within %2 ms")
                             .arg(watch_->name, milliseconds(giveUpAfter)));
        return end(JumpArrival::Outcome::missed);
    }
    const auto target = runningTarget();
    if (target && std::exchange(watch_->isRunning, true) && !watch_->triedSecondWay) {
        watch_->triedSecondWay = true;
        (void)applications_.activate(target->pid, platform::ActivationOption::ignoringOtherApps);
    }
    armCheck();
}

void ArrivalWatch::end(JumpArrival::Outcome outcome, const QString& reason) {
    checkTimer_.reset();
    const Watch watch = std::move(*std::exchange(watch_, std::nullopt));
    last_ = JumpArrival{outcome, scheduler_.now() - watch.pressed, reason};
    if (outcome == JumpArrival::Outcome::arrived && watch.triedSecondWay)
        diagnostics_.log(QStringLiteral("jump: '%1' refused by the desktop, activated past it, "
                                        "arrived in %2 ms")
                             .arg(watch.name, milliseconds(last_->took)));
    if (watch.completion)
        watch.completion(*last_);
}

} // namespace skipnest::hotkeys
