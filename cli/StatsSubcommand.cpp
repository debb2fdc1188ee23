// SPDX-License-Identifier: Apache-2.0
#include "cli/Subcommands.h"

#include "platform/SystemWallClock.h"
#include "stats/LocalDays.h"
#include "stats/Milestones.h"
#include "stats/StatsStore.h"
#include "stats/TimeSaved.h"

#include <QFileInfo>
#include <QJsonObject>
#include <QStringBuilder>

namespace skipnest::cli {
namespace {

QJsonValue json(const std::optional<stats::Milestone>& milestone) {
    if (!milestone)
        return QJsonValue::Null;
    return QJsonObject{{QStringLiteral("id"), milestone->id},
                       {QStringLiteral("title"), milestone->title},
                       {QStringLiteral("sub"), milestone->sub}};
}

QJsonValue json(const std::optional<stats::Tip>& tip) {
    if (!tip)
        return QJsonValue::Null;
    return QJsonObject{{QStringLiteral("id"), tip->id}, {QStringLiteral("text"), tip->text}};
}

QJsonObject figures(const stats::StatsStore& store, QDate day) {
    return {
        {QStringLiteral("total"), qint64{store.total}},
        {QStringLiteral("voice"), qint64{store.voice}},
        {QStringLiteral("switcher"), qint64{store.switcher}},
        {QStringLiteral("keyboard"), qint64{store.keyboard()}},
        {QStringLiteral("weekJumps"), qint64{stats::weekJumps(store, day)}},
        {QStringLiteral("streakDays"), qint64{stats::streakDays(store, day)}},
        {QStringLiteral("timeSaved"), stats::timeSavedText(store.total)},
        {QStringLiteral("nextMilestone"), json(stats::jumpMilestone(store))},
        {QStringLiteral("nextTip"), json(stats::tip(store))},
        {QStringLiteral("recap"), json(stats::recap(store, day))},
    };
}

// The store in a file, an empty one where there is none. What could not be taken over is said, and
// so is why there is nothing.
std::optional<stats::StatsStore> readStore(const QString& path) {
    // A link that leads nowhere is a fault, and not an empty store.
    const QFileInfo file(path);
    if (path != u"-" && !file.exists() && !file.isSymLink())
        return stats::StatsStore();
    const auto bytes = readInput(path, stats::largestStats);
    if (!bytes)
        return std::nullopt;
    platform::Result<stats::DecodedStats> decoded = stats::decodeStats(*bytes);
    if (!decoded) {
        (void)fail(path % u": " % decoded.failure().detail);
        return std::nullopt;
    }
    for (const QString& problem : decoded->problems)
        (void)fail(path % u": left out " % problem);
    return std::move(decoded).value().store;
}

} // namespace

ExitStatus runStats(const Arguments& arguments, const Context& context) {
    std::optional<QDate> day;
    if (const auto given = arguments.value(QStringLiteral("on"))) {
        day = stats::dayFromKey(*given);
        if (!day) {
            (void)fail(u"--on takes a day as yyyy-MM-dd, not \"" % *given % u'"');
            return ExitStatus::wrongUsage;
        }
    }
    const auto store = readStore(
        arguments.value(QStringLiteral("file")).value_or(context.supportFolder % u"/stats.json"));
    if (!store)
        return ExitStatus::failed;
    printJson(figures(*store, day ? *day : platform::SystemWallClock().today()));
    return ExitStatus::done;
}

} // namespace skipnest::cli
