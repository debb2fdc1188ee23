// SPDX-License-Identifier: Apache-2.0
#include "services/CrashReporter.h"

#include <utility>

namespace skipnest::services {
namespace {

using namespace Qt::StringLiterals;
using platform::Failure;
using platform::HttpReply;
using platform::Result;

constexpr std::int64_t longestRecord = std::int64_t{64} * 1024;

QString seenKey() {
    return u"sk.crash.seen"_s;
}

} // namespace

CrashReporter::CrashReporter(platform::WebService& web, platform::Files& files,
                             platform::UserDefaults& defaults, const InstallIdentity& identity,
                             platform::Diagnostics& diagnostics, const platform::AppInfo& app)
    : web_(web), files_(files), defaults_(defaults), identity_(identity), diagnostics_(diagnostics),
      file_(app.supportFolder + u"/pending-crash.json"_s) {}

CrashReporter::~CrashReporter() = default;

std::optional<CrashRecord> CrashReporter::read() {
    const Result<QByteArray> bytes = files_.read(file_, longestRecord);
    Failure why;
    if (bytes) {
        const Result<CrashRecord> record = decodeCrashRecord(*bytes);
        if (record) {
            bytes_ = *bytes;
            return *record;
        }
        why = record.failure();
    } else if (bytes.failure().kind == Failure::Kind::notFound) {
        return std::nullopt;
    } else {
        why = bytes.failure();
    }
    const bool isCorrupt =
        why.kind == Failure::Kind::malformed || why.kind == Failure::Kind::tooLarge;
    const platform::Outcome moved =
        isCorrupt ? files_.rename(file_, file_ + u".corrupt"_s) : platform::Outcome(why);
    diagnostics_.log(u"crash: the record of the previous run is not sent ("_s + why.detail +
                     u")"_s + (moved ? u", moved aside"_s : QString()));
    return std::nullopt;
}

void CrashReporter::start(bool agreed) {
    if (isSent_)
        return;
    std::optional<CrashRecord> record = read();
    if (!agreed || !web_.isConfigured())
        record.reset();
    const bool isAsked = record && !defaults_.value(seenKey()).toBool();
    if (record && !isAsked)
        send(*record);
    setWaiting(isAsked ? std::move(record) : std::nullopt);
}

void CrashReporter::setWaiting(std::optional<CrashRecord> record) {
    if (std::exchange(waiting_, std::move(record)) != waiting_)
        Q_EMIT waitingChanged();
}

platform::FormFields CrashReporter::fields(const CrashRecord& record) const {
    platform::FormFields fields = identity_.commonFields();
    fields.insert(fields.end(), {{u"type"_s, record.type},
                                 {u"name"_s, record.name},
                                 {u"reason"_s, record.reason},
                                 {u"stack"_s, record.stack}});
    return fields;
}

QString CrashReporter::preview() const {
    QString text;
    if (waiting_) {
        for (const auto& [name, value] : fields(*waiting_))
            text += name + u": "_s + value + u'\n';
    }
    return text;
}

void CrashReporter::sendWaiting() {
    if (!waiting_)
        return;
    // Unsaved, the next one asks again.
    (void)defaults_.setValue(seenKey(), true);
    const CrashRecord record = *waiting_;
    send(record);
    setWaiting(std::nullopt);
}

void CrashReporter::discardWaiting() {
    if (!waiting_)
        return;
    removeRecord();
    setWaiting(std::nullopt);
}

void CrashReporter::send(const CrashRecord& record) {
    isSent_ = true;
    diagnostics_.log(u"crash: reporting "_s + record.type + u" from previous run"_s);
    web_.post(u"/crash.php"_s, fields(record),
              [this, alive = std::weak_ptr(alive_)](const Result<HttpReply>& reply) {
                  if (!alive.expired())
                      take(reply);
              });
}

void CrashReporter::take(const Result<HttpReply>& reply) {
    if (reply && reply->isSuccess())
        return removeRecord();
    const QString why =
        reply ? u"status="_s + QString::number(reply->status) : reply.failure().detail;
    diagnostics_.log(u"crash: report failed ("_s + why + u")"_s);
}

void CrashReporter::removeRecord() {
    // Another run of ours may have ended meanwhile, and left its own.
    const Result<QByteArray> now = files_.read(file_, longestRecord);
    if (now && *now != bytes_)
        return;
    if (const platform::Outcome removed = files_.remove(file_); !removed) {
        diagnostics_.log(u"crash: the record stays ("_s + removed.failure().detail + u")"_s);
        return;
    }
    // So that it does not come back, and is not sent again, after the power fails.
    (void)files_.flushFolder(file_.section(u'/', 0, -2));
}

} // namespace skipnest::services
