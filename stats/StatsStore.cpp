// SPDX-License-Identifier: Apache-2.0
#include "stats/StatsStore.h"

#include "model/LoneSurrogates.h"
#include "model/Timestamp.h"
#include "platform/DebugLogFile.h"
#include "stats/LocalDays.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonValue>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace skipnest::stats {
namespace {

using platform::Failure;
using platform::Result;

std::optional<std::int64_t> countOf(const QJsonValue& value) {
    // toInteger answers its default for everything that is no whole number of 64 bits.
    const qint64 count = value.toInteger(-1);
    return count >= 0 && count <= largestCount ? std::optional<std::int64_t>(count) : std::nullopt;
}

std::optional<QDateTime> dateOf(const QJsonValue& value) {
    if (value.isString())
        return model::timestampFromText(value.toString());
    const double seconds = value.toDouble(std::nan(""));
    constexpr double tenThousandYears = 4e11;
    if (!(std::abs(seconds) < tenThousandYears))
        return std::nullopt;
    const QDateTime utc =
        QDateTime(QDate(2001, 1, 1), QTime(0, 0), Qt::UTC).addMSecs(std::llround(seconds * 1000));
    const int year = utc.date().year();
    return year >= 1 && year <= 9999 ? std::optional(utc) : std::nullopt;
}

// Takes one member after the other out of the document, and says of each that is wrong where.
class Reader {
public:
    explicit Reader(QJsonObject document) : rest_(std::move(document)) {}

    void read(const QString& key, std::int64_t& field) {
        const QJsonValue value = rest_.take(key);
        if (value.isUndefined())
            return;
        if (const auto count = countOf(value))
            field = *count;
        else
            complain(key, noCount);
    }

    void read(const QString& key, std::map<QDate, std::int64_t>& field) {
        const QJsonObject days = takeObject(key);
        for (auto it = days.begin(); it != days.end(); ++it) {
            const auto day = dayFromKey(it.key());
            const auto count = countOf(it.value());
            if (day && count)
                field.insert_or_assign(field.end(), *day, *count);
            else
                complain(key, it.key(), day ? noCount : u"no such day");
        }
    }

    void read(const QString& key, QHash<QString, std::int64_t>& field) {
        const QJsonObject targets = takeObject(key);
        field.reserve(targets.size());
        for (auto it = targets.begin(); it != targets.end(); ++it) {
            const QString name = model::withoutLoneSurrogates(it.key().trimmed());
            const auto count = countOf(it.value());
            if (name.isEmpty() || !count) {
                complain(key, it.key(), count ? u"no name" : noCount);
                continue;
            }
            std::int64_t& uses = field[name];
            uses = sumOfCounts(uses, *count);
        }
    }

    void read(const QString& key, std::optional<QDateTime>& field) {
        const QJsonValue value = rest_.take(key);
        if (value.isUndefined() || value.isNull())
            return;
        field = dateOf(value);
        if (!field)
            complain(key, u"no date");
    }

    void read(const QString& key, QStringList& field) {
        const QJsonValue value = rest_.take(key);
        if (value.isUndefined())
            return;
        if (!value.isArray())
            return complain(key, u"not a list");
        const QJsonArray list = value.toArray();
        for (const QJsonValueConstRef element : list) {
            if (element.isString())
                field.append(model::withoutLoneSurrogates(element.toString()));
            else
                complain(key, u"an entry that is no string");
        }
        field.removeDuplicates();
    }

    [[nodiscard]] QJsonObject rest() const {
        return model::withoutLoneSurrogates(QJsonValue(rest_)).toObject();
    }
    [[nodiscard]] QStringList problems() && { return std::move(problems_); }

private:
    static constexpr QStringView noCount = u"no whole number from 0 on, or too large";

    QJsonObject takeObject(const QString& key) {
        const QJsonValue value = rest_.take(key);
        if (!value.isUndefined() && !value.isObject())
            complain(key, u"not an object");
        return value.toObject();
    }

    void complain(const QString& key, const QString& entry, QStringView reason) {
        constexpr qsizetype shown = 40;
        if (problems_.size() < most)
            complain(key + u'.' + platform::escapedForLog(entry.left(shown)), reason);
    }
    void complain(const QString& where, QStringView reason) {
        if (problems_.size() < most)
            problems_.append(where + QStringLiteral(": ") + reason.toString());
    }

    static constexpr qsizetype most = 10;
    QJsonObject rest_;
    QStringList problems_;
};

// Writes by hand what QJsonObject would sort: its members by name, and each entry into its place
// among those already there, which takes seconds for 100,000 targets.
class Writer {
public:
    void write(const QString& key, std::int64_t field) {
        begin(key);
        out_ += QByteArray::number(qint64{field});
    }

    void write(const QString& key, const std::map<QDate, std::int64_t>& field) {
        beginEntries(key, '{');
        for (const auto& [day, count] : field)
            entry(dayKey(day), count);
        endEntries('}');
    }

