// SPDX-License-Identifier: Apache-2.0
#include "stats/ChallengeBoard.h"

#include "stats/ChallengeCoding.h"
#include "stats/ChallengeName.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <optional>
#include <string>

namespace skipnest::stats {
namespace {

constexpr std::size_t mostEntries = 1000;

// A figure that the service may leave out.
std::optional<std::int64_t> count(const QJsonValue& value) {
    if (value.isUndefined())
        return 0;
    const auto number = wholeNumber(value);
    return number && *number >= 0 ? number : std::nullopt;
}

std::optional<ChallengeBoard::Entry> entryFrom(const QJsonObject& object) {
    const auto rank = wholeNumber(object.value(u"rank"));
    const auto jumps = count(object.value(u"j"));
    const auto minutes = count(object.value(u"m"));
    const auto streak = count(object.value(u"s"));
    const QString name = challengerLine(object.value(u"n").toString());
    if (!rank || *rank < 1 || !jumps || !minutes || !streak || name.isEmpty())
        return std::nullopt;
    const std::u32string shown = name.toStdU32String().substr(0, longestChallengerName);
    return ChallengeBoard::Entry{*rank,
                                 QString::fromStdU32String(shown).trimmed(),
                                 countryCode(object.value(u"c").toString()),
                                 *jumps,
                                 *minutes,
                                 *streak,
                                 object.value(u"me").toBool()};
}

} // namespace

platform::Result<ChallengeBoard> decodeBoard(const QByteArray& bytes) {
    const QJsonObject reply = QJsonDocument::fromJson(bytes).object();
    const QJsonValue list = reply.value(u"board");
    if (!reply.value(u"ok").toBool() || !list.isArray())
        return platform::Failure{platform::Failure::Kind::malformed,
                                 QStringLiteral("the reply is no leaderboard")};
    ChallengeBoard board;
    for (const QJsonValue each : list.toArray()) {
        if (board.entries.size() == mostEntries)
            break;
        if (auto entry = entryFrom(each.toObject()))
            board.entries.push_back(*std::move(entry));
    }
    std::ranges::stable_sort(board.entries, {}, &ChallengeBoard::Entry::rank);
    const auto of = wholeNumber(reply.value(u"of")).value_or(0);
    board.of = std::max(of, static_cast<std::int64_t>(board.entries.size()));
    return board;
}

} // namespace skipnest::stats
