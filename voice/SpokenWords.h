// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "voice/Vocabulary.h"

#include <QString>
#include <QStringList>

#include <cstddef>
#include <vector>

namespace skipnest::voice {

// One word of a transcript, in lower case and composed, and where it stands there.
struct SpokenWord {
    QString text;
    qsizetype begin = 0;
    qsizetype end = 0;
    bool afterPause = false; // a mark such as a comma stands before it
    const WordUse* use = nullptr;
};

// Runs of letters, digits and full stops; marks belong to the letter before them, so that "ö" is
// one however it is written. The full stop that ends a sentence is left off, those of "youtube.com"
// and "u.s.a." are not.
[[nodiscard]] std::vector<SpokenWord> spokenWords(const QString& transcript);

// A sound between two words, "ähm" or "uhm". "um" is one between pauses only: in German it is a
// word.
[[nodiscard]] bool isHesitation(const std::vector<SpokenWord>& words, std::size_t at);

// What was said from `first` up to `end`, as the transcript has it, with one blank for any white
// space.
[[nodiscard]] QString textOf(const QString& transcript, const std::vector<SpokenWord>& words,
                             std::size_t first, std::size_t end);
// What was said after the word, to the end of the transcript. Line breaks and other controls become
// blanks: text that is typed into a program must press no key of its own.
[[nodiscard]] QString textAfter(const QString& transcript, const SpokenWord& word);

} // namespace skipnest::voice
