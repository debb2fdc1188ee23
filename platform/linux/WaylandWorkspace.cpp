// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/WaylandWorkspace.h"

#include "platform/linux/BundleIdentifiers.h"

#include <QFileInfo>

#include <utility>

namespace skipnest::linuxdesktop {

using platform::Availability;
using platform::Failure;
using platform::Outcome;
using platform::RunningApplication;

WaylandWorkspace::WaylandWorkspace(SessionKind session, const QString& waylandSocket,
                                   DesktopEntries& entries, platform::Scheduler& scheduler,
                                   platform::Executor& executor)
    : session_(session), entries_(entries), scheduler_(scheduler), launcher_(executor),
      activation_(waylandSocket, scheduler) {}

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
    return defaultApplicationFor(path);
}

std::vector<RunningApplication> WaylandWorkspace::runningApplications() const {
    return {};
}

std::optional<RunningApplication> WaylandWorkspace::frontmostApplication() const {
    return std::nullopt;
}

void WaylandWorkspace::openApplication(const QString& path, OpenCompletion completion) {
    launch({path, {}, {}}, std::move(completion));
}

void WaylandWorkspace::openFile(const QString& path, OpenCompletion completion) {
    if (const auto entryPath = defaultApplication(path))
        return launch({*entryPath, {path}, {}}, std::move(completion));
    refuse(
        {Failure::Kind::notFound, QStringLiteral("no application opens %1 by default").arg(path)},
        std::move(completion));
}

void WaylandWorkspace::openUrl(const QUrl& url, OpenCompletion completion) {
    if (url.isLocalFile())
        return openFile(url.toLocalFile(), std::move(completion));
    if (const auto entryPath = defaultApplicationForScheme(url.scheme()))
        return launch({*entryPath, {}, {}, url}, std::move(completion));
    refuse({Failure::Kind::notFound,
            QStringLiteral("no application opens %1 addresses by default").arg(url.scheme())},
           std::move(completion));
}

void WaylandWorkspace::setNextActivationToken(const QString& token) {
    nextToken_ = token;
}

platform::Observation
WaylandWorkspace::observeActivations(std::function<void(const RunningApplication&)>) {
    return {};
}

void WaylandWorkspace::launch(LaunchRequest request, OpenCompletion completion) {
    if (session_ == SessionKind::none)
        return refuse({Failure::Kind::unavailable, availability().reason}, std::move(completion));
    entries_.refresh(request.entryPath);
    const DesktopEntry* entry = entries_.entry(request.entryPath);
    const QString applicationId = entry != nullptr ? entry->id : QString();
    auto start = [this, request = std::move(request),
                  completion = std::move(completion)](const QString& token) mutable {
        request.startupId = token.toUtf8();
        launcher_.launch(request, [completion](const platform::Result<Launched>& launched) {
            if (completion)
                completion(launched ? Outcome(platform::Done{}) : Outcome(launched.failure()));
        });
    };
    if (const QString token = std::exchange(nextToken_, {}); !token.isEmpty())
        return start(token);
    activation_.requestToken(applicationId, std::move(start));
}

void WaylandWorkspace::refuse(Failure failure, OpenCompletion completion) {
    scheduler_.post([failure = std::move(failure), completion = std::move(completion)] {
        if (completion)
            completion(failure);
    });
}

} // namespace skipnest::linuxdesktop
