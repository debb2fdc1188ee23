// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/LanguageModel.h"
#include "platform/Result.h"
#include "voice/VoiceCommand.h"

#include <QString>

#include <cstdint>

namespace skipnest::voice {

// What a language model made of a spoken phrase. Every field is there; empty, and 0, say that the
// phrase has no such thing. Nothing in it is trusted: it is what a model wrote.
struct VoiceIntent {
    QString target;
    QString contact;
    QString message;
    QString website;
    QString query;
    QString windowAction;
    int space = 0;
    QString moveFile;
    QString moveFrom;
    QString moveTo;

    bool operator==(const VoiceIntent&) const = default;

    // The instructions and the schema that a model answers by.
    [[nodiscard]] static const platform::ModelTask& task();

    // Reads a model's answer. Text around the object is taken off where there is no doubt what the
    // object is: a single fenced block, or a single object among prose. Each of the ten fields has
    // to be there and of its type; others are not looked at.
    [[nodiscard]] static platform::Result<VoiceIntent> decode(const QString& answer);
};

// A phrase as it was understood: a target, the steps to take there, and what is no step.
struct ParsedIntent {
    // Who took it apart: the keyword parser's tables also where a model failed.
    enum class Source : std::uint8_t { tables, model };

    VoiceCommand::Parsed parsed;
    QString contact = {}; // for the messaging router, with the target
    QString message = {};
    int space = 0; // 1 to 9, else 0
    Source source = Source::tables;

    bool operator==(const ParsedIntent&) const = default;
};

// The steps in the order in which they are taken: website, search, window, file move.
[[nodiscard]] ParsedIntent intentToSteps(const VoiceIntent& intent);

} // namespace skipnest::voice
