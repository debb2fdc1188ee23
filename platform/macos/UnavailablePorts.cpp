// SPDX-License-Identifier: Apache-2.0
#include "platform/macos/UnavailablePorts.h"

#include <utility>

namespace skipnest::macos {
namespace {

using platform::Availability;
using platform::Failure;
using platform::Outcome;

constexpr int notImplemented = -4; // unimpErr

Failure unavailable(const QString& subject) {
    return {Failure::Kind::unavailable, notWritten(subject).reason};
}

QString bookmarks() {
    return QStringLiteral("Finding moved targets again");
}
QString files() {
    return QStringLiteral("Reading and writing files");
}
QString instances() {
    return QStringLiteral("Telling running copies apart");
}
QString scripts() {
    return QStringLiteral("Running scripts");
}

} // namespace

Availability notWritten(const QString& subject) {
    return {Availability::State::unavailable,
            QStringLiteral("%1 is not written for macOS yet.").arg(subject),
            QStringLiteral("Use Skipnest on Linux until a later version brings it to macOS.")};
}

UnavailableAlerts::UnavailableAlerts(platform::Scheduler& scheduler,
                                     platform::Diagnostics& diagnostics)
    : scheduler_(scheduler), diagnostics_(diagnostics) {}

void UnavailableAlerts::show(const platform::Alert& alert, std::function<void(int)> answered) {
    diagnostics_.log(
        QStringLiteral("alert: cannot be shown: %1: %2").arg(alert.message, alert.informativeText));
    const int last = static_cast<int>(alert.buttons.size()) - 1;
    scheduler_.post([last, alive = std::weak_ptr<bool>(alive_), answered = std::move(answered)] {
        if (!alive.expired() && answered)
            answered(last);
    });
}

platform::Result<QByteArray> UnavailableBookmarks::create(const QString&) {
    return unavailable(bookmarks());
}
platform::Result<QString> UnavailableBookmarks::resolve(const QByteArray&) {
    return unavailable(bookmarks());
}
platform::ScopedAccess UnavailableBookmarks::startAccessing(const QString&) {
    return {};
}

platform::FileKind UnavailableFiles::kind(const QString&) const {
    return platform::FileKind::none;
}
platform::Result<QByteArray> UnavailableFiles::read(const QString&, std::int64_t) {
    return unavailable(files());
}
platform::Result<QStringList> UnavailableFiles::list(const QString&) {
    return unavailable(files());
}
Outcome UnavailableFiles::createFolder(const QString&) {
    return unavailable(files());
}
Outcome UnavailableFiles::write(const QString&, const QByteArray&) {
    return unavailable(files());
}
Outcome UnavailableFiles::flush(const QString&) {
    return unavailable(files());
}
Outcome UnavailableFiles::flushFolder(const QString&) {
    return unavailable(files());
}
Outcome UnavailableFiles::rename(const QString&, const QString&) {
    return unavailable(files());
}
Outcome UnavailableFiles::remove(const QString&) {
    return unavailable(files());
}

platform::Result<platform::InstanceToken> UnavailableInstanceLock::enterStart() {
    return unavailable(instances());
}
platform::Result<platform::InstanceToken> UnavailableInstanceLock::acquire() {
    return unavailable(instances());
}
std::optional<platform::ProcessIdentifier> UnavailableInstanceLock::holder() const {
    return std::nullopt;
}
Outcome UnavailableInstanceLock::endHolder(platform::Termination) {
    return unavailable(instances());
}

bool UnavailablePeerCredentials::isSameUser(std::intptr_t) const {
    return false;
}

Availability UnavailableScriptRunner::availability() const {
    return notWritten(scripts());
}
platform::ScriptAnswer UnavailableScriptRunner::run(const platform::ScriptRequest&,
                                                    platform::Duration) {
    return platform::ScriptError{notImplemented, notWritten(scripts()).reason};
}

} // namespace skipnest::macos
