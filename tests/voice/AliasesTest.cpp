// SPDX-License-Identifier: Apache-2.0
#include "voice/Aliases.h"

#include <gmock/gmock.h>

namespace skipnest::voice {
namespace {

using namespace Qt::StringLiterals;
using model::VocabAlias;

struct Row {
    QString phrase;
    QString read;
};

TEST(Aliases, areReadInPlaceOfWholeWordsTheLongestFirstEachPlaceOnce) {
    const std::vector<VocabAlias> aliases{
        {u"buddy"_s, u"Budget"_s, {}}, {u"buddy get"_s, u"Budget Sheet"_s, {}},
        {u"Budget"_s, u"never"_s, {}}, {u"C++"_s, u"Compiler"_s, {}},
        {u"straße"_s, u"Karte"_s, {}}, {u"été"_s, u"summer"_s, {}},
        {u" "_s, u"nothing"_s, {}},    {u""_s, u"nothing"_s, {}},
        {u"a a"_s, u"b"_s, {}},
    };
    const Row rows[] = {
        {u"open buddy"_s, u"open Budget"_s},
        {u"open BUDDY  GET now"_s, u"open Budget Sheet now"_s},
        {u"buddy, buddy get."_s, u"Budget, Budget Sheet."_s},
        {u"buddys abuddy buddy's"_s, u"buddys abuddy buddy's"_s},
        {u"buddy2 buddy_x über-buddy"_s, u"buddy2 buddy_x über-Budget"_s},
        {u"open c++ file"_s, u"open Compiler file"_s},
        {u"STRASSE e\u0301te\u0301"_s, u"Karte summer"_s},
        {u"a a a a a"_s, u"b b a"_s},
        {u"  kept \t as is 👩‍💻 "_s, u"  kept \t as is 👩‍💻 "_s},
        {u""_s, u""_s},
    };
    for (const Row& row : rows)
        EXPECT_EQ(withAliases(row.phrase, aliases), row.read) << row.phrase.toStdString();
    EXPECT_EQ(withAliases(u"buddy"_s, {}), u"buddy"_s);
}

TEST(Aliases, learnOneMeaningForWhatWasHeard) {
    std::vector<VocabAlias> aliases;
    EXPECT_TRUE(learnAlias(aliases, u" buddy get "_s, u"Budget"_s));
    EXPECT_TRUE(learnAlias(aliases, u"other"_s, u"Else"_s));
    EXPECT_TRUE(learnAlias(aliases, u"Buddy Get"_s, u"Sheet"_s));
    EXPECT_FALSE(learnAlias(aliases, u" \t"_s, u"Sheet"_s));
    EXPECT_FALSE(learnAlias(aliases, u"sheet"_s, u"Sheet"_s));
    EXPECT_THAT(aliases, testing::ElementsAre(VocabAlias{u"buddy get"_s, u"Sheet"_s, {}},
                                              VocabAlias{u"other"_s, u"Else"_s, {}}));
}

} // namespace
} // namespace skipnest::voice