    void write(const QString& key, const QHash<QString, std::int64_t>& field) {
        // Sorted, so that two files can be compared.
        std::vector<QHash<QString, std::int64_t>::const_iterator> sorted;
        sorted.reserve(static_cast<std::size_t>(field.size()));
        for (auto it = field.begin(); it != field.end(); ++it)
            sorted.push_back(it);
        std::ranges::sort(sorted, {}, [](const auto& it) -> const QString& { return it.key(); });
        beginEntries(key, '{');
        for (const auto& it : sorted)
            entry(it.key(), it.value());
        endEntries('}');
    }

    void write(const QString& key, const std::optional<QDateTime>& field) {
        if (!field)
            return;
        begin(key);
        text(model::timestampText(*field));
    }

    void write(const QString& key, const QStringList& field) {
        beginEntries(key, '[');
        for (const QString& element : field) {
            beginEntry();
            text(element);
        }
        endEntries(']');
    }

    void write(const QJsonObject& unknown) {
        if (unknown.isEmpty())
            return;
        // Without the braces around it and the last line break, it is as indented as the rest.
        const QByteArray members = QJsonDocument(unknown).toJson(QJsonDocument::Indented);
        out_ += ",\n";
        out_ += members.mid(2, members.size() - 5);
    }

    [[nodiscard]] QByteArray document() && {
        out_ += "\n}\n";
        return std::move(out_);
    }

private:
    void begin(const QString& key) {
        out_ += out_.isEmpty() ? "{\n    " : ",\n    ";
        text(key);
        out_ += ": ";
    }
    void beginEntries(const QString& key, char bracket) {
        begin(key);
        out_ += bracket;
        isFirst_ = true;
    }
    void beginEntry() { out_ += std::exchange(isFirst_, false) ? "\n        " : ",\n        "; }
    void entry(const QString& key, std::int64_t count) {
        beginEntry();
        text(key);
        out_ += ": ";
        out_ += QByteArray::number(qint64{count});
    }
    void endEntries(char bracket) {
        if (!isFirst_)
            out_ += "\n    ";
        out_ += bracket;
    }

    void text(const QString& value) {
        out_ += '"';
        for (const char letter : value.toUtf8()) {
            if (letter == '"' || letter == '\\') {
                out_ += '\\';
                out_ += letter;
            } else if (letter >= 0 && letter < 0x20) {
                out_ += "\\u" + QByteArray::number(letter, 16).rightJustified(4, '0');
            } else {
                out_ += letter;
            }
        }
        out_ += '"';
    }

    QByteArray out_;
    bool isFirst_ = true;
};

} // namespace

std::int64_t sumOfCounts(std::int64_t a, std::int64_t b) {
    return std::min(a + b, largestCount);
}

std::int64_t StatsStore::keyboard() const {
    return std::max<std::int64_t>(0, total - voice - switcher);
}

QByteArray encodeStats(const StatsStore& store) {
    Writer writer;
    writer.write(QStringLiteral("byDay"), store.byDay);
    writer.write(QStringLiteral("byTarget"), store.byTarget);
    writer.write(QStringLiteral("total"), store.total);
    writer.write(QStringLiteral("voice"), store.voice);
    writer.write(QStringLiteral("switcher"), store.switcher);
    writer.write(QStringLiteral("firstUse"), store.firstUse);
    writer.write(QStringLiteral("celebrated"), store.celebrated);
    writer.write(QStringLiteral("used"), store.used);
    writer.write(store.unknown);
    return std::move(writer).document();
}

Result<DecodedStats> decodeStats(const QByteArray& bytes) {
    if (bytes.size() > largestStats) {
        return Failure{
            Failure::Kind::tooLarge,
            QStringLiteral("%1 bytes are more than %2").arg(bytes.size()).arg(largestStats)};
    }
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (error.error != QJsonParseError::NoError) {
        return Failure{
            Failure::Kind::malformed,
            QStringLiteral("no JSON at byte %1: %2").arg(error.offset).arg(error.errorString())};
    }
    if (!document.isObject())
        return Failure{Failure::Kind::malformed, QStringLiteral("not a JSON object")};

    DecodedStats decoded;
    Reader reader(document.object());
    reader.read(QStringLiteral("byDay"), decoded.store.byDay);
    reader.read(QStringLiteral("byTarget"), decoded.store.byTarget);
    reader.read(QStringLiteral("total"), decoded.store.total);
    reader.read(QStringLiteral("voice"), decoded.store.voice);
    reader.read(QStringLiteral("switcher"), decoded.store.switcher);
    reader.read(QStringLiteral("firstUse"), decoded.store.firstUse);
    reader.read(QStringLiteral("celebrated"), decoded.store.celebrated);
    reader.read(QStringLiteral("used"), decoded.store.used);
    decoded.store.unknown = reader.rest();
    decoded.problems = std::move(reader).problems();
    return decoded;
}

} // namespace skipnest::stats
