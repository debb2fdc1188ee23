// SPDX-License-Identifier: Apache-2.0
#include "hotkeys/JumpExecution.h"

#include "platform/Alerts.h"
#include "platform/Files.h"

#include <QDir>
#include <QStringBuilder>

#include <algorithm>
#include <memory>
#include <utility>

namespace skipnest::hotkeys {

using model::ShortcutItem;
using platform::ActivationOption;
using platform::Outcome;
using platform::Result;
using platform::RunningApplication;
using platform::ScopedAccess;

namespace {

using namespace std::chrono_literals;

// By then a hide that works has taken effect.
constexpr platform::Duration hideSettles = 200ms;

} // namespace

JumpExecution::JumpExecution(const platform::Ports& ports, FocusTracker& focus,
                             SwitcherGate& switcher, JumpCounter& counter)
    : ports_(ports), focus_(focus), switcher_(switcher), counter_(counter),
      arrivals_(ports.workspace, ports.applications, ports.diagnostics, ports.scheduler),
      reactivation_(ports), delayed_(ports.scheduler) {}

JumpExecution::Started JumpExecution::jump(const ShortcutItem& item, platform::Instant pressed,
                                           Completion completion) {
    ports_.diagnostics.log(u"open '" % item.name % u"'");
    Opening opening{QDir::cleanPath(item.targetPath),
                    Scope::plain,
                    item.keyCombo,
                    item.name,
                    pressed,
                    std::move(completion)};
    if (const auto resolved = resolveBookmark(item)) {
        if (*resolved) {
            opening.path = resolved->value();
            opening.scope = Scope::securityScoped;
        } else {
            ports_.diagnostics.print(u"[Skipnest] Failed to resolve bookmark: " %
                                     resolved->failure().detail);
        }
    }
    return open(opening);
}

JumpExecution::Started JumpExecution::open(const Opening& opening) {
    if (ports_.files.kind(opening.path) == platform::FileKind::none) {
        ports_.diagnostics.print(u"[Skipnest] Target does not exist: " % opening.path);
        showNotFound(opening.path);
        if (opening.completion)
            opening.completion(
                {JumpArrival::Outcome::missed, {}, u"target does not exist: " % opening.path});
        return Started::no;
    }
    ScopedAccess access;
    if (opening.scope == Scope::securityScoped)
        access = ports_.bookmarks.startAccessing(opening.path);
    return ports_.workspace.isApplication(opening.path)
               ? openApplication(opening, std::move(access))
               : openDocument(opening, std::move(access));
}

JumpExecution::Started JumpExecution::openDocument(const Opening& opening, ScopedAccess access) {
    cancelSwitcher();
    countJump(opening.name);
    const auto application = ports_.workspace.defaultApplication(opening.path);
    arrivals_.begin(application ? destination(*application) : JumpDestination{}, opening.name,
                    opening.pressed, opening.completion);
    ports_.workspace.openFile(opening.path, openCompletion(opening, std::move(access)));
    return Started::yes;
}

JumpExecution::Started JumpExecution::openApplication(const Opening& opening, ScopedAccess access) {
    const JumpDestination target = destination(opening.path);
    const auto arrivedAlready = [&opening, this] {
        if (opening.completion)
            opening.completion(
                {JumpArrival::Outcome::arrived, ports_.scheduler.now() - opening.pressed, {}});
        return Started::yes;
    };
    if (switches_.switcherEnabled && switcher_.isOpen()) {
        const auto running = runningInstance(target);
        if (running && switcher_.offer(*running) == SwitcherGate::Answer::taken)
            return arrivedAlready();
    }
    const auto front = ports_.workspace.frontmostApplication();
    if (front && target.isReachedBy(*front)) {
        const auto modifiers =
            opening.combo ? std::optional(opening.combo->modifiers) : std::nullopt;
        if (isTakenBySwitcher(modifiers, *front))
            return arrivedAlready();
        return reactivate(opening, *front);
    }
    cancelSwitcher();
    countJump(opening.name);
    arrivals_.begin(target, opening.name, opening.pressed, opening.completion);
    ports_.workspace.openApplication(opening.path, openCompletion(opening, std::move(access)));
    return Started::yes;
}

bool JumpExecution::isTakenBySwitcher(std::optional<model::ModifierFlags> modifiers,
                                      const RunningApplication& app) {
    using Mode = SwitcherGate::Mode;
    using Answer = SwitcherGate::Answer;
    if (!switches_.switcherEnabled)
        return false;
    if (switches_.browserTabsEnabled && switcher_.knowsTabsOf(app.bundleIdentifier) &&
        switcher_.open(app, modifiers, Mode::tabsAllowed) == Answer::taken)
        return true;
    return switcher_.open(app, modifiers, Mode::windowsOnly) == Answer::taken;
}

bool JumpExecution::chooseWindow(const RunningApplication& app) {
    return isTakenBySwitcher(std::nullopt, app);
}

JumpExecution::Started JumpExecution::reactivate(const Opening& opening,
                                                 const RunningApplication& front) {
    countJump(opening.name);
    reactivation_.bringAllWindowsForward(front.pid);
    if (opening.completion)
        opening.completion(
            {JumpArrival::Outcome::arrived, ports_.scheduler.now() - opening.pressed, {}});
    return Started::yes;
}

std::function<void(const Outcome&)> JumpExecution::openCompletion(const Opening& opening,
                                                                  ScopedAccess access) {
    // Shared, because a std::function is copyable; the access ends with the last copy.
    auto held = std::make_shared<ScopedAccess>(std::move(access));
    return [this, held, path = opening.path](const Outcome& outcome) {
        held->reset();
        if (outcome)
            return arrivals_.requestTaken();
        ports_.diagnostics.print(u"[Skipnest] Failed to open " % path % u": " %
                                 outcome.failure().detail);
        arrivals_.abandon(outcome.failure().detail);
    };
}

void JumpExecution::countJump(const QString& name) {
    // Later, so that the jump itself never waits for the books.
    ports_.scheduler.post([&counter = counter_, name] { counter.countKeyboardJump(name); });
}

void JumpExecution::hide(const ShortcutItem& item) {
    counter_.countHide();
    cancelSwitcher();
    const auto running = runningTarget(item);
    if (!running)
        return;
    const bool wasActive = ports_.applications.state(running->pid).active;
    if (const Outcome hidden = ports_.applications.hide(running->pid); !hidden)
        ports_.diagnostics.log(u"hide: '" % item.name % u"' stays, " % hidden.failure().detail);
    if (wasActive)
        delayed_.after(hideSettles, "give focus back",
                       [this, app = *running] { handBackAfterHide(app); });
}

std::optional<RunningApplication> JumpExecution::runningTarget(const ShortcutItem& item) {
    QString path = QDir::cleanPath(item.targetPath);
    if (const auto resolved = resolveBookmark(item); resolved && *resolved)
        path = resolved->value();
    if (!ports_.workspace.isApplication(path)) {
        const auto application = ports_.workspace.defaultApplication(path);
        if (!application)
            return std::nullopt;
        path = *application;
    }
    return runningInstance(destination(path));
}

void JumpExecution::handBackAfterHide(const RunningApplication& app) {
    const platform::ApplicationState now = ports_.applications.state(app.pid);
    if (now.hidden || !now.active)
        return;
    const auto& previous = focus_.previousApp();
    if (!previous || previous->pid == app.pid ||
        ports_.applications.state(previous->pid).terminated)
        return;
    (void)ports_.applications.activate(previous->pid, ActivationOption::none);
}

std::optional<Result<QString>> JumpExecution::resolveBookmark(const ShortcutItem& item) {
    if (!item.bookmarkData)
        return std::nullopt;
    return ports_.bookmarks.resolve(*item.bookmarkData);
}

JumpDestination JumpExecution::destination(const QString& applicationPath) const {
    return {applicationPath, ports_.workspace.bundleIdentifier(applicationPath)};
}

std::optional<RunningApplication>
JumpExecution::runningInstance(const JumpDestination& target) const {
    const std::vector<RunningApplication> running = ports_.workspace.runningApplications();
    const auto byPath = std::ranges::find(running, target.path, &RunningApplication::bundlePath);
    if (byPath != running.end())
        return *byPath;
    if (target.bundleIdentifier.isEmpty())
        return std::nullopt;
    const auto byIdentifier =
        std::ranges::find(running, target.bundleIdentifier, &RunningApplication::bundleIdentifier);
    if (byIdentifier != running.end())
        return *byIdentifier;
    return std::nullopt;
}

void JumpExecution::cancelSwitcher() {
    if (!switcher_.isOpen())
        return;
    ports_.diagnostics.log(QStringLiteral("switcher: cancelled"));
    switcher_.cancel();
}

void JumpExecution::showNotFound(const QString& path) {
    ports_.alerts.show({QStringLiteral("File Not Found"),
                        QStringLiteral("The shortcut target could not be found:\n") + path +
                            QStringLiteral("\n\nThe file may have been moved or deleted."),
                        {QStringLiteral("OK")}},
                       [](int) {});
}

} // namespace skipnest::hotkeys
