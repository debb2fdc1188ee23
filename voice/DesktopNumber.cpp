// SPDX-License-Identifier: Apache-2.0
#include "voice/DesktopNumber.h"

namespace skipnest::voice {
namespace {

bool isDesktopWord(const QString& word) {
    return word == u"space" || word == u"desktop" || word == u"schreibtisch" ||
           word.startsWith(u"arbeitsf");
}

int numberOf(const SpokenWord& word) {
    if (word.use->number > 0)
        return word.use->number;
    if (word.text.size() > 2)
        return 0;
    const auto points = QStringView(word.text).toUcs4();
    if (points.size() != 1 || !QChar::isDigit(points.front()))
        return 0;
    return QChar::digitValue(points.front());
}

} // namespace

std::optional<int> desktopNumber(const QString& phrase) {
    const std::vector<SpokenWord> words = spokenWords(phrase);
    const auto request = desktopRequest(words, 0, words.size());
    return request ? std::optional(request->number) : std::nullopt;
}

std::optional<DesktopRequest> desktopRequest(const std::vector<SpokenWord>& words,
                                             std::size_t first, std::size_t end) {
    std::optional<std::size_t> anyWord;
    std::optional<std::size_t> anyNumber;
    for (std::size_t at = first; at < end; ++at) {
        if (!anyNumber && numberOf(words[at]) > 0)
            anyNumber = at;
        if (!isDesktopWord(words[at].text))
            continue;
        if (!anyWord)
            anyWord = at;
        for (const std::size_t beside : {at + 1, at - 1}) {
            if (beside >= first && beside < end && numberOf(words[beside]) > 0)
                return DesktopRequest{numberOf(words[beside]), at, beside};
        }
    }
    if (!anyWord || !anyNumber)
        return std::nullopt;
    return DesktopRequest{numberOf(words[*anyNumber]), *anyWord, *anyNumber};
}

} // namespace skipnest::voice
