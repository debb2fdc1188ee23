// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "voice/VoiceCommand.h"

#include <QString>

#include <optional>

namespace skipnest::voice {

// What the word lists of the two languages say about one lower-case word. A word can be several
// things: "message" starts a dictation and is no verb, "in" is a filler only.
struct WordUse {
    std::optional<VoiceCommand::Verb> verb;
    int number = 0; // 1 to 9, else 0
    bool connector = false;
    bool jumpFiller = false;
    bool dictationTrigger = false;
};

[[nodiscard]] const WordUse& wordUse(const QString& word);

// The stems of verbs that move files, as they are looked for in a lower-case text. The blanks keep
// "package" and "legal" out.
inline constexpr QStringView moveVerbs[] = {u"move", u"sort",  u"verschieb", u"sortier", u"schieb",
                                            u"räum", u"raeum", u"pack ",     u"leg "};

} // namespace skipnest::voice
