// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/WaylandWorkspace.h"

#include "platform/linux/ActivationLaunch.h"
#include "platform/linux/BundleIdentifiers.h"

#include <QFileInfo>

#include <utility>

namespace skipnest::linuxdesktop {

using platform::Availability;
using platform::Failure;
using platform::Outcome;
using platform::RunningApplication;

WaylandWorkspace::WaylandWorkspace(SessionKind session, const QString& waylandSocket,
                                   DesktopEntries& entries, platform::Scheduler& scheduler)
    : session_(session), entries_(entries), scheduler_(scheduler),
      activation_(waylandSocket, scheduler) {
}

Availability WaylandWorkspace::availability() const {
    if (session_ == SessionKind::none)
        return {Availability::State::unavailable,
                QStringLiteral("No X server or Wayland compositor answers, so nothing that is "
                               "opened could be seen."),
                QStringLiteral("Start Skipnest from inside a graphical session.")};
    return {Availability::State::limited,
            QStringLiteral("A Wayland compositor does not tell which applications run or which is "
                           "in front. A jump starts its target; a program that allows only one "
                           "instance of itself comes to the front, any other opens another "
                           "window."),
            QStringLiteral("Log in to an X11 session to switch between windows that are open.")};
}

bool WaylandWorkspace::isApplication(const QString& path) const {
    return path.endsWith(QStringLiteral(".desktop"));
}

QString WaylandWorkspace::displayName(const QString& path) const {
    if (!isApplication(path))
        return QFileInfo(path).fileName();
    const DesktopEntry* entry = entries_.entry(path);
    return entry != nullptr && !entry->name.isEmpty() ? entry->name
                                                      : QFileInfo(path).completeBaseName();
}

QString WaylandWorkspace::bundleIdentifier(const QString& path) const {
    const DesktopEntry* entry = entries_.entry(path);
    return entry != nullptr ? bundleIdentifierOf(entry->id) : QString();
}

std::optional<QString> WaylandWorkspace::defaultApplication(const QString& path) const {
    return defaultEntryFor(path);
}

std::vector<RunningApplication> WaylandWorkspace::runningApplications() const {
    return {};
}

std::optional<RunningApplication> WaylandWorkspace::frontmostApplication() const {
    return std::nullopt;
}

void WaylandWorkspace::openApplication(const QString& path, OpenCompletion completion) {
    launchWithToken(
        path, [path](const QString& token) { return launchEntry(path, token); },
        std::move(completion));
}

void WaylandWorkspace::openFile(const QString& path, OpenCompletion completion) {
    const auto entryPath = defaultApplication(path);
    if (!entryPath)
        return refuse({Failure::Kind::notFound,
                       QStringLiteral("no application opens %1 by default").arg(path)},
                      std::move(completion));
    launchWithToken(
        *entryPath,
        [entryPath = *entryPath, path](const QString& token) {
            return launchEntryOn(entryPath, path, token);
        },
        std::move(completion));
}

platform::Observation
WaylandWorkspace::observeActivations(std::function<void(const RunningApplication&)>) {
    return {};
}

void WaylandWorkspace::launchWithToken(const QString& entryPath, Launch launch,
                                       OpenCompletion completion) {
    if (session_ == SessionKind::none)
        return refuse({Failure::Kind::unavailable, availability().reason}, std::move(completion));
    auto start = [launch = std::move(launch),
                  completion = std::move(completion)](const QString& token) {
        const Outcome launched = launch(token);
        if (completion)
            completion(launched);
    };
    if (const QString token = std::exchange(nextToken_, {}); !token.isEmpty()) {
        scheduler_.post([start = std::move(start), token] { start(token); });
        return;
    }
    const DesktopEntry* entry = entries_.entry(entryPath);
    activation_.requestToken(entry != nullptr ? entry->id : QString(), std::move(start));
}

void WaylandWorkspace::refuse(Failure failure, OpenCompletion completion) {
    scheduler_.post([failure = std::move(failure), completion = std::move(completion)] {
        if (completion)
            completion(failure);
    });
}

} // namespace skipnest::linuxdesktop
