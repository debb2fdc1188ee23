// SPDX-License-Identifier: Apache-2.0
#include "tests/voice/RandomTargets.h"
#include "tests/voice/ReferenceScorer.h"
#include "voice/EditDistance.h"

#include <gmock/gmock.h>

namespace skipnest::voice {
namespace {

using namespace Qt::StringLiterals;

TEST(EditDistance, isThatOfTheWholeTableOnEverySideOfABlock) {
    std::mt19937 random(7);
    const auto text = [&random](std::size_t length) {
        std::u32string made(length, U'a');
        for (char32_t& c : made)
            c = static_cast<char32_t>((random() % 9 == 0 ? U'é' : U'a') + random() % 3);
        return made;
    };
    for (const std::size_t length : {0, 1, 2, 7, 63, 64, 65, 127, 128, 129, 200}) {
        for (int round = 0; round < 40; ++round) {
            const std::u32string a = text(length);
            // Half of them near the first one, half of any length.
            std::u32string b = round % 2 == 0 ? a : text(random() % 220);
            for (std::size_t edits = random() % 8; edits > 0 && !b.empty(); --edits)
                b.erase(random() % b.size(), 1).insert(random() % (b.size() + 1), 1, U'b');
            const std::size_t distance = ReferenceScorer::editDistance(a, b);
            const EditDistance distances(a);
            EXPECT_EQ(distances.to(b, 300), distance);
            EXPECT_EQ(distances.to(b, distance), distance);
            if (distance > 0) {
                EXPECT_EQ(distances.to(b, distance - 1), distance);
            }
        }
    }
}

TEST(EditDistance, mostDistanceIsTheLastOneThatIsSimilarEnough) {
    for (const double similarity : {0.58, 0.72, 0.8, 0.85}) {
        for (std::size_t length = 1; length < 300; ++length) {
            const std::size_t most = mostDistance(similarity, length);
            EXPECT_GE(similarityOf(most, length), similarity);
            EXPECT_LT(similarityOf(most + 1, length), similarity) << length;
        }
    }
}

struct Pair {
    QString a;
    QString b;
    bool same;
};

TEST(PhoneticKey, isOneForWhatSoundsTheSameInEitherLanguage) {
    const Pair pairs[] = {
        {u"photoshop"_s, u"fotoshop"_s, true}, {u"Meyer"_s, u"Maier"_s, true},
        {u"Mayer"_s, u"Meier"_s, true},        {u"Müller"_s, u"Mueller"_s, true},
        {u"Schmidt"_s, u"Schmitt"_s, true},    {u"Kalender"_s, u"calendar"_s, true},
        {u"figma"_s, u"figmer"_s, true},       {u"bar"_s, u"baa"_s, false},
        {u"chrome"_s, u"crome"_s, true},       {u"slack"_s, u"slak"_s, true},
        {u"knight"_s, u"nite"_s, true},        {u"write"_s, u"rite"_s, true},
        {u"mail"_s, u"male"_s, true},          {u"Dokumente"_s, u"documente"_s, true},
        {u"quick"_s, u"kwick"_s, true},        {u"Häuser"_s, u"Heuser"_s, true},
        {u"Stadt"_s, u"Statt"_s, true},        {u"Foto Shop"_s, u"photo-shop"_s, true},
        {u"mail"_s, u"null"_s, false},         {u"mail"_s, u"nail"_s, false},
        {u"notes"_s, u"nuts"_s, false},        {u"teams"_s, u"terms"_s, false},
        {u"2024"_s, u"2025"_s, false},         {u"привет"_s, u"мир"_s, false},
        {u"東京"_s, u"大阪"_s, false},         {u"maps"_s, u"mail"_s, false},
    };
    for (const auto& [a, b, same] : pairs)
        EXPECT_EQ(phoneticKey(foldedText(a)) == phoneticKey(foldedText(b)), same)
            << a.toStdString() << " / " << b.toStdString();
    for (const QString& silent : {u""_s, u"--"_s, u"📄"_s, u"h"_s})
        EXPECT_TRUE(phoneticKey(foldedText(silent)).empty()) << silent.toStdString();
}

TEST(WordStems, areSharedWhereEitherLanguageHasThem) {
    const WordStems stems;
    const Pair pairs[] = {
        {u"runs"_s, u"running"_s, true},  {u"houses"_s, u"housing"_s, true},
        {u"Häuser"_s, u"Haus"_s, true},   {u"Rechnung"_s, u"Rechnungen"_s, true},
        {u"Notizen"_s, u"Notiz"_s, true}, {u"dokuments"_s, u"documents"_s, false},
        {u"mail"_s, u"maps"_s, false},    {u"привет"_s, u"привета"_s, false},
    };
    for (const auto& [a, b, same] : pairs) {
        const auto first = stems.of(foldedText(a));
        const auto second = stems.of(foldedText(b));
        EXPECT_EQ(first[0] == second[0] || first[1] == second[1], same)
            << a.toStdString() << " / " << b.toStdString();
    }
}

} // namespace
} // namespace skipnest::voice
