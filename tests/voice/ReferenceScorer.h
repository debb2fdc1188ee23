// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "voice/FoldedText.h"
#include "voice/PhoneticKey.h"
#include "voice/TargetScorer.h"
#include "voice/WordStems.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <optional>
#include <string>
#include <vector>

namespace skipnest::voice {

// The score of one target, step by step and without any short cut: what the fast scorer has to
// agree with to the last bit. Shares with it how text is folded, stemmed and sounded, nothing else.
class ReferenceScorer {
public:
    std::optional<double> score(const QString& phrase, const JumpTarget& target,
                                std::int64_t uses) const {
        const std::vector<std::u32string> query = TargetScorer::phraseWords(phrase);
        const std::u32string t = foldedText(target.title);
        const std::u32string s = foldedText(target.subtitle);
        const std::u32string o = foldedText(target.owner);
        const bool isApp = target.kind == JumpTarget::Kind::app;
        const double fz = uses > 2 ? 0.58 : 0.72;
        const double ew = uses > 2 ? 5.5 : 4.0;

        std::size_t matched = 0;
        double wordSum = 0;
        std::u32string phraseText;
        for (const std::u32string& w : query) {
            phraseText += (phraseText.empty() ? U"" : U" ") + w;
            const double score = wordScore(w, t, s, o, isApp, fz, ew);
            if (score == 0)
                continue;
            ++matched;
            wordSum += score;
        }
        if (matched == 0)
            return std::nullopt;

        const double coverage =
            static_cast<double>(matched) / static_cast<double>(query.size()) * 4.0;
        const double usage =
            uses == 0 ? 0.0 : std::min(std::log2(static_cast<double>(uses) + 1) * 0.8, 2.5);
        const double hot = target.hot ? 1.0 : 0.0;
        double app = 0;
        if (isApp)
            app = 1.2 + (t == phraseText || similarity(t, phraseText) >= 0.85 ? 2.5 : 0.0);
        const double length = -0.02 * static_cast<double>(characterCount(target.title));
        return wordSum + coverage + usage + hot + app + length;
    }

    std::vector<ScoredTarget> score(const QString& phrase, const std::vector<JumpTarget>& targets,
                                    const UseCounts& uses) const {
        std::vector<ScoredTarget> ranked;
        for (std::size_t i = 0; i < targets.size(); ++i) {
            const auto one = score(phrase, targets[i], uses.value(targets[i].title.toLower(), 0));
            if (one)
                ranked.push_back({i, *one});
        }
        std::ranges::stable_sort(ranked, std::ranges::greater{}, &ScoredTarget::score);
        return ranked;
    }

    static std::size_t editDistance(std::u32string_view a, std::u32string_view b) {
        std::vector<std::size_t> row(b.size() + 1);
        std::iota(row.begin(), row.end(), std::size_t{0});
        for (std::size_t i = 1; i <= a.size(); ++i) {
            std::size_t diagonal = row[0];
            row[0] = i;
            for (std::size_t j = 1; j <= b.size(); ++j) {
                const std::size_t substituted = diagonal + (a[i - 1] == b[j - 1] ? 0 : 1);
                diagonal = row[j];
                row[j] = std::min({substituted, row[j] + 1, row[j - 1] + 1});
            }
        }
        return row[b.size()];
    }

private:
    double wordScore(const std::u32string& w, const std::u32string& t, const std::u32string& s,
                     const std::u32string& o, bool isApp, double fz, double ew) const {
        const auto has = [&w](const std::u32string& text) {
            return text.find(w) != std::u32string::npos;
        };
        const auto titleWords = wordsOf(t);
        if (t.starts_with(w))
            return 6.0;
        if (std::ranges::any_of(titleWords, [&w](auto word) { return word.starts_with(w); }))
            return 5.0;
        if (has(t) || has(s))
            return 2.0;
        if (w.size() > 3 && has(o))
            return 2.5;

        double score = 0;
        const auto stems = stems_.of(w);
        const auto hasSameStem = [this, &stems](std::u32string_view word) {
            const auto others = stems_.of(word);
            return word.size() > 2 && (stems[0] == others[0] || stems[1] == others[1]);
        };
        if (w.size() >= 3 && std::ranges::any_of(titleWords, hasSameStem))
            score = isApp ? ew : 3.0;
        double best = 0;
        for (const std::u32string_view word : titleWords)
            best = std::max(best, similarity(w, word));
        if (best >= fz)
            score = std::max(best * 2.5, score);
        if (best >= 0.8 && isApp)
            score = std::max(score, ew);
        return score;
    }

    static double similarity(std::u32string_view a, std::u32string_view b) {
        if (a == b)
            return 1.0;
        const std::size_t longer = std::max<std::size_t>({a.size(), b.size(), 1});
        const double alike =
            1.0 - static_cast<double>(editDistance(a, b)) / static_cast<double>(longer);
        if (a.size() < 3 || b.size() < 3)
            return alike;
        const std::u32string sound = phoneticKey(a);
        const bool soundsTheSame = !sound.empty() && sound == phoneticKey(b);
        return soundsTheSame ? std::max(alike, 0.85) : alike;
    }

    WordStems stems_;
};

} // namespace skipnest::voice
