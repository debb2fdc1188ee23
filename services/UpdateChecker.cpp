// SPDX-License-Identifier: Apache-2.0
#include "services/UpdateChecker.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <algorithm>
#include <compare>
#include <utility>

namespace skipnest::services {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using platform::Failure;
using platform::HttpReply;
using platform::Result;

constexpr qsizetype longestVersion = 64;
constexpr qsizetype longestUrl = 2048;

bool isDottedNumbers(const QString& text) {
    static const QRegularExpression form(u"\\A[0-9]+(\\.[0-9]+)*\\z"_s);
    return text.size() <= longestVersion && form.match(text).hasMatch();
}

// Digits of any number, so that no size overflows.
std::strong_ordering compareNumbers(QStringView left, QStringView right) {
    while (left.startsWith(u'0'))
        left = left.sliced(1);
    while (right.startsWith(u'0'))
        right = right.sliced(1);
    if (left.size() != right.size())
        return left.size() <=> right.size();
    return left.compare(right) <=> 0;
}

std::strong_ordering compareVersions(const QString& left, const QString& right) {
    const QStringList leftParts = left.split(u'.');
    const QStringList rightParts = right.split(u'.');
    for (qsizetype i = 0; i < std::max(leftParts.size(), rightParts.size()); ++i) {
        const auto order = compareNumbers(leftParts.value(i), rightParts.value(i));
        if (order != std::strong_ordering::equal)
            return order;
    }
    return std::strong_ordering::equal;
}

bool isAllowedPage(const QString& text, ReleasePages pages) {
    const QUrl url(text, QUrl::StrictMode);
    if (text.size() > longestUrl || !url.isValid() || url.host().isEmpty() ||
        !url.userInfo().isEmpty())
        return false;
    const bool isHere = url.host() == u"127.0.0.1" || url.host() == u"::1";
    return url.scheme() == u"https" ||
           (pages == ReleasePages::httpsOrThisMachine && url.scheme() == u"http" && isHere);
}

} // namespace

Result<Release> decodeRelease(const QByteArray& bytes, ReleasePages pages) {
    const QJsonDocument document = QJsonDocument::fromJson(bytes);
    if (!document.isObject())
        return Failure{Failure::Kind::malformed, u"no JSON object"_s};
    const QJsonObject object = document.object();
    for (const QLatin1StringView name : {"version"_L1, "build"_L1, "url"_L1, "notes"_L1}) {
        if (!object.value(name).isString())
            return Failure{Failure::Kind::malformed, u"no text \"%1\""_s.arg(name)};
    }
    Release release{object.value("version"_L1).toString(), object.value("build"_L1).toString(),
                    object.value("url"_L1).toString(), object.value("notes"_L1).toString()};
    if (!isDottedNumbers(release.version) || !isDottedNumbers(release.build))
        return Failure{Failure::Kind::malformed, u"no version of dotted numbers"_s};
    if (!isAllowedPage(release.url, pages))
        return Failure{Failure::Kind::malformed, u"no https address"_s};
    return release;
}

bool isNewer(const Release& release, const QString& version, const QString& build) {
    for (const QString& text : {release.version, release.build, version, build}) {
        if (!isDottedNumbers(text))
            return false;
    }
    const auto order = compareVersions(release.version, version);
    return order > 0 || (order == 0 && compareVersions(release.build, build) > 0);
}

UpdateChecker::UpdateChecker(platform::WebService& web, platform::Workspace& workspace,
                             platform::Scheduler& scheduler, platform::Diagnostics& diagnostics,
                             const platform::AppInfo& app)
    : web_(web), workspace_(workspace), scheduler_(scheduler), diagnostics_(diagnostics),
      version_(app.version), build_(app.build) {}

UpdateChecker::~UpdateChecker() = default;

void UpdateChecker::start() {
    if (!web_.isConfigured())
        return;
    check();
    timer_ = scheduler_.every(24h, "update check", [this] { check(); });
}

void UpdateChecker::check() {
    if (std::exchange(isChecking_, true))
        return;
    web_.get(u"/version.json"_s, {},
             [this, alive = std::weak_ptr(alive_)](const Result<HttpReply>& reply) {
                 if (!alive.expired())
                     take(reply);
             });
}

void UpdateChecker::take(const Result<HttpReply>& reply) {
    isChecking_ = false;
    const auto fail = [this](const QString& why) {
        diagnostics_.log(u"update: check failed ("_s + why + u')');
        Q_EMIT checked(Outcome::failed);
    };
    if (!reply)
        return fail(reply.failure().detail);
    const auto pages = web_.url(u"/"_s).scheme() == u"https" ? ReleasePages::httpsOnly
                                                             : ReleasePages::httpsOrThisMachine;
    const auto release = decodeRelease(reply->body, pages);
    if (!release)
        return fail(u"bad payload"_s);
    if (!reply->isSuccess())
        return fail(u"status %1"_s.arg(reply->status));
    const bool newer = isNewer(*release, version_, build_);
    diagnostics_.log(u"update: remote %1 (%2) newer=%3"_s.arg(release->version, release->build,
                                                              newer ? u"true"_s : u"false"_s));
    offer(newer ? std::optional(*release) : std::nullopt);
    Q_EMIT checked(newer ? Outcome::newer : Outcome::newest);
}

void UpdateChecker::offer(std::optional<Release> release) {
    if (release == available_)
        return;
    available_ = std::move(release);
    Q_EMIT availableChanged();
}

void UpdateChecker::open() {
    if (!available_)
        return;
    diagnostics_.log(u"update: opening "_s + available_->url);
    workspace_.openUrl(QUrl(available_->url, QUrl::StrictMode),
                       [&diagnostics = diagnostics_](const platform::Outcome& outcome) {
                           if (!outcome)
                               diagnostics.log(u"update: could not open the page ("_s +
                                               outcome.failure().detail + u')');
                       });
}

} // namespace skipnest::services
