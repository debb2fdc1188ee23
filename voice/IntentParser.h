// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Diagnostics.h"
#include "platform/LanguageModel.h"
#include "platform/UserDefaults.h"
#include "voice/Certainty.h"
#include "voice/VoiceIntent.h"

#include <QString>

#include <functional>
#include <optional>

namespace skipnest::voice {

// What is made of a model's intent for this transcript: its steps, or the keyword parser's result
// where it moves a file that nobody asked to move. Models invent file moves readily.
struct JudgedIntent {
    ParsedIntent result;
    bool isMoveDropped = false;
};
[[nodiscard]] JudgedIntent judgeIntent(const QString& transcript, const VoiceIntent& intent);

// Understands phrases and tidies up messages with a language model, and without one wherever that
// is missing, fails or answers nonsense. A model hears the phrase or the message and the fixed
// instructions: no name of a contact, no title and no address that the person did not speak.
class IntentParser {
public:
    // No model is asked to read more: a longer phrase is no command, and a longer message would not
    // be read in time.
    static constexpr qsizetype longestTranscript = 2000; // characters

    using Understood = std::function<void(const ParsedIntent&)>;
    using Cleaned = std::function<void(const QString& message)>;

    IntentParser(platform::LanguageModel& model, const platform::UserDefaults& defaults,
                 platform::Scheduler& scheduler, platform::Diagnostics& diagnostics)
        : model_(model), defaults_(defaults), scheduler_(scheduler), diagnostics_(diagnostics) {}

    // Whether parseWithModel() is worth its time: a model is there, and the phrase is not certain
    // or the person wants every phrase asked.
    [[nodiscard]] bool shouldAsk(const QString& transcript, const VoiceCommand::Parsed& parsed,
                                 const TargetLead& lead) const;

    // Listening has begun: the model reads its instructions while the person speaks.
    void warm();

    // `understood` is called once, on the main thread, never from inside this call; not at all once
    // the request is dropped. This object outlives its requests.
    [[nodiscard]] platform::ModelRequest parseWithModel(const QString& transcript,
                                                        Understood understood);

    // The message ready to be typed: the model's version where the person has set `voiceCleanup`,
    // which is off while absent, else the message as it is.
    [[nodiscard]] platform::ModelRequest cleanup(const QString& message,
                                                 std::optional<bool> voiceCleanup, Cleaned cleaned);

private:
    [[nodiscard]] bool hasModel() const;
    [[nodiscard]] ParsedIntent understand(const QString& transcript,
                                          const platform::Result<QString>& answer);
    [[nodiscard]] QString clean(const QString& message, const platform::Result<QString>& answer);
    [[nodiscard]] platform::ModelRequest soon(std::function<void()> tell);

    platform::LanguageModel& model_;
    const platform::UserDefaults& defaults_;
    platform::Scheduler& scheduler_;
    platform::Diagnostics& diagnostics_;
};

} // namespace skipnest::voice
