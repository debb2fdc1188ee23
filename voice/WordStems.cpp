// SPDX-License-Identifier: Apache-2.0
#include "voice/WordStems.h"

#include <QString>

#include <libstemmer.h>

namespace skipnest::voice {
namespace {

// No word of either language is that long; the stemmers take more than linear time.
constexpr std::size_t longestStemmed = 64;

} // namespace

void WordStems::Deleter::operator()(sb_stemmer* stemmer) const {
    sb_stemmer_delete(stemmer);
}

WordStems::WordStems() {
    stemmers_[0].reset(sb_stemmer_new("english", "UTF_8"));
    stemmers_[1].reset(sb_stemmer_new("german", "UTF_8"));
}

WordStems::~WordStems() = default;

WordStems::Stems WordStems::of(std::u32string_view foldedWord) const {
    const QByteArray word =
        QString::fromUcs4(foldedWord.data(), static_cast<qsizetype>(foldedWord.size())).toUtf8();
    Stems stems{word.toStdString(), word.toStdString()};
    if (foldedWord.size() > longestStemmed)
        return stems;
    for (std::size_t language = 0; language < languages; ++language) {
        sb_stemmer* stemmer = stemmers_[language].get();
        const auto* stem =
            stemmer == nullptr
                ? nullptr
                : sb_stemmer_stem(stemmer, reinterpret_cast<const sb_symbol*>(word.constData()),
                                  static_cast<int>(word.size()));
        if (stem != nullptr)
            stems[language].assign(reinterpret_cast<const char*>(stem),
                                   static_cast<std::size_t>(sb_stemmer_length(stemmer)));
    }
    return stems;
}

} // namespace skipnest::voice
