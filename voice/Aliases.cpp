// SPDX-License-Identifier: Apache-2.0
#include "voice/Aliases.h"

#include "voice/FoldedText.h"

#include <QTextBoundaryFinder>

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <string>

namespace skipnest::voice {
namespace {

// A word, or a sign between words.
struct Segment {
    qsizetype begin = 0;
    qsizetype end = 0;
    std::u32string folded;
};

std::vector<Segment> segmentsOf(const QString& text) {
    std::vector<Segment> segments;
    QTextBoundaryFinder borders(QTextBoundaryFinder::Word, text);
    qsizetype begin = 0;
    for (qsizetype end = borders.toNextBoundary(); end > 0; end = borders.toNextBoundary()) {
        const QString piece = text.mid(begin, end - begin);
        if (!piece.trimmed().isEmpty())
            segments.push_back({begin, end, foldedText(piece)});
        begin = end;
    }
    return segments;
}

struct Reading {
    std::vector<Segment> heard;
    const QString* canonical = nullptr;

    [[nodiscard]] std::size_t length() const {
        return std::accumulate(
            heard.begin(), heard.end(), std::size_t{0},
            [](std::size_t sum, const Segment& segment) { return sum + segment.folded.size(); });
    }
};

std::vector<Reading> readingsOf(const std::vector<model::VocabAlias>& aliases) {
    std::vector<Reading> readings;
    for (const model::VocabAlias& alias : aliases) {
        Reading reading{segmentsOf(alias.heard), &alias.canonical};
        if (!reading.heard.empty())
            readings.push_back(std::move(reading));
    }
    std::ranges::stable_sort(readings, std::ranges::greater{}, &Reading::length);
    return readings;
}

} // namespace

QString withAliases(const QString& phrase, const std::vector<model::VocabAlias>& aliases) {
    const std::vector<Reading> readings = readingsOf(aliases);
    if (readings.empty())
        return phrase;
    const std::vector<Segment> said = segmentsOf(phrase);
    // For each segment of the phrase the reading that took it.
    std::vector<const Reading*> taken(said.size());
    for (const Reading& reading : readings) {
        const std::size_t count = reading.heard.size();
        for (std::size_t at = 0; at + count <= said.size(); ++at) {
            const auto first = said.begin() + static_cast<std::ptrdiff_t>(at);
            const auto firstTaken = taken.begin() + static_cast<std::ptrdiff_t>(at);
            const auto end = firstTaken + static_cast<std::ptrdiff_t>(count);
            const bool isFree =
                std::all_of(firstTaken, end, [](auto* by) { return by == nullptr; });
            if (!isFree || !std::equal(reading.heard.begin(), reading.heard.end(), first,
                                       [](const Segment& a, const Segment& b) {
                                           return a.folded == b.folded;
                                       }))
                continue;
            std::fill(firstTaken, end, &reading);
            at += count - 1;
        }
    }

    QString read;
    qsizetype copied = 0;
    for (std::size_t at = 0; at < said.size();) {
        if (taken[at] == nullptr) {
            ++at;
            continue;
        }
        const std::size_t last = at + taken[at]->heard.size() - 1;
        read += QStringView(phrase).mid(copied, said[at].begin - copied);
        read += *taken[at]->canonical;
        copied = said[last].end;
        at = last + 1;
    }
    return read + QStringView(phrase).mid(copied).toString();
}

bool learnAlias(std::vector<model::VocabAlias>& aliases, const QString& heard,
                const QString& canonical) {
    const QString said = heard.trimmed();
    const auto isSaid = [&said](const QString& text) {
        return foldedText(text) == foldedText(said);
    };
    if (said.isEmpty() || isSaid(canonical))
        return false;
    const auto known = std::ranges::find_if(
        aliases, [&](const model::VocabAlias& alias) { return isSaid(alias.heard.trimmed()); });
    if (known != aliases.end())
        known->canonical = canonical;
    else
        aliases.push_back({said, canonical, {}});
    return true;
}

} // namespace skipnest::voice
