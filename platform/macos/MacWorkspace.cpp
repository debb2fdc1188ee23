// SPDX-License-Identifier: Apache-2.0
#include "platform/macos/MacWorkspace.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace skipnest::macos {
namespace {

using platform::Failure;
using platform::Outcome;
using platform::RunningApplication;

constexpr QStringView applicationSuffix = u".app";

// The last component; a path to a bundle may end with a slash.
QString fileName(const QString& path) {
    QStringView rest(path);
    while (rest.endsWith(u'/'))
        rest.chop(1);
    return rest.sliced(rest.lastIndexOf(u'/') + 1).toString();
}

bool hasApplicationSuffix(const QString& name) {
    return name.size() > applicationSuffix.size() && name.endsWith(applicationSuffix);
}

// The system would take a relative path as one below our own working folder, and end a path at NUL.
bool usable(const QString& path) {
    return path.startsWith(u'/') && !path.contains(QChar(u'\0'));
}

RunningApplication application(const ApplicationRecord& record) {
    return {.pid = {record.pid},
            .bundleIdentifier = QString::fromStdString(record.bundleIdentifier),
            .bundlePath = QString::fromStdString(record.bundlePath),
            .name = QString::fromStdString(record.name)};
}

struct KnownError {
    std::string_view domain;
    std::int64_t code;
    Failure::Kind kind;
};

constexpr std::string_view cocoa = "NSCocoaErrorDomain";
constexpr std::string_view status = "NSOSStatusErrorDomain";
constexpr auto knownErrors = std::to_array<KnownError>({
    {cocoa, 4, Failure::Kind::notFound},       // NSFileNoSuchFileError
    {cocoa, 260, Failure::Kind::notFound},     // NSFileReadNoSuchFileError
    {cocoa, 257, Failure::Kind::refused},      // NSFileReadNoPermissionError
    {cocoa, 3072, Failure::Kind::refused},     // NSUserCancelledError
    {status, -43, Failure::Kind::notFound},    // fnfErr
    {status, -128, Failure::Kind::refused},    // userCanceledErr
    {status, -10814, Failure::Kind::notFound}, // kLSApplicationNotFoundErr
});

Outcome outcome(const OpenAnswer& answer, const QString& path) {
    if (answer.opened)
        return platform::Done{};
    const auto known = std::ranges::find_if(knownErrors, [&answer](const KnownError& error) {
        return error.domain == answer.errorDomain && error.code == answer.errorCode;
    });
    const Failure::Kind kind = known == knownErrors.end() ? Failure::Kind::system : known->kind;
    return Failure{kind, QStringLiteral("%1: %2 (%3 %4)")
                             .arg(path, QString::fromStdString(answer.errorText),
                                  QString::fromStdString(answer.errorDomain),
                                  QString::number(answer.errorCode))};
}

} // namespace

MacWorkspace::MacWorkspace(WorkspaceBridge& bridge, platform::Scheduler& scheduler)
    : bridge_(bridge), scheduler_(scheduler) {}

platform::Availability MacWorkspace::availability() const {
    return {};
}

bool MacWorkspace::isApplication(const QString& path) const {
    return hasApplicationSuffix(fileName(path));
}

QString MacWorkspace::displayName(const QString& path) const {
    QString name = fileName(path);
    if (hasApplicationSuffix(name))
        name.chop(applicationSuffix.size());
    return name;
}

QString MacWorkspace::bundleIdentifier(const QString& path) const {
    if (!usable(path))
        return {};
    return QString::fromStdString(bridge_.bundleIdentifier(path.toStdString()));
}

std::optional<QString> MacWorkspace::defaultApplication(const QString& path) const {
    if (!usable(path))
        return std::nullopt;
    const std::string found = bridge_.defaultApplication(path.toStdString());
    if (found.empty())
        return std::nullopt;
    return QString::fromStdString(found);
}

std::vector<RunningApplication> MacWorkspace::runningApplications() const {
    std::vector<RunningApplication> applications;
    for (const ApplicationRecord& record : bridge_.running()) {
        // An application that has just ended is still listed, with process id -1.
        if (record.pid > 0)
            applications.push_back(application(record));
    }
    return applications;
}

std::optional<RunningApplication> MacWorkspace::frontmostApplication() const {
    const auto record = bridge_.frontmost();
    if (!record || record->pid <= 0)
        return std::nullopt;
    return application(*record);
}

void MacWorkspace::setNextActivationToken(const QString&) {}

void MacWorkspace::openApplication(const QString& path, OpenCompletion completion) {
    if (!usable(path))
        return refuse(path, std::move(completion));
    bridge_.openApplication(path.toStdString(), answering(path, std::move(completion)));
}

void MacWorkspace::openFile(const QString& path, OpenCompletion completion) {
    if (!usable(path))
        return refuse(path, std::move(completion));
    bridge_.openFile(path.toStdString(), answering(path, std::move(completion)));
}

void MacWorkspace::openUrl(const QUrl& url, OpenCompletion completion) {
    if (url.isLocalFile())
        return openFile(url.toLocalFile(), std::move(completion));
    bridge_.openAddress(url.toEncoded().toStdString(),
                        answering(url.toDisplayString(), std::move(completion)));
}

platform::Observation
MacWorkspace::observeActivations(std::function<void(const RunningApplication&)> activated) {
    if (!std::exchange(observing_, true)) {
        bridge_.observeActivations([this](const ApplicationRecord& record) {
            if (record.pid > 0)
                observers_.notify(application(record));
        });
    }
    return observers_.add(std::move(activated));
}

void MacWorkspace::refuse(const QString& path, OpenCompletion completion) {
    scheduler_.post(
        [alive = std::weak_ptr<bool>(alive_), path, completion = std::move(completion)] {
            if (!alive.expired())
                completion(Failure{Failure::Kind::malformed,
                                   QStringLiteral("%1: no absolute path").arg(path)});
        });
}

WorkspaceBridge::Opened MacWorkspace::answering(const QString& path,
                                                OpenCompletion completion) const {
    return [alive = std::weak_ptr<bool>(alive_), path,
            completion = std::move(completion)](const OpenAnswer& answer) {
        if (!alive.expired())
            completion(outcome(answer, path));
    };
}

} // namespace skipnest::macos
