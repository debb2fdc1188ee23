// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>

struct sb_stemmer;

namespace skipnest::voice {

// Stems of a word, English and German: nobody says which language a word is of. Two words have the
// same stem where they have it in either language. One thread at a time.
class WordStems {
public:
    static constexpr std::size_t languages = 2;
    using Stems = std::array<std::string, languages>;

    WordStems();
    ~WordStems();
    WordStems(const WordStems&) = delete;
    WordStems& operator=(const WordStems&) = delete;

    [[nodiscard]] Stems of(std::u32string_view foldedWord) const;

private:
    struct Deleter {
        void operator()(sb_stemmer* stemmer) const;
    };
    std::array<std::unique_ptr<sb_stemmer, Deleter>, languages> stemmers_;
};

} // namespace skipnest::voice
