// SPDX-License-Identifier: Apache-2.0
#include "voice/IntentParser.h"

#include "platform/LanguageModelSettings.h"
#include "voice/CleanupRules.h"

#include <memory>
#include <utility>
#include <variant>

namespace skipnest::voice {
namespace {

using namespace Qt::StringLiterals;
using platform::LanguageModelSettings;
using platform::ModelRequest;
using platform::ModelTask;
using platform::Result;

constexpr const char* cleanupInstructions =
    R"(You clean up a dictated message so it reads as if carefully typed. Return ONLY the cleaned message, nothing else.
Do:
- Fix spelling, grammar, capitalization and punctuation.
- Remove filler words and false starts ("ähm", "äh", "like", "you know", repeated words).
- Lightly improve sentence structure for clarity.
Never:
- Change the language (German stays German, English stays English). Do not translate.
- Add facts, greetings, sign-offs, or content that was not dictated.
- Change the meaning, tone, or make it more formal than the original.
- Wrap the result in quotes or add any commentary.
Examples:
- "ähm hey paul ich bin ähm gleich da ja" -> "Hey Paul, ich bin gleich da."
- "can you send me the the file when you have time thanks" -> "Can you send me the file when you have time? Thanks!")";

const ModelTask& cleanupTask() {
    static const ModelTask task{.instructions = QString::fromUtf8(cleanupInstructions)};
    return task;
}

ParsedIntent byKeywords(const QString& transcript) {
    return {.parsed = VoiceCommand::parse(transcript)};
}

} // namespace

JudgedIntent judgeIntent(const QString& transcript, const VoiceIntent& intent) {
    ParsedIntent result = intentToSteps(intent);
    const auto& steps = result.parsed.steps;
    if (!steps.empty() && std::holds_alternative<VoiceCommand::MoveFile>(steps.front()) &&
        !VoiceCommand::hasMoveVerb(transcript))
        return {byKeywords(transcript), true};
    return {std::move(result), false};
}

bool IntentParser::hasModel() const {
    return model_.availability().state != platform::Availability::State::unavailable;
}

bool IntentParser::shouldAsk(const QString& transcript, const VoiceCommand::Parsed& parsed,
                             const TargetLead& lead) const {
    return hasModel() && (LanguageModelSettings::read(defaults_).asksAlways ||
                          !isCertain(transcript, parsed, lead));
}

void IntentParser::warm() {
    model_.warm(VoiceIntent::task());
}

ModelRequest IntentParser::soon(std::function<void()> tell) {
    const auto wanted = std::make_shared<bool>(true);
    scheduler_.post([wanted, tell = std::move(tell)] {
        if (*wanted)
            tell();
    });
    return ModelRequest([wanted] { *wanted = false; });
}

ModelRequest IntentParser::parseWithModel(const QString& transcript, Understood understood) {
    if (!hasModel() || transcript.trimmed().isEmpty() || transcript.size() > longestTranscript)
        return soon([transcript, understood = std::move(understood)] {
            understood(byKeywords(transcript));
        });
    return model_.respond(
        VoiceIntent::task(), transcript, LanguageModelSettings::read(defaults_).deadline,
        [this, transcript, understood = std::move(understood)](const Result<QString>& answer) {
            understood(understand(transcript, answer));
        });
}

ParsedIntent IntentParser::understand(const QString& transcript, const Result<QString>& answer) {
    const Result<VoiceIntent> intent =
        answer ? VoiceIntent::decode(*answer) : Result<VoiceIntent>(answer.failure());
    if (!intent) {
        diagnostics_.log(
            u"llm: parse failed (%1) → keyword fallback"_s.arg(intent.failure().detail));
        return byKeywords(transcript);
    }
    JudgedIntent judged = judgeIntent(transcript, *intent);
    if (judged.isMoveDropped)
        diagnostics_.log(
            u"llm: dropped hallucinated move (no move verb in '%1')"_s.arg(transcript));
    // Not one arg() after another: the transcript may hold a "%2".
    const auto& parsed = judged.result.parsed;
    diagnostics_.log(u"llm: '%1' → target='%2' steps=%3"_s.arg(
        transcript, parsed.target, QString::number(parsed.steps.size())));
    return std::move(judged.result);
}

ModelRequest IntentParser::cleanup(const QString& message, std::optional<bool> voiceCleanup,
                                   Cleaned cleaned) {
    if (!voiceCleanup.value_or(false) || !hasModel() || message.trimmed().isEmpty() ||
        message.size() > longestTranscript)
        return soon([message, cleaned = std::move(cleaned)] { cleaned(message); });
    return model_.respond(cleanupTask(), message, LanguageModelSettings::read(defaults_).deadline,
                          [this, message, cleaned = std::move(cleaned)](
                              const Result<QString>& answer) { cleaned(clean(message, answer)); });
}

QString IntentParser::clean(const QString& message, const Result<QString>& answer) {
    const auto verbatim = [&](const QString& why) {
        diagnostics_.log(u"llm: cleanup failed (%1) → verbatim"_s.arg(why));
        return message;
    };
    if (!answer)
        return verbatim(answer.failure().detail);
    const QString cleaned = answer->trimmed();
    if (!isFaithful(message.trimmed(), cleaned))
        return verbatim(u"the answer is not the message"_s);
    diagnostics_.log(u"llm: cleanup '%1' → '%2'"_s.arg(message, cleaned));
    return cleaned;
}

} // namespace skipnest::voice
