// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/X11Workspace.h"

#include "platform/linux/BundleIdentifiers.h"

#include <QFileInfo>

#include <utility>

namespace skipnest::linuxdesktop {
namespace {

using namespace std::chrono_literals;
using platform::Failure;
using platform::Outcome;
using platform::RunningApplication;

// A second press while a program starts is impatience, not the wish for a second copy. A process
// that shows nothing for longer has no window to wait for: pressing again may make it show one.
constexpr platform::Duration startingTime = 10s;
// Many programs are started by one that ends as soon as it has started the other; its window comes
// within that time. For one that failed it is about as long as a person waits before a second try.
constexpr platform::Duration handOverTime = 2s;

QString suffix() {
    return QStringLiteral(".desktop");
}

QString fileName(const QString& path) {
    return path.mid(path.lastIndexOf(u'/') + 1);
}

} // namespace

X11Workspace::X11Workspace(platform::Scheduler& scheduler, DesktopEntries& entries,
                           X11Windows& windows, X11Applications& applications,
                           X11WindowCommands& commands, ApplicationLauncher& launcher,
                           X11StartupNotification& startup)
    : scheduler_(scheduler), entries_(entries), windows_(windows), applications_(applications),
      commands_(commands), launcher_(launcher), startup_(startup) {
    applications_.update();
    if (const X11Application* active = applications_.active())
        activeIdentity_ = active->identity.id;
    changes_ = windows_.observeChanges([this] { windowsChanged(); });
}

platform::Availability X11Workspace::availability() const {
    using State = platform::Availability::State;
    applications_.update();
    if (windows_.hasWindowManager())
        return {};
    return {State::limited,
            QStringLiteral("No window manager runs: windows are raised without its help, and "
                           "applications coming to the front are not noticed."),
            QStringLiteral("Start a window manager.")};
}

bool X11Workspace::isApplication(const QString& path) const {
    return path.endsWith(suffix());
}

QString X11Workspace::displayName(const QString& path) const {
    if (!isApplication(path))
        return fileName(path);
    const DesktopEntry* entry = entries_.entry(path);
    return entry != nullptr && !entry->name.isEmpty() ? entry->name
                                                      : fileName(path).chopped(suffix().size());
}

QString X11Workspace::bundleIdentifier(const QString& path) const {
    if (!isApplication(path))
        return {};
    const DesktopEntry* entry = entries_.entry(path);
    return bundleIdentifierOf(entry != nullptr ? entry->id : fileName(path));
}

std::optional<QString> X11Workspace::defaultApplication(const QString& path) const {
    return defaultApplicationFor(path);
}

std::vector<RunningApplication> X11Workspace::runningApplications() const {
    applications_.update();
    std::vector<RunningApplication> running;
    running.reserve(applications_.all().size());
    for (const X11Application& application : applications_.all())
        running.push_back(application.described());
    return running;
}

std::optional<RunningApplication> X11Workspace::frontmostApplication() const {
    applications_.update();
    if (const X11Application* active = applications_.active())
        return active->described();
    return std::nullopt;
}

void X11Workspace::openApplication(const QString& path, OpenCompletion completion) {
    applications_.update();
    const X11Application* running = applications_.startedBy(path);
    if (running == nullptr) {
        // Starting a program takes long enough to make sure first that it does not run.
        entries_.refresh(path);
        windows_.relist();
        applications_.update();
        running = applications_.startedBy(path);
    }
    if (running != nullptr) {
        commands_.activate(running->windows.front());
        succeed(std::move(completion));
    } else if (stillStarting(path)) {
        succeed(std::move(completion));
    } else {
        launch(path, {}, std::move(completion));
    }
}

void X11Workspace::openFile(const QString& path, OpenCompletion completion) {
    if (!QFileInfo::exists(path)) {
        fail(std::move(completion),
             {Failure::Kind::notFound, QStringLiteral("%1 does not exist").arg(path)});
        return;
    }
    if (const std::optional<QString> handler = defaultApplicationFor(path)) {
        launch(*handler, {path}, std::move(completion));
        return;
    }
    fail(std::move(completion),
         {Failure::Kind::notFound, QStringLiteral("No application is set to open %1").arg(path)});
}

void X11Workspace::openUrl(const QUrl& url, OpenCompletion completion) {
    if (url.isLocalFile())
        return openFile(url.toLocalFile(), std::move(completion));
    if (const auto handler = defaultApplicationForScheme(url.scheme()))
        return launch(*handler, {}, std::move(completion), url);
    fail(std::move(completion),
         {Failure::Kind::notFound,
          QStringLiteral("No application is set to open %1 addresses").arg(url.scheme())});
}

platform::Observation
X11Workspace::observeActivations(std::function<void(const RunningApplication&)> activated) {
    return activated_.add(std::move(activated));
}

void X11Workspace::windowsChanged() {
    applications_.update();
    std::erase_if(starting_, [this](const auto& starting) {
        return applications_.startedBy(starting.first) != nullptr;
    });
    // No active window, or one of the desktop itself, is no application coming to the front.
    const X11Application* active = applications_.active();
    if (active == nullptr || active->identity.id == activeIdentity_)
        return;
    activeIdentity_ = active->identity.id;
    activated_.notify(active->described());
}

void X11Workspace::succeed(OpenCompletion completion) {
    scheduler_.post([completion = std::move(completion)] { completion(platform::Done{}); });
}

void X11Workspace::fail(OpenCompletion completion, Failure failure) {
    scheduler_.post([completion = std::move(completion), failure = std::move(failure)] {
        completion(failure);
    });
}

void X11Workspace::launch(const QString& entryPath, const QStringList& files,
                          OpenCompletion completion, const QUrl& url) {
    const DesktopEntry* entry = entries_.entry(entryPath);
    const bool announced = entry != nullptr && entry->startupNotify;
    const QByteArray startupId =
        announced ? startup_.begin(*entry, windows_.currentDesktop()) : QByteArray();
    const bool application = files.isEmpty() && url.isEmpty();
    if (application)
        starting_[entryPath] = {scheduler_.now(), nullptr};
    launcher_.launch(
        {entryPath, files, startupId, url},
        [this, entryPath, startupId, application, completion = std::move(completion),
         alive = std::weak_ptr(alive_)](const platform::Result<Launched>& launched) {
            if (alive.expired())
                return;
            const auto starting = starting_.find(entryPath);
            if (application && starting != starting_.end()) {
                if (launched && launched->pid > 1)
                    starting->second.process = std::make_shared<ProcessHandle>(launched->pid);
                else
                    starting_.erase(starting);
            }
            if (!launched && !startupId.isEmpty())
                startup_.remove(startupId);
            completion(launched ? Outcome(platform::Done{}) : Outcome(launched.failure()));
        });
}

bool X11Workspace::stillStarting(const QString& path) {
    const auto found = starting_.find(path);
    if (found == starting_.end())
        return false;
    const Starting& starting = found->second;
    const bool running = !starting.process || starting.process->running();
    if (scheduler_.now() - starting.since < (running ? startingTime : handOverTime))
        return true;
    starting_.erase(found);
    return false;
}

} // namespace skipnest::linuxdesktop
