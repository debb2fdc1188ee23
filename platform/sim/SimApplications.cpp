// SPDX-License-Identifier: Apache-2.0
#include "platform/sim/SimApplications.h"

#include <QUrl>

#include <algorithm>
#include <utility>

namespace skipnest::sim {

using namespace Qt::StringLiterals;
using platform::ActivationOption;
using platform::Done;
using platform::Failure;
using platform::FileKind;
using platform::Outcome;
using platform::ProcessIdentifier;
using platform::RunningApplication;

namespace {

RunningApplication running(const SimApp& app) {
    return {app.pid, app.bundleIdentifier, app.path, app.name};
}

QString optionText(ActivationOption option) {
    switch (option) {
    case ActivationOption::none:
        return u"none"_s;
    case ActivationOption::allWindows:
        return u"allWindows"_s;
    case ActivationOption::ignoringOtherApps:
        return u"ignoringOtherApps"_s;
    }
    return {};
}

Failure notFound(const QString& detail) {
    return {Failure::Kind::notFound, detail};
}

Failure notRunning(const QString& name) {
    return notFound(u"%1 is not running"_s.arg(name));
}

Failure noProcess(ProcessIdentifier pid) {
    return notFound(u"no application has pid %1"_s.arg(pid.value));
}

} // namespace

SimApplications::SimApplications(platform::Scheduler& scheduler, Journal& journal,
                                 platform::Files& files, RunningApplication self)
    : scheduler_(scheduler), journal_(journal), files_(files), self_(std::move(self)) {}

SimApplications::~SimApplications() {
    *alive_ = false;
}

void SimApplications::soon(std::function<void()> effect) {
    scheduler_.post([alive = alive_, effect = std::move(effect)] {
        if (*alive)
            effect();
    });
}

SimApplications::Entry* SimApplications::entry(const QString& name) {
    return const_cast<Entry*>(std::as_const(*this).entry(name));
}

const SimApplications::Entry* SimApplications::entry(const QString& name) const {
    const auto found = std::ranges::find_if(
        entries_, [&name](const Entry& entry) { return entry.app.name == name; });
    return found == entries_.end() ? nullptr : &*found;
}

const SimApplications::Entry* SimApplications::entryAt(const QString& path) const {
    const auto found = std::ranges::find_if(
        entries_, [&path](const Entry& entry) { return entry.app.path == path; });
    return path.isEmpty() || found == entries_.end() ? nullptr : &*found;
}

SimApplications::Entry* SimApplications::entryWithIdentifier(const QString& bundleIdentifier) {
    const auto found = std::ranges::find_if(entries_, [&](const Entry& entry) {
        return entry.app.running == Running::yes && entry.app.bundleIdentifier == bundleIdentifier;
    });
    return bundleIdentifier.isEmpty() || found == entries_.end() ? nullptr : &*found;
}

ProcessIdentifier SimApplications::freePid() {
    do
        ++lastPid_;
    while (findRunning({lastPid_}) || lastPid_ == self_.pid.value);
    return {lastPid_};
}

void SimApplications::install(const SimApp& app) {
    Entry* known = entry(app.name);
    if (!known) {
        entries_.emplace_back().app.name = app.name;
        known = &entries_.back();
        known->app.running = Running::no;
    }
    const bool ran = known->app.running == Running::yes;
    const QString oldPath = known->app.path;
    const ProcessIdentifier oldPid = known->app.pid;
    if (ran && app.running == Running::no)
        end(*known);

    const std::vector<SimWindow> before = std::exchange(known->app, app).windows;
    numberWindows(known->app.windows, before);
    known->app.running = ran ? app.running : Running::no;
    if (oldPath != app.path && !oldPath.isEmpty() && !entryAt(oldPath))
        (void)files_.remove(oldPath);
    if (!app.path.isEmpty())
        (void)files_.createFolder(app.path);

    if (app.running == Running::no)
        return;
    if (ran && app.pid.value < 0)
        known->app.pid = oldPid;
    if (ran && active_ == oldPid)
        active_ = known->app.pid;
    if (!ran)
        launch(*known);
}

void SimApplications::numberWindows(std::vector<SimWindow>& windows,
                                    const std::vector<SimWindow>& before) {
    std::vector<SimWindow> left = before;
    for (SimWindow& window : windows) {
        const auto same = std::ranges::find(left, window.title, &SimWindow::title);
        window.id = same == left.end() ? ++lastWindowId_ : same->id;
        if (same != left.end())
            left.erase(same);
    }
}

void SimApplications::launch(Entry& entry) {
    if (entry.hasRun || entry.app.pid.value < 0 || findRunning(entry.app.pid))
        entry.app.pid = freePid();
    entry.hasRun = true;
    entry.hidden = false;
    entry.app.running = Running::yes;
    order_.push_back(entry.app.name);
}

void SimApplications::end(Entry& entry) {
    entry.app.running = Running::no;
    entry.hidden = false;
    std::erase(order_, entry.app.name);
    if (front_ == entry.app.name)
        promoteNext();
}

void SimApplications::toFront(Entry& entry) {
    entry.hidden = false;
    std::erase(order_, entry.app.name);
    order_.insert(order_.begin(), entry.app.name);
    setFront(entry.app.name);
}

void SimApplications::promoteNext() {
    const auto next = std::ranges::find_if(
        order_, [this](const QString& name) { return !isHidden(name) && name != front_; });
    setFront(next == order_.end() ? QString() : *next);
}

void SimApplications::setFront(const QString& name) {
    front_ = name;
    const Entry* inFront = entry(name);
    const ProcessIdentifier pid = inFront ? inFront->app.pid : ProcessIdentifier{};
    if (std::exchange(active_, pid) != pid && inFront)
        tell(running(inFront->app));
}

void SimApplications::tell(const RunningApplication& activated) {
    soon([this, activated] { observers_.notify(activated); });
}

Outcome SimApplications::bringToFront(const QString& name) {
    Entry* app = entry(name);
    if (!app || app->app.running == Running::no)
        return notRunning(name);
    toFront(*app);
    return Done{};
}

Outcome SimApplications::quit(const QString& name) {
    Entry* app = entry(name);
    if (!app || app->app.running == Running::no)
        return notRunning(name);
    end(*app);
    return Done{};
}

Outcome SimApplications::ignoreHide(const QString& name) {
    Entry* app = entry(name);
    if (!app)
        return notFound(u"%1 is not installed"_s.arg(name));
    app->ignoresHide = true;
    return Done{};
}

Outcome SimApplications::withholdFocus(const QString& name) {
    Entry* app = entry(name);
    if (!app)
        return notFound(u"%1 is not installed"_s.arg(name));
    app->focusWithheld = true;
    return Done{};
}

Outcome SimApplications::ignoreQuit(const QString& name) {
    Entry* app = entry(name);
    if (!app)
        return notFound(u"%1 is not installed"_s.arg(name));
    app->ignoresQuit = true;
    return Done{};
}

void SimApplications::setDefaultApplication(const QString& path, const QString& name) {
    opens_[path] = name;
}

void SimApplications::refuseOpen(const QString& path, const Failure& failure) {
    refusedPaths_[path] = failure;
}

const SimApp* SimApplications::find(const QString& name) const {
    const Entry* found = entry(name);
    return found ? &found->app : nullptr;
}

const SimApp* SimApplications::findRunning(ProcessIdentifier pid) const {
    const auto found = std::ranges::find_if(entries_, [pid](const Entry& entry) {
        return entry.app.running == Running::yes && entry.app.pid == pid;
    });
    return found == entries_.end() ? nullptr : &found->app;
}

SimApp* SimApplications::findRunning(ProcessIdentifier pid) {
    return const_cast<SimApp*>(std::as_const(*this).findRunning(pid));
}

QString SimApplications::frontName() const {
    return front_;
}

std::vector<std::string> SimApplications::activationOrder() const {
    std::vector<std::string> names;
    for (const QString& name : order_)
        names.push_back(name.toStdString());
    return names;
}

bool SimApplications::isHidden(const QString& name) const {
    const Entry* found = entry(name);
    return found && found->hidden;
}

bool SimApplications::minimizeNext(const QString& bundleIdentifier) {
    Entry* app = entryWithIdentifier(bundleIdentifier);
    if (!app || app->app.windows.empty())
        return app != nullptr;
    const auto open = std::ranges::find(app->app.windows, false, &SimWindow::minimized);
    if (open == app->app.windows.end())
        return false;
    open->minimized = true;
    return true;
}

bool SimApplications::restorePrevious(const QString& bundleIdentifier) {
    Entry* app = entryWithIdentifier(bundleIdentifier);
    if (!app || app->app.windows.empty())
        return app != nullptr;
    auto& windows = app->app.windows;
    const auto last = std::find_if(windows.rbegin(), windows.rend(),
                                   [](const SimWindow& window) { return window.minimized; });
    if (last == windows.rend())
        return false;
    last->minimized = false;
    return true;
}

bool SimApplications::isApplication(const QString& path) const {
    return path.endsWith(u".app");
}

QString SimApplications::displayName(const QString& path) const {
    if (const Entry* app = entryAt(path))
        return app->app.name;
    const QString name = path.mid(path.lastIndexOf(u'/') + 1);
    return name.endsWith(u".app") ? name.chopped(4) : name;
}

QString SimApplications::bundleIdentifier(const QString& path) const {
    const Entry* app = entryAt(path);
    return app ? app->app.bundleIdentifier : QString();
}

std::optional<QString> SimApplications::defaultApplication(const QString& path) const {
    const auto opens = opens_.find(path);
    const Entry* app = opens == opens_.end() ? nullptr : entry(opens->second);
    if (!app || app->app.path.isEmpty())
        return std::nullopt;
    return app->app.path;
}

std::vector<RunningApplication> SimApplications::runningApplications() const {
    std::vector<RunningApplication> apps;
    for (const Entry& entry : entries_)
        if (entry.app.running == Running::yes)
            apps.push_back(running(entry.app));
    return apps;
}

std::optional<RunningApplication> SimApplications::frontmostApplication() const {
    const Entry* inFront = entry(front_);
    return inFront ? std::optional(running(inFront->app)) : std::nullopt;
}

void SimApplications::openApplication(const QString& path, OpenCompletion completion) {
    journal_.call(u"openApplication"_s, {{u"path"_s, path}});
    soon([this, path, completion = std::move(completion)] {
        const auto refused = refusedPaths_.find(path);
        if (refused != refusedPaths_.end())
            return completion(refused->second);
        const Entry* found = entryAt(path);
        if (!found || files_.kind(path) == FileKind::none)
            return completion(notFound(u"no application is at %1"_s.arg(path)));
        Entry& app = *entry(found->app.name);
        if (app.app.running == Running::no)
            launch(app);
        if (!app.focusWithheld)
            toFront(app);
        completion(Done{});
    });
}

void SimApplications::openFile(const QString& path, OpenCompletion completion) {
    const QString url = QString::fromLatin1(QUrl::fromLocalFile(path).toEncoded());
    journal_.call(u"openURL"_s, {{u"url"_s, url}});
    soon([this, path, completion = std::move(completion)] {
        const auto refused = refusedPaths_.find(path);
        if (refused != refusedPaths_.end())
            return completion(refused->second);
        if (files_.kind(path) == FileKind::none)
            return completion(notFound(u"nothing is at %1"_s.arg(path)));
        const auto opens = opens_.find(path);
        if (Entry* app = opens == opens_.end() ? nullptr : entry(opens->second)) {
            if (app->app.running == Running::no)
                launch(*app);
            toFront(*app);
        }
        completion(Done{});
    });
}

void SimApplications::openUrl(const QUrl& url, OpenCompletion completion) {
    if (url.isLocalFile())
        return openFile(url.toLocalFile(), std::move(completion));
    const bool isSettingsPage = url.scheme() == u"x-apple.systempreferences";
    journal_.call(isSettingsPage ? u"openSettings"_s : u"openURL"_s,
                  {{u"url"_s, QString::fromLatin1(url.toEncoded())}});
    soon([completion = std::move(completion)] { completion(Done{}); });
}

platform::Observation
SimApplications::observeActivations(std::function<void(const RunningApplication&)> activated) {
    return observers_.add(std::move(activated));
}

platform::ApplicationState SimApplications::state(ProcessIdentifier pid) const {
    if (pid == self_.pid)
        return {.active = active_ == pid};
    const SimApp* app = findRunning(pid);
    if (!app)
        return {.terminated = true};
    return {.active = app->name == front_, .hidden = isHidden(app->name)};
}

Outcome SimApplications::activate(ProcessIdentifier pid, ActivationOption option) {
    const SimApp* app = pid == self_.pid ? nullptr : findRunning(pid);
    if (!app && pid != self_.pid)
        return noProcess(pid);
    journal_.call(u"activate"_s,
                  {{u"app"_s, app ? app->name : self_.name}, {u"options"_s, optionText(option)}});
    soon([this, pid, option] {
        if (pid == self_.pid) {
            if (std::exchange(active_, pid) != pid)
                tell(self_);
        } else if (const SimApp* target = findRunning(pid)) {
            Entry& activated = *entry(target->name);
            if (!activated.focusWithheld || option == ActivationOption::ignoringOtherApps)
                toFront(activated);
        }
    });
    return Done{};
}

Outcome SimApplications::hide(ProcessIdentifier pid) {
    const SimApp* app = findRunning(pid);
    if (!app)
        return noProcess(pid);
    journal_.call(u"hide"_s, {{u"app"_s, app->name}});
    soon([this, pid] {
        const SimApp* target = findRunning(pid);
        Entry* hiding = target ? entry(target->name) : nullptr;
        if (!hiding || hiding->ignoresHide)
            return;
        hiding->hidden = true;
        if (front_ == hiding->app.name)
            promoteNext();
    });
    return Done{};
}

Outcome SimApplications::terminate(ProcessIdentifier pid, platform::Termination termination) {
    const SimApp* app = findRunning(pid);
    if (!app)
        return noProcess(pid);
    journal_.call(u"terminate"_s, {{u"app"_s, app->name}});
    soon([this, pid, termination] {
        const SimApp* target = findRunning(pid);
        Entry* ending = target ? entry(target->name) : nullptr;
        const bool ends =
            ending && (termination == platform::Termination::forced || !ending->ignoresQuit);
        if (ends)
            end(*ending);
    });
    return Done{};
}

} // namespace skipnest::sim
