// SPDX-License-Identifier: Apache-2.0
#include "platform/EndpointLanguageModel.h"
#include "voice/CleanupRules.h"
#include "voice/IntentParser.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <variant>

namespace {

using namespace skipnest;
using voice::VoiceCommand;
using namespace Qt::StringLiterals;

void require(bool holds) {
    if (!holds)
        std::abort();
}

bool isTrimmed(const QString& text) {
    return text == text.trimmed();
}

void checkIntent(const QString& answer) {
    const auto intent = voice::VoiceIntent::decode(answer);
    require(intent || !intent.failure().detail.isEmpty());
    if (!intent)
        return;
    const voice::ParsedIntent result = voice::intentToSteps(*intent);
    require(isTrimmed(result.parsed.target) && isTrimmed(result.contact) &&
            isTrimmed(result.message));
    require(result.space >= 0 && result.space <= 9 && result.parsed.steps.size() <= 4);
    for (const auto& step : result.parsed.steps) {
        if (const auto* site = std::get_if<VoiceCommand::OpenSite>(&step))
            require(site->url.isValid() && !site->url.host().isEmpty() &&
                    site->url.scheme().startsWith(u"http"));
    }
    // Nobody asked for a move: none comes first.
    const auto judged = voice::judgeIntent(u"open chrome"_s, *intent).result.parsed.steps;
    require(judged.empty() || !std::holds_alternative<VoiceCommand::MoveFile>(judged.front()));
}

} // namespace

// What a language model's server replies, and what the model itself answers.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QString text = QString::fromUtf8(bytes);
    checkIntent(text);
    if (const auto content = platform::readChatCompletion(bytes))
        checkIntent(*content);
    const QString half = text.left(text.size() / 2);
    require(!voice::isFaithful(half, text) || text.size() <= 2 * half.size() + 40);
    require(text.isEmpty() || voice::isFaithful(text, text));
    return 0;
}
