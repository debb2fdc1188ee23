// SPDX-License-Identifier: Apache-2.0
#include "cli/Subcommands.h"
#include "cli/VoiceJson.h"

#include "voice/JumpChoice.h"
#include "voice/MessagingRouter.h"
#include "voice/PhraseDecision.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QStringBuilder>

namespace skipnest::cli {
namespace {

using voice::JumpChoice;
using voice::PhraseDecision;

constexpr qint64 largestFile = 64LL << 20;

// What the option's file holds, `T()` without the option; prints why not.
template <typename T>
std::optional<T> fromOption(const Arguments& arguments, const QString& option,
                            platform::Result<T> (*read)(const QByteArray&)) {
    const auto path = arguments.value(option);
    if (!path)
        return T();
    const auto bytes = readInput(*path, largestFile);
    if (!bytes)
        return std::nullopt;
    platform::Result<T> result = read(*bytes);
    if (!result) {
        (void)fail(*path % u": " % result.failure().detail);
        return std::nullopt;
    }
    return std::move(result).value();
}

QString choiceName(JumpChoice::Kind kind) {
    switch (kind) {
    case JumpChoice::Kind::none:
        return QStringLiteral("none");
    case JumpChoice::Kind::list:
        return QStringLiteral("list");
    case JumpChoice::Kind::commit:
        return QStringLiteral("commit");
    }
    return {};
}

QJsonObject toJson(const JumpChoice& choice, const std::vector<voice::JumpTarget>& targets) {
    QJsonArray candidates;
    for (const voice::ScoredTarget& one : choice.candidates) {
        const voice::JumpTarget& target = targets[one.target];
        candidates.append(QJsonObject{{QStringLiteral("title"), target.title},
                                      {QStringLiteral("kind"), kindName(target.kind)},
                                      {QStringLiteral("score"), one.score}});
    }
    return {{QStringLiteral("choice"), choiceName(choice.kind)},
            {QStringLiteral("candidates"), candidates}};
}

} // namespace

ExitStatus runParse(const Arguments& arguments, const Context&) {
    printJson(toJson(voice::VoiceCommand::parse(arguments.positional.first())));
    return ExitStatus::done;
}

ExitStatus runUnderstand(const Arguments& arguments, const Context&) {
    const auto aliases = fromOption(arguments, QStringLiteral("aliases"), aliasesFromJson);
    const auto uses = fromOption(arguments, QStringLiteral("uses"), usesFromJson);
    const auto targets = fromOption(arguments, QStringLiteral("targets"), targetsFromJson);
    if (!aliases || !uses || !targets)
        return ExitStatus::failed;
    PhraseDecision decision = voice::understand(arguments.positional.first(), *aliases);
    if (!arguments.has(QStringLiteral("targets")) || decision.parsed.target.isEmpty()) {
        printJson(toJson(decision));
        return ExitStatus::done;
    }
    const JumpChoice choice = JumpChoice::forSpoken(decision.parsed.target, decision.site, *targets,
                                                    voice::TargetScorer(*targets), *uses);
    if (choice.kind == JumpChoice::Kind::none)
        decision = decision.openingSite();
    QJsonObject json = toJson(decision);
    const QJsonObject chosen = toJson(choice, *targets);
    for (auto field = chosen.begin(); field != chosen.end(); ++field)
        json.insert(field.key(), field.value());
    printJson(json);
    return ExitStatus::done;
}

ExitStatus runRoute(const Arguments& arguments, const Context&) {
    const auto route = voice::MessagingRouter::route(arguments.positional.first());
    if (!route)
        return fail(QStringLiteral("no messaging application and a person are named in it"));
    printJson(QJsonObject{
        {QStringLiteral("app"), route->app->display},
        {QStringLiteral("contact"), route->contact},
        {QStringLiteral("message"),
         route->message ? QJsonValue(*route->message) : QJsonValue(QJsonValue::Null)},
    });
    return ExitStatus::done;
}

} // namespace skipnest::cli
