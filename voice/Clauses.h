// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "voice/MoveCommand.h"
#include "voice/SpokenWords.h"

#include <optional>
#include <vector>

namespace skipnest::voice {

// How a phrase is read. By the tables alone each word is what its list says, wherever it stands.
// As meant, what people search for keeps its words ("how to open a tab", "tom and jerry", "new
// york"), "open the text editor" dictates nothing, and what a window verb names is a target.
enum class Reading { byTables, asMeant };

// A verb and the words it is about, by their places among the words of the phrase.
struct Clause {
    std::optional<VoiceCommand::Verb> verb;
    std::size_t verbAt = 0;
    std::vector<std::size_t> words; // without jump fillers
    std::size_t end = 0;            // one behind its last word, fillers included
};

struct Clauses {
    std::vector<Clause> clauses;
    std::size_t trigger = 0; // where the dictation starts; the number of words where none does
};

// Splits a phrase at its verbs and connectors. The words of `move` belong to no clause.
[[nodiscard]] Clauses readClauses(const std::vector<SpokenWord>& words, Reading reading,
                                  const std::optional<MoveCommand>& move);

// Whether the dictation trigger at a place is a thing's name instead: "text" and "message" right
// after a verb ("open the text editor") or at the very end.
[[nodiscard]] bool isNamed(const std::vector<SpokenWord>& words, std::size_t trigger);

// The services that people name together with their maker ("google chrome").
[[nodiscard]] bool isGoogleProduct(const QString& word);

} // namespace skipnest::voice
