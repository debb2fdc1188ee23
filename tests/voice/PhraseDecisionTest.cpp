// SPDX-License-Identifier: Apache-2.0
#include "voice/PhraseDecision.h"
#include "voice/JumpChoice.h"

#include <gmock/gmock.h>

namespace skipnest::voice {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Kind = PhraseDecision::Kind;

QString s(const char* text) {
    return QString::fromUtf8(text);
}

model::VocabAlias alias(const char* heard, const char* canonical) {
    return {s(heard), s(canonical), {}};
}

TEST(PhraseDecisionTest, readsAliasesEverywhereButInText) {
    const std::vector<model::VocabAlias> aliases{
        alias("sick ma", "figma"), alias("text it", "TextEdit"), alias("woxel", "whatsapp")};
    EXPECT_EQ(understand(s("open Sick Ma"), aliases).parsed.target, s("figma"));
    // One that swallows the word that would start a dictation.
    EXPECT_EQ(understand(s("text it"), aliases).parsed.target, s("textedit"));
    const PhraseDecision note = understand(s("open sick ma and write the sick ma woxel"), aliases);
    EXPECT_EQ(note.parsed.target, s("figma"));
    EXPECT_THAT(note.parsed.steps, ElementsAre(VoiceCommand::Dictate{s("the sick ma woxel")}));
    const PhraseDecision message = understand(s("woxel Paul write use woxel"), aliases);
    ASSERT_TRUE(message.route);
    EXPECT_EQ(message.route->contact, s("Paul"));
    EXPECT_EQ(message.route->message, s("use woxel"));
}

TEST(PhraseDecisionTest, opensASiteInPlaceOfItsName) {
    const PhraseDecision named = understand(s("open youtube and search for cats"));
    EXPECT_EQ(named.site, s("youtube"));
    const PhraseDecision opening = named.openingSite();
    EXPECT_EQ(opening.kind, Kind::steps);
    EXPECT_EQ(opening.parsed.target, QString());
    ASSERT_EQ(opening.parsed.steps.size(), 2U);
    EXPECT_EQ(opening.parsed.steps[0],
              VoiceCommand::Step(VoiceCommand::OpenSite{VoiceCommand::site(s("youtube"))->url}));
    EXPECT_EQ(opening.parsed.steps[1], named.parsed.steps[0]);
}

std::vector<JumpTarget> fewTargets() {
    const auto target = [](const char* title, JumpTarget::Kind kind, const char* owner = "") {
        JumpTarget made;
        made.title = s(title);
        made.kind = kind;
        made.owner = s(owner);
        return made;
    };
    using TargetKind = JumpTarget::Kind;
    std::vector<JumpTarget> targets{
        target("Google Chrome", TargetKind::app),
        target("Firefox", TargetKind::app),
        target("Notes", TargetKind::app),
        target("Budget - Sheets", TargetKind::tab, "Google Chrome"),
        target("Budget", TargetKind::folder),
        target("Meeting Notes.md", TargetKind::file),
        target("Meeting with Anna", TargetKind::window, "Notes"),
        target("Projekt X", TargetKind::folder),
        target("cats - YouTube", TargetKind::tab, "Google Chrome"),
    };
    return targets;
}

TEST(JumpChoiceTest, takesItsCandidatesFromTheContainer) {
    const auto targets = fewTargets();
    const NamedContainer chrome{s("Google Chrome"), s("budget")};
    EXPECT_EQ(namedContainer(s("chrome budget"), targets), chrome);
    EXPECT_EQ(namedContainer(s("budget Google Chrome"), targets), chrome);
    EXPECT_EQ(namedContainer(s("google chrome"), targets), std::nullopt);
    EXPECT_EQ(namedContainer(s("firefox budget"), targets), std::nullopt); // nothing of it is open
    EXPECT_EQ(namedContainer(s("meeting notes"), targets), std::nullopt);  // a file of that name

    const auto title = [&](const char* spoken) {
        const JumpChoice choice =
            JumpChoice::forSpoken(s(spoken), std::nullopt, targets, TargetScorer(targets), {});
        return choice.candidates.empty() ? QString()
                                         : targets[choice.candidates.front().target].title;
    };
    EXPECT_EQ(title("chrome budget"), s("Budget - Sheets"));
    EXPECT_EQ(title("budget"), s("Budget"));
    EXPECT_EQ(title("meeting notes"), s("Meeting Notes.md"));
    EXPECT_EQ(title("notes meeting with"), s("Meeting with Anna"));
    EXPECT_EQ(title("chrome firefox"), s("Firefox")); // nothing in the container: it was none
}

TEST(JumpChoiceTest, isClearOnlyFarAhead) {
    using ChoiceKind = JumpChoice::Kind;
    struct Row {
        std::vector<double> scores;
        ChoiceKind kind;
        std::size_t listed;
    };
    const Row rows[] = {
        {{}, ChoiceKind::none, 0},
        {{2.99}, ChoiceKind::none, 0},
        {{3.0}, ChoiceKind::commit, 1},
        {{10, 8.79}, ChoiceKind::commit, 1},
        {{10, 8.8}, ChoiceKind::list, 2},
        {{6.5, 5.71}, ChoiceKind::commit, 1},
        {{6.49, 3.1, 2.9}, ChoiceKind::list, 2},
        {{10, 10, 10, 10, 10, 10, 10, 10}, ChoiceKind::list, JumpChoice::mostListed},
    };
    std::vector<JumpTarget> targets(8);
    for (const Row& row : rows) {
        std::vector<ScoredTarget> ranked;
        for (const double score : row.scores)
            ranked.push_back({ranked.size(), score});
        const JumpChoice choice = JumpChoice::among(ranked, targets);
        EXPECT_EQ(choice.kind, row.kind) << testing::PrintToString(row.scores);
        EXPECT_EQ(choice.candidates.size(), row.listed) << testing::PrintToString(row.scores);
        EXPECT_EQ(choice.top, row.scores.empty() ? 0 : row.scores.front());
    }
    // The tab in front is no answer, and no rival.
    targets[0].kind = JumpTarget::Kind::tab;
    targets[0].current = true;
    const JumpChoice choice = JumpChoice::among({{0, 12}, {1, 11}, {2, 3}}, targets);
    EXPECT_TRUE(choice.droppedCurrentTab);
    EXPECT_EQ(choice.kind, ChoiceKind::commit);
    EXPECT_THAT(choice.candidates, ElementsAre(ScoredTarget{1, 11}));
}

TEST(JumpChoiceTest, lookForASiteOnlyByItsName) {
    const auto targets = fewTargets();
    const auto choose = [&](const char* spoken) {
        return JumpChoice::forSpoken(s(spoken), s(spoken), targets, TargetScorer(targets), {});
    };
    EXPECT_EQ(choose("x").kind, JumpChoice::Kind::none);
    EXPECT_EQ(choose("google").kind, JumpChoice::Kind::none);
    EXPECT_EQ(choose("youtube").kind, JumpChoice::Kind::commit);
}

} // namespace
} // namespace skipnest::voice
