// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/ShortcutItem.h"
#include "voice/MessagingRouter.h"
#include "voice/VoiceCommand.h"

#include <optional>
#include <vector>

namespace skipnest::voice {

// What a person meant by a phrase, before anything is looked up or done.
struct PhraseDecision {
    enum class Kind : std::uint8_t {
        empty,
        space,   // to the desktop of a number
        message, // to a person in an application
        steps,   // with or without a target
        jump,    // to a target and nothing more
    };

    Kind kind = Kind::empty;
    int space = 0;
    std::optional<MessagingRouter::Route> route;
    VoiceCommand::Parsed parsed; // the target without filler words
    // The site whose name is the whole target: opened where nothing of that name is found.
    std::optional<QString> site;

    // The same with the site's page as the first step in place of the target.
    [[nodiscard]] PhraseDecision openingSite() const;
};

// Aliases first, then the questions in this order: is anything said, is it a desktop's number, a
// message to somebody, and what else. Where VoiceCommand::parse goes by its tables word for word,
// this keeps what people search for as they said it and takes what a window verb names as the
// target: "quit spotify" must not end the application in front. Aliases change nothing in a text
// that is dictated.
[[nodiscard]] PhraseDecision understand(const QString& phrase,
                                        const std::vector<model::VocabAlias>& aliases = {});

} // namespace skipnest::voice
