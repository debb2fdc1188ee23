// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "voice/SpokenWords.h"

#include <optional>

namespace skipnest::voice {

// A file to be moved, and which words of the phrase say so.
struct MoveCommand {
    VoiceCommand::MoveFile file;
    std::size_t first = 0;
    std::size_t end = 0;

    // "move the screenshot from downloads into documents", "nimm die Rechnung aus Downloads und
    // sortiere sie in den Ordner Rechnungen", "die Rechnung in den Ordner Steuer verschieben".
    // Nothing without a move verb, a name and a destination.
    [[nodiscard]] static std::optional<MoveCommand> find(const QString& transcript,
                                                         const std::vector<SpokenWord>& words);
};

// Whether the lower-case word is an inflection of a move verb: "sortiere", not "sorted".
[[nodiscard]] bool isMoveVerb(const QString& word);

} // namespace skipnest::voice
