// SPDX-License-Identifier: Apache-2.0
#include "stats/ChallengeCoding.h"

#include "model/Timestamp.h"
#include "stats/ChallengeName.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <array>
#include <cmath>

namespace skipnest::stats {
namespace {

using State = ChallengeService::State;

constexpr auto knownKeys =
    std::to_array<QStringView>({u"joined", u"name", u"country", u"id", u"lastRank", u"lastOf",
                                u"lastSubmit", u"awarded", u"weekAnchorRank", u"weekAnchorDate"});

QJsonValue dateValue(const std::optional<QDateTime>& date) {
    return date ? QJsonValue(model::timestampText(*date)) : QJsonValue(QJsonValue::Undefined);
}

// Takes the members one after the other; `isRight` stays true while each is absent or right.
class Reader {
public:
    explicit Reader(const QJsonObject& object) : object_(object) {}

    bool boolean(QStringView key) {
        const QJsonValue value = object_.value(key);
        isRight = isRight && (value.isUndefined() || value.isBool());
        return value.toBool();
    }
    QString text(QStringView key) {
        const QJsonValue value = object_.value(key);
        isRight = isRight && (value.isUndefined() || value.isString());
        return value.toString();
    }
    std::int64_t count(QStringView key) {
        const QJsonValue value = object_.value(key);
        const auto number = wholeNumber(value);
        isRight = isRight && (value.isUndefined() || (number && *number >= 0));
        return number.value_or(0);
    }
    QStringList texts(QStringView key) {
        const QJsonValue value = object_.value(key);
        isRight = isRight && (value.isUndefined() || value.isArray());
        QStringList all;
        for (const QJsonValue each : value.toArray()) {
            isRight = isRight && each.isString();
            all += each.toString();
        }
        return all;
    }
    std::optional<QDateTime> date(QStringView key) {
        const QJsonValue value = object_.value(key);
        if (value.isUndefined() || value.isNull())
            return std::nullopt;
        const auto date =
            value.isDouble() ? sinceReference(value.toDouble()) : fromText(value.toString());
        isRight = isRight && date.has_value();
        return date;
    }

    bool isRight = true;

private:
    static std::optional<QDateTime> fromText(const QString& text) {
        return model::timestampFromText(text);
    }
    static std::optional<QDateTime> sinceReference(double seconds) {
        constexpr double eightThousandYears = 8000 * 366.0 * 86400;
        if (!(std::abs(seconds) < eightThousandYears))
            return std::nullopt;
        const QDateTime date = QDateTime(QDate(2001, 1, 1), QTime(0, 0), Qt::UTC)
                                   .addMSecs(std::llround(seconds * 1000));
        const int year = date.date().year();
        return year >= 1 && year <= 9999 ? std::optional(date) : std::nullopt;
    }

    const QJsonObject& object_;
};

QJsonObject membersNotOurs(QJsonObject object) {
    for (const QStringView key : knownKeys)
        object.remove(key);
    return object;
}

} // namespace

std::optional<std::int64_t> wholeNumber(const QJsonValue& value) {
    constexpr double largest = 9007199254740992.0; // 2^53
    const double number = value.toDouble(0.5);
    if (number != std::floor(number) || std::abs(number) > largest)
        return std::nullopt;
    return static_cast<std::int64_t>(number);
}

QJsonObject encodeChallenge(const State& state) {
    QJsonObject object = state.unknown;
    object.insert(u"joined", state.joined);
    object.insert(u"name", state.name);
    object.insert(u"country", state.country);
    object.insert(u"id", state.id);
    object.insert(u"lastRank", static_cast<qint64>(state.lastRank));
    object.insert(u"lastOf", static_cast<qint64>(state.lastOf));
    object.insert(u"lastSubmit", dateValue(state.lastSubmit));
    object.insert(u"awarded", QJsonArray::fromStringList(state.awarded));
    object.insert(u"weekAnchorRank", static_cast<qint64>(state.weekAnchorRank));
    object.insert(u"weekAnchorDate", dateValue(state.weekAnchorDate));
    return object;
}

State decodeChallenge(const QJsonValue& value) {
    const QJsonObject object = value.toObject();
    Reader read(object);
    State state;
    state.joined = read.boolean(u"joined");
    state.name = read.text(u"name");
    state.country = countryCode(read.text(u"country"));
    state.id = read.text(u"id");
    state.lastRank = read.count(u"lastRank");
    state.lastOf = read.count(u"lastOf");
    state.lastSubmit = read.date(u"lastSubmit");
    state.awarded = read.texts(u"awarded");
    state.weekAnchorRank = read.count(u"weekAnchorRank");
    state.weekAnchorDate = read.date(u"weekAnchorDate");
    state.unknown = membersNotOurs(object);
    // An entry that could neither be named nor be removed is none.
    const bool isUsable = !state.joined || (!state.name.isEmpty() && !state.id.isEmpty());
    if (read.isRight && isUsable)
        return state;
    State none;
    none.unknown = state.unknown;
    return none;
}

std::optional<ChallengeRank> decodeRank(const QByteArray& bytes) {
    const QJsonObject reply = QJsonDocument::fromJson(bytes).object();
    const auto rank = wholeNumber(reply.value(u"rank"));
    const QJsonValue ofValue = reply.value(u"of");
    const auto of = ofValue.isUndefined() ? std::optional<std::int64_t>(0) : wholeNumber(ofValue);
    if (!reply.value(u"ok").toBool() || !rank || *rank < 1 || !of || *of < 0)
        return std::nullopt;
    return ChallengeRank{*rank, *of};
}

std::optional<bool> decodeAvailable(const QByteArray& bytes) {
    const QJsonValue available = QJsonDocument::fromJson(bytes).object().value(u"available");
    return available.isBool() ? std::optional(available.toBool()) : std::nullopt;
}

} // namespace skipnest::stats
