// SPDX-License-Identifier: Apache-2.0
#include "voice/SpokenWords.h"

#include "voice/WordList.h"

#include <algorithm>

namespace skipnest::voice {
namespace {

struct Run {
    qsizetype begin;
    qsizetype end;
    bool afterPause;
};

struct CodePoint {
    char32_t value;
    int units;
};

CodePoint codePointAt(QStringView text, qsizetype at) {
    if (at + 1 < text.size() && text[at].isHighSurrogate() && text[at + 1].isLowSurrogate())
        return {QChar::surrogateToUcs4(text[at], text[at + 1]), 2};
    return {text[at].unicode(), 1};
}

bool isPause(char32_t c) {
    return c == U',' || c == U';' || c == U':' || c == U'!' || c == U'?' || c == U'\n';
}

std::vector<Run> runsOf(QStringView text) {
    std::vector<Run> runs;
    qsizetype begin = -1;
    bool afterPause = false;
    const auto finish = [&](qsizetype end) {
        if (begin < 0)
            return;
        runs.push_back({begin, end, afterPause});
        begin = -1;
        afterPause = false;
    };
    for (qsizetype at = 0; at < text.size();) {
        const CodePoint c = codePointAt(text, at);
        const bool isWord = c.value == U'.' || QChar::isLetterOrNumber(c.value) ||
                            (begin >= 0 && QChar::isMark(c.value));
        if (isWord && begin < 0)
            begin = at;
        if (!isWord) {
            finish(at);
            afterPause = afterPause || isPause(c.value);
        }
        at += c.units;
    }
    finish(text.size());
    return runs;
}

// The end of the word without the full stop of its sentence. What has a full stop inside keeps its
// last one, unless nothing follows it.
qsizetype endWithoutStop(QStringView text, const Run& run, bool isLast) {
    const QStringView word = text.mid(run.begin, run.end - run.begin);
    qsizetype size = word.size();
    while (size > 0 && word[size - 1] == u'.')
        --size;
    if (size > 0 && !isLast && word.first(size).contains(u'.'))
        return run.end;
    return run.begin + size;
}

bool isAscii(QStringView text) {
    return std::ranges::all_of(text, [](QChar c) { return c.unicode() < 0x80; });
}

QString lowerCase(QStringView text) {
    QString lower = text.toString().toLower();
    return isAscii(lower) ? lower : lower.normalized(QString::NormalizationForm_C);
}

} // namespace

QStringList VoiceCommand::tokenize(const QString& text) {
    QStringList words;
    for (const Run& run : runsOf(text))
        words.append(text.mid(run.begin, run.end - run.begin));
    return words;
}

std::vector<SpokenWord> spokenWords(const QString& transcript) {
    const std::vector<Run> runs = runsOf(transcript);
    std::vector<SpokenWord> words;
    words.reserve(runs.size());
    bool afterStop = false;
    for (const Run& run : runs) {
        const qsizetype end = endWithoutStop(transcript, run, &run == &runs.back());
        if (end > run.begin) {
            QString text = lowerCase(QStringView(transcript).mid(run.begin, end - run.begin));
            const WordUse& use = wordUse(text);
            words.push_back({std::move(text), run.begin, end, run.afterPause || afterStop, &use});
        }
        afterStop = end < run.end;
    }
    return words;
}

bool isHesitation(const std::vector<SpokenWord>& words, std::size_t at) {
    static constexpr QStringView sounds[] = {u"ähm", u"aehm", u"äh",   u"aeh", u"uh",  u"uhm",
                                             u"ehm", u"mhh",  u"mhhh", u"hmm", u"hmmm"};
    const SpokenWord& word = words[at];
    if (word.text == u"um")
        return word.afterPause && at + 1 < words.size() && words[at + 1].afterPause;
    return isOneOf(sounds, word.text);
}

QString textOf(const QString& transcript, const std::vector<SpokenWord>& words, std::size_t first,
               std::size_t end) {
    if (first >= end)
        return {};
    return transcript.mid(words[first].begin, words[end - 1].end - words[first].begin).simplified();
}

QString textAfter(const QString& transcript, const SpokenWord& word) {
    QString text = transcript.mid(word.end);
    for (QChar& c : text) {
        if (c.category() == QChar::Other_Control)
            c = u' ';
    }
    text = text.simplified();
    // What separates the trigger from the text belongs to neither.
    while (text.startsWith(u':') || text.startsWith(u',') || text.startsWith(u';') ||
           text == u"." || text.startsWith(u". "))
        text = text.mid(1).trimmed();
    return text;
}

} // namespace skipnest::voice
