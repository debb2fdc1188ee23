// SPDX-License-Identifier: Apache-2.0
#include "voice/VoiceCommand.h"

#include "voice/PhraseParts.h"

namespace skipnest::voice {

VoiceCommand::Parsed VoiceCommand::parse(const QString& transcript) {
    return takeApart(transcript, Reading::byTables).parsed;
}

std::optional<QUrl> VoiceCommand::spokenURL(const QStringList& words) {
    for (const QString& several : words) {
        const QStringList parts = several.split(u' ', Qt::SkipEmptyParts);
        for (const QString& word : parts) {
            if (!word.contains(u'.') || word.endsWith(u'.'))
                continue;
            const bool hasScheme = word.startsWith(QStringLiteral("http"));
            QUrl url(hasScheme ? word : QStringLiteral("https://") + word, QUrl::StrictMode);
            if (!url.isValid() || url.host().isEmpty())
                return std::nullopt;
            return url;
        }
    }
    return std::nullopt;
}

bool VoiceCommand::isConnector(const QString& word) {
    return wordUse(word).connector;
}

bool VoiceCommand::isJumpFiller(const QString& word) {
    return wordUse(word).jumpFiller;
}

bool VoiceCommand::isDictationTrigger(const QString& word) {
    return wordUse(word).dictationTrigger;
}

std::optional<VoiceCommand::Verb> VoiceCommand::verb(const QString& word) {
    return wordUse(word).verb;
}

std::optional<int> VoiceCommand::number(const QString& word) {
    const int number = wordUse(word).number;
    return number > 0 ? std::optional(number) : std::nullopt;
}

} // namespace skipnest::voice
