// SPDX-License-Identifier: Apache-2.0
#include "voice/PhoneticKey.h"

#include <QChar>
#include <QString>

#include <algorithm>
#include <array>
#include <utility>

namespace skipnest::voice {
namespace {

using View = std::u32string_view;

struct Spelling {
    View written;
    View sound; // capital letters, so that no letter of a text is taken for one
    enum class Where : unsigned char { anywhere, start, end, beforeFrontVowel } where;
};

// The first row that fits is taken, at each place: longer spellings stand before shorter ones.
using enum Spelling::Where;
constexpr auto spellings = std::to_array<Spelling>({
    {U"tsch", U"S", anywhere},
    {U"sch", U"S", anywhere},
    {U"tion", U"SON", anywhere},
    {U"chr", U"KR", anywhere},
    {U"chs", U"KS", anywhere},
    {U"tch", U"S", anywhere},
    {U"ch", U"S", anywhere},
    {U"ck", U"K", anywhere},
    {U"cq", U"K", anywhere},
    {U"cc", U"KS", beforeFrontVowel},
    {U"sh", U"S", anywhere},
    {U"sc", U"S", beforeFrontVowel},
    {U"kn", U"N", start},
    {U"gn", U"N", start},
    {U"wr", U"R", start},
    {U"ps", U"S", start},
    {U"mb", U"M", end},
    {U"ght", U"T", anywhere},
    {U"gh", U"", end},
    {U"ph", U"F", anywhere},
    {U"pf", U"F", anywhere},
    {U"th", U"T", anywhere},
    {U"dt", U"T", anywhere},
    {U"tz", U"S", anywhere},
    {U"ts", U"S", anywhere},
    {U"ds", U"S", anywhere},
    {U"qu", U"KF", anywhere},
    {U"dg", U"J", anywhere},
    {U"c", U"S", beforeFrontVowel},
    {U"c", U"K", anywhere},
    {U"k", U"K", anywhere},
    {U"q", U"K", anywhere},
    {U"g", U"K", anywhere},
    {U"x", U"KS", anywhere},
    {U"b", U"P", anywhere},
    {U"p", U"P", anywhere},
    {U"d", U"T", anywhere},
    {U"t", U"T", anywhere},
    {U"f", U"F", anywhere},
    {U"v", U"F", anywhere},
    {U"w", U"F", anywhere},
    {U"l", U"L", anywhere},
    {U"m", U"M", anywhere},
    {U"n", U"N", anywhere},
    {U"r", U"R", anywhere},
    {U"s", U"S", anywhere},
    {U"z", U"S", anywhere},
    {U"j", U"J", anywhere},
    {U"h", U"", anywhere},
});

// The first two letters decide on the colour of a run of vowels; A, E and O.
struct Vowels {
    View written;
    char32_t colour;
};
constexpr auto vowels = std::to_array<Vowels>({
    {U"ei", U'A'}, {U"ey", U'A'}, {U"ae", U'E'}, {U"oe", U'E'}, {U"ue", U'E'}, {U"eu", U'O'},
    {U"äu", U'O'}, {U"a", U'A'},  {U"à", U'A'},  {U"á", U'A'},  {U"â", U'A'},  {U"å", U'A'},
    {U"e", U'E'},  {U"é", U'E'},  {U"è", U'E'},  {U"ê", U'E'},  {U"ë", U'E'},  {U"i", U'E'},
    {U"í", U'E'},  {U"ï", U'E'},  {U"y", U'E'},  {U"ä", U'E'},  {U"ö", U'E'},  {U"ü", U'E'},
    {U"o", U'O'},  {U"ó", U'O'},  {U"ô", U'O'},  {U"u", U'O'},  {U"ú", U'O'},  {U"û", U'O'},
});

bool isVowel(char32_t c) {
    return std::ranges::any_of(vowels, [c](const Vowels& row) {
        return row.written.size() == 1 && row.written.front() == c;
    });
}

bool isFrontVowel(char32_t c) {
    return View(U"eiyäöüéèêëíï").find(c) != View::npos;
}

class Reader {
public:
    explicit Reader(View word) : word_(word) {}

    void read(std::u32string& key) {
        while (at_ < word_.size())
            readSound(key);
    }

private:
    void readSound(std::u32string& key) {
        if (isVowel(word_[at_]))
            return readVowels(key);
        const auto fits = std::ranges::find_if(
            spellings, [this](const Spelling& spelling) { return stands(spelling); });
        if (fits != spellings.end()) {
            for (const char32_t sound : fits->sound)
                append(key, sound);
            at_ += fits->written.size();
            return;
        }
        if (QChar::isLetterOrNumber(word_[at_]))
            append(key, word_[at_]);
        ++at_;
    }

    void readVowels(std::u32string& key) {
        const std::size_t begin = at_;
        while (at_ < word_.size() && isVowel(word_[at_]))
            ++at_;
        // Silent in English, and hardly heard in German.
        const View rest = word_.substr(begin);
        if (begin != 0 && rest == U"e")
            return;
        // Unstressed, in German and much of English, these are one short "a": "Kalender" and
        // "calendar", "Figma" and "figmer".
        if (hasVowel_ && (rest == U"er" || rest == U"ar" || rest == U"or")) {
            at_ = word_.size();
            return append(key, U'A');
        }
        hasVowel_ = true;
        const View run = word_.substr(begin, at_ - begin);
        const auto colour = std::ranges::find_if(
            vowels, [run](const Vowels& row) { return run.starts_with(row.written); });
        append(key, colour->colour);
    }

    [[nodiscard]] bool stands(const Spelling& spelling) const {
        if (!word_.substr(at_).starts_with(spelling.written))
            return false;
        const std::size_t after = at_ + spelling.written.size();
        switch (spelling.where) {
        case anywhere:
            return true;
        case start:
            return at_ == 0;
        case end:
            return after == word_.size() && at_ != 0;
        case beforeFrontVowel:
            return after < word_.size() && isFrontVowel(word_[after]);
        }
        return false;
    }

    void append(std::u32string& key, char32_t sound) {
        if (last_ != sound)
            key += sound;
        last_ = sound;
    }

    View word_;
    std::size_t at_ = 0;
    bool hasVowel_ = false;
    char32_t last_ = 0; // doubled letters are one sound
};

} // namespace

std::u32string phoneticKey(std::u32string_view folded) {
    std::u32string key;
    std::size_t at = 0;
    while (at < folded.size()) {
        const auto isSounding = [](char32_t c) { return QChar::isLetterOrNumber(c); };
        const auto begin = std::find_if(folded.begin() + static_cast<std::ptrdiff_t>(at),
                                        folded.end(), isSounding);
        const auto end = std::find_if_not(begin, folded.end(), isSounding);
        const auto start = static_cast<std::size_t>(begin - folded.begin());
        at = static_cast<std::size_t>(end - folded.begin());
        Reader(folded.substr(start, at - start)).read(key);
    }
    return key;
}

} // namespace skipnest::voice
