// SPDX-License-Identifier: Apache-2.0
#include "voice/FoldedText.h"

#include <QChar>
#include <QList>

#include <algorithm>

namespace skipnest::voice {
namespace {

bool isAscii(const QString& text) {
    return std::ranges::all_of(text, [](QChar c) { return c.unicode() < 0x80; });
}

std::u32string codePoints(const QString& text) {
    const QList<uint> points = text.toUcs4();
    return {points.begin(), points.end()};
}

} // namespace

std::u32string foldedText(const QString& text) {
    if (isAscii(text))
        return codePoints(text.toCaseFolded());
    // Qt folds letter by letter and leaves the one letter alone that becomes two.
    return codePoints(text.normalized(QString::NormalizationForm_C)
                          .toCaseFolded()
                          .replace(QChar(u'\u00DF'), QStringLiteral("ss"))
                          .normalized(QString::NormalizationForm_C));
}

std::vector<std::u32string_view> wordsOf(std::u32string_view text) {
    std::vector<std::u32string_view> words;
    const auto isSpace = [](char32_t c) { return QChar::isSpace(c); };
    auto at = text.begin();
    while ((at = std::find_if_not(at, text.end(), isSpace)) != text.end()) {
        const auto end = std::find_if(at, text.end(), isSpace);
        words.emplace_back(&*at, static_cast<std::size_t>(end - at));
        at = end;
    }
    return words;
}

std::size_t characterCount(const QString& text) {
    if (isAscii(text))
        return static_cast<std::size_t>(text.size());
    return static_cast<std::size_t>(text.normalized(QString::NormalizationForm_C).toUcs4().size());
}

} // namespace skipnest::voice
