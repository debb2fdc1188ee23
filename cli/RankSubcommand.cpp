// SPDX-License-Identifier: Apache-2.0
#include "cli/Subcommands.h"

#include "cli/VoiceJson.h"
#include "voice/TargetScorer.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QStringBuilder>

#include <optional>

namespace skipnest::cli {
namespace {

// 100,000 targets are 10 MB.
constexpr qint64 largestFile = 64LL << 20;

// What `decode` makes of the file; prints why not.
template <typename Decode> auto fromFile(const QString& path, Decode decode) {
    using Decoded = std::decay_t<decltype(decode(QByteArray()).value())>;
    const auto bytes = readInput(path, largestFile);
    if (!bytes)
        return std::optional<Decoded>();
    auto decoded = decode(*bytes);
    if (!decoded)
        (void)fail(path % u": " % decoded.failure().detail);
    return decoded ? std::optional<Decoded>(std::move(decoded).value()) : std::nullopt;
}

} // namespace

ExitStatus runRank(const Arguments& arguments, const Context&) {
    const auto targetsFile = arguments.value(QStringLiteral("targets"));
    const auto usesFile = arguments.value(QStringLiteral("uses"));
    if (!targetsFile || (targetsFile == u"-" && usesFile == u"-")) {
        (void)fail(targetsFile ? QStringLiteral("only one of the files can be standard input")
                               : QStringLiteral("rank needs --targets FILE"));
        return ExitStatus::wrongUsage;
    }
    std::size_t limit = voice::TargetScorer::noLimit;
    if (const auto given = arguments.value(QStringLiteral("limit"))) {
        bool isNumber = false;
        limit = given->toULongLong(&isNumber);
        if (!isNumber) {
            (void)fail(u"--limit takes a whole number, not \"" % *given % u'"');
            return ExitStatus::wrongUsage;
        }
    }
    const auto targets = fromFile(*targetsFile, targetsFromJson);
    const auto uses = usesFile ? fromFile(*usesFile, usesFromJson)
                               : std::optional<voice::UseCounts>(std::in_place);
    if (!targets || !uses)
        return ExitStatus::failed;

    QJsonArray ranked;
    for (const auto& [index, score] :
         voice::score(arguments.positional.first(), *targets, *uses, limit)) {
        const voice::JumpTarget& target = (*targets)[index];
        ranked.append(QJsonObject{{QStringLiteral("title"), target.title},
                                  {QStringLiteral("kind"), kindName(target.kind)},
                                  {QStringLiteral("score"), score}});
    }
    printJson(ranked);
    return ExitStatus::done;
}

} // namespace skipnest::cli
