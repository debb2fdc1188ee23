// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "voice/TargetScorer.h"

#include <QString>
#include <QStringList>

#include <random>
#include <vector>

namespace skipnest::voice {

// Made-up titles and phrases that have much in common: words of two languages, as they are, cut,
// misspelt or joined, with what else stands in titles. The same for the same seed.
class RandomTargets {
public:
    explicit RandomTargets(unsigned seed) : random_(seed) {}

    JumpTarget target() {
        JumpTarget target{.title = text(4), .kind = static_cast<JumpTarget::Kind>(below(5))};
        if (below(2) == 0)
            target.subtitle = below(2) == 0 ? QStringLiteral("Folder") : text(3);
        if (target.kind >= JumpTarget::Kind::tab)
            target.owner = pick();
        target.hot = below(5) == 0;
        return target;
    }
    std::vector<JumpTarget> targets(std::size_t count) {
        std::vector<JumpTarget> made(count);
        std::ranges::generate(made, [this] { return target(); });
        return made;
    }
    // Of some of the targets, at both sides of where counts matter.
    UseCounts uses(const std::vector<JumpTarget>& targets, std::size_t count) {
        constexpr std::int64_t counts[] = {1, 2, 3, 4, 40, 1'000'000};
        UseCounts uses;
        for (std::size_t i = 0; i < count; ++i)
            uses.insert(targets[below(targets.size())].title.toLower(), counts[below(6)]);
        return uses;
    }
    QString phrase() { return text(3); }

    // Up to `most` words.
    QString text(std::size_t most) {
        QString made = below(20) == 0 ? QStringLiteral(" ") : QString();
        for (std::size_t left = 1 + below(most); left > 0; --left)
            made +=
                word() + (left == 1 ? QString() : QString::fromUtf8(below(15) == 0 ? "\t " : " "));
        return made;
    }

    std::size_t below(std::size_t end) { return random_() % end; }

private:
    QString pick() {
        static const QStringList words =
            QString::fromUtf8(
                "safari documents Dokumente downloads Fotos photos Photoshop mail Kalender "
                "calendar "
                "Übersicht Straße Häuser Haus house houses Rechnung Rechnungen invoice budget "
                "report "
                "running runs Köln Cologne Schmidt Müller Mueller Meyer Maier notes Notizen music "
                "Musik "
                "Terminal files Firefox Chrome Slack Teams meeting Besprechung Steuererklärung "
                "2024 "
                "2025 v2 a of der die und 📄 👩‍💻 e\u0301te\u0301 été naïve שלום عقد Привет "
                "東京 "
                "ﬁle İstanbul "
                "Donaudampfschifffahrtsgesellschaftskapitänsmützenabzeichenverordnung--"
                "Donaudampfschifffahrtsgesellschaft -- :: C++ x")
                .split(u' ');
        return words[static_cast<qsizetype>(below(static_cast<std::size_t>(words.size())))];
    }
    QString word() {
        QString word = pick();
        const auto place = [this, &word] {
            return static_cast<qsizetype>(below(static_cast<std::size_t>(word.size()) + 1));
        };
        switch (below(8)) {
        case 0:
            return word.left(place()) + QChar(u'x');
        case 1:
            return word.insert(place(), QChar(static_cast<char16_t>(u'a' + below(26))));
        case 2:
            return word.remove(place(), 1) + QString::fromUtf8(below(2) == 0 ? "s" : "");
        case 3:
            return word + pick();
        case 4:
            return below(2) == 0 ? word.toUpper() : word.mid(place());
        default:
            return word;
        }
    }

    std::mt19937 random_;
};

} // namespace skipnest::voice
