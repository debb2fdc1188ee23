// SPDX-License-Identifier: Apache-2.0
#include "voice/VoiceCommand.h"

#include "voice/DesktopNumber.h"
#include "voice/Sites.h"
#include "voice/VoiceFillers.h"

#include <gmock/gmock.h>

namespace skipnest::voice {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Step = VoiceCommand::Step;

QString s(const char* text) {
    return QString::fromUtf8(text);
}

Step find(const char* text) {
    return VoiceCommand::Find{s(text)};
}
Step window(VoiceCommand::WinVerb verb) {
    return VoiceCommand::Window{verb};
}
Step search(const char* query, const char* site = nullptr) {
    return VoiceCommand::Search{s(query),
                                site ? VoiceCommand::site(s(site))->search : std::nullopt};
}
Step open(const char* url) {
    return VoiceCommand::OpenSite{QUrl(s(url))};
}
Step dictate(const char* text) {
    return VoiceCommand::Dictate{s(text)};
}
constexpr auto close = VoiceCommand::WinVerb::close;

// The reading by the tables alone; what a person means is in the tables of phrases.
TEST(VoiceCommandTest, parsesByItsTables) {
    struct Row {
        const char* phrase;
        const char* target;
        std::vector<Step> steps;
    };
    const Row rows[] = {
        {"go to chrome open youtube and search for cats",
         "chrome",
         {open("https://www.youtube.com/"), search("cats", "youtube")}},
        {"go to chrome and search cats", "chrome", {search("cats")}},
        {"close this window", "", {window(close)}},
        {"exit", "", {window(close)}},
        {"schreibe Hallo Paul, bis später", "", {dictate("Hallo Paul, bis später")}},
        {"open youtube.com", "", {open("https://youtube.com")}},
        {"", "", {}},
        {"i would like to go to my documents folder", "documents folder", {}},
        {"search amazon for headphones", "", {search("headphones", "amazon")}},
        {"search for", "", {}},
        // A site's name alone is a target, and what a later search is about.
        {"open youtube and search for cats", "youtube", {search("cats", "youtube")}},
        {"google", "google", {}},
        {"google and search for cats", "google", {search("cats", "google")}},
        {"google cats", "", {search("cats")}},
        // Filler words go, wherever they stand.
        {"search for the best pizza in berlin", "", {search("best pizza berlin")}},
        {"search for cats and dogs", "dogs", {search("cats")}},
        {"quit spotify", "", {window(VoiceCommand::WinVerb::quit)}},
        {"fenster schließen", "fenster", {window(close)}},
        {"figma open landing page", "figma", {find("landing page")}},
        {"firefox and chrome", "firefox", {}},
        {"move the screenshot from downloads into Documents",
         "",
         {VoiceCommand::MoveFile{s("screenshot"), s("downloads"), s("Documents")}}},
        {"remove the tab", "remove", {}},
    };
    for (const Row& row : rows) {
        const VoiceCommand::Parsed parsed = VoiceCommand::parse(s(row.phrase));
        EXPECT_EQ(parsed.target.toStdString(), row.target) << row.phrase;
        EXPECT_EQ(parsed.steps, row.steps) << row.phrase;
    }
}

TEST(VoiceCommandTest, splitsAtEverythingButLettersDigitsAndFullStops) {
    struct Row {
        QString text;
        std::vector<const char*> words;
    };
    const Row rows[] = {
        {s(" go to  youtube.com, please!"), {"go", "to", "youtube.com", "please"}},
        {s("Anna-Lena's 3.5"), {"Anna", "Lena", "s", "3.5"}},
        {s("u\u0308ber ü"), {"u\u0308ber", "ü"}}, // a mark belongs to its letter
        {s("\u0308 x"), {"x"}},                   // and is no word by itself
        {s("हिन्दी שָׁלוֹם"), {"हिन्दी", "שָׁלוֹם"}},
        {s("a😀b 🎉"), {"a", "b"}},
        {s("𝒳𝒴 7७"), {"𝒳𝒴", "7७"}}, // beyond the first plane
        {QString(QChar(0xD83D)) + s("x"), {"x"}},
        {QStringLiteral("a\0b"), {"a", "b"}},
        {s("…"), {}},
        {s("..."), {"..."}},
    };
    for (const Row& row : rows) {
        QStringList words;
        for (const char* word : row.words)
            words.append(s(word));
        EXPECT_EQ(VoiceCommand::tokenize(row.text), words) << row.text.toStdString();
    }
}

TEST(VoiceCommandTest, findsTheFirstAddress) {
    struct Row {
        const char* words;
        const char* url;
    };
    const Row rows[] = {
        {"open youtube.com", "https://youtube.com"},
        {"http docs.python.org", "https://docs.python.org"},
        {"end. news.example.org b.c", "https://news.example.org"},
        {"https://a.b/c", "https://a.b/c"},
        {"the end.", nullptr},
        {"...", nullptr},
        {".", nullptr},
        {"httpbin.org", nullptr}, // taken for an address with its scheme, it has no host
        {"", nullptr},
    };
    for (const Row& row : rows) {
        const auto url = VoiceCommand::spokenURL({s(row.words)});
        EXPECT_EQ(url, row.url ? std::optional(QUrl(s(row.url))) : std::nullopt) << row.words;
    }
}

TEST(VoiceCommandTest, knowsMoveVerbsInsideOtherWords) {
    for (const char* text : {"MOVE it", "einsortieren", "verschiebe", "wegräumen", "pack it",
                             "leg das", "remove", "aufraeumen"})
        EXPECT_TRUE(VoiceCommand::hasMoveVerb(s(text))) << text;
    for (const char* text : {"package", "legal", "pack", "leg", "go to whatsapp and go to paul"})
        EXPECT_FALSE(VoiceCommand::hasMoveVerb(s(text))) << text;
}

TEST(VoiceCommandTest, encodesTheWordsOfASearch) {
    const QString amazon = *VoiceCommand::site(s("amazon"))->search;
    EXPECT_EQ(searchAddress(amazon, s("tee & käse 100%q")).toString(QUrl::FullyEncoded),
              s("https://www.amazon.de/s?k=tee%20%26%20k%C3%A4se%20100%25q"));
    EXPECT_FALSE(VoiceCommand::site(s("Amazon")));
    EXPECT_FALSE(VoiceCommand::site(s("gmail"))->search);
}

TEST(DesktopNumberTest, isTheOneBesideTheWord) {
    struct Row {
        const char* phrase;
        int number;
    };
    const Row rows[] = {
        {"Schreibtisch zwei", 2},
        {"go to space 3", 3},
        {"the two of us on desktop nine", 9},
        {"zwei auf dem schreibtisch", 2},
        {"auf Arbeitsfläche acht bitte", 8},
        {"desktop ٣", 3},
        {"desktop 𝟗", 9},
        {"desktop", 0},
        {"desktop 0", 0},
        {"desktop 10", 0},
        {"desktop ²", 0},
        {"workspaces two", 0},
        {"two", 0},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(desktopNumber(s(row.phrase)),
                  row.number > 0 ? std::optional(row.number) : std::nullopt)
            << row.phrase;
    }
}

TEST(VoiceFillersTest, leaveTheName) {
    EXPECT_EQ(spokenTarget(s("Ähm, ich möchte in meinen Downloads-Ordner")), s("downloads ordner"));
    EXPECT_EQ(spokenTarget(s("could you please")), QString());
}

// No phrase is too odd, and a long one takes as much longer as it is.
TEST(VoiceCommandTest, takesAnyText) {
    for (const QString& word :
         {s("open"), s("cats"), s("search"), s("and"), s("write"), s("move"), s("slack"), s("to"),
          s("desktop"), s("."), s("😀"), s("google"), s("message"), s("whats app"),
          s("move a to b and"), s("search a and"), QString(QChar(0))}) {
        const QString phrase = QString(word + u' ').repeated(100'000);
        const VoiceCommand::Parsed parsed = VoiceCommand::parse(phrase);
        EXPECT_LE(parsed.steps.size(), 100'000U) << word.toStdString();
    }
}

} // namespace
} // namespace skipnest::voice
