// SPDX-License-Identifier: Apache-2.0
#include "cli/Subcommands.h"
#include "cli/VoiceJson.h"

#include "platform/EndpointLanguageModel.h"
#include "voice/IntentParser.h"

#include <QJsonObject>
#include <QStringBuilder>

namespace skipnest::cli {

ExitStatus runIntent(const Arguments& arguments, const Context&) {
    const auto transcript = arguments.value(QStringLiteral("transcript"));
    if (!transcript) {
        (void)fail(QStringLiteral("intent needs --transcript TEXT"));
        return ExitStatus::wrongUsage;
    }
    const QString& path = arguments.positional.first();
    const auto bytes = readInput(path, platform::EndpointLanguageModel::largestReply);
    if (!bytes)
        return ExitStatus::failed;
    const auto intent = voice::VoiceIntent::decode(QString::fromUtf8(*bytes));
    if (!intent)
        return fail(path % u": " % intent.failure().detail);
    const voice::ParsedIntent result = voice::judgeIntent(*transcript, *intent).result;
    QJsonObject printed = toJson(result.parsed);
    if (!result.contact.isEmpty())
        printed.insert(QStringLiteral("contact"), result.contact);
    if (!result.message.isEmpty())
        printed.insert(QStringLiteral("message"), result.message);
    if (result.space != 0)
        printed.insert(QStringLiteral("space"), result.space);
    printJson(printed);
    return ExitStatus::done;
}

} // namespace skipnest::cli
