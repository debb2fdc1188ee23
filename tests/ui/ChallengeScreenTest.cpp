// SPDX-License-Identifier: Apache-2.0
#include "tests/ui/ChallengeScene.h"
#include "tests/ui/UiStage.h"

#include "ui/PopoverModel.h"
#include "ui/challenge/ChallengeScreenModel.h"
#include "ui/challenge/Flags.h"

#include <QAbstractItemModelTester>
#include <QQuickItem>
#include <QQuickView>

#include <gmock/gmock.h>

namespace skipnest::ui {
namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using platform::HttpReply;
using platform::PopoverScreen;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class ChallengeScreenTest : public testing::Test {
protected:
    void open(void (*furnish)(sim::SimDesktop&) = [](sim::SimDesktop&) {}) {
        furnish(stage_.desk());
        stage_.launch();
        stage_.show({PopoverScreen::challenge, {}});
        wait();
        stage_.desk().journal().clear();
    }
    void wait(platform::Duration time = 0ms) {
        stage_.settle();
        stage_.desk().advance(time);
        stage_.settle();
    }
    ChallengeScreenModel& screen() { return *stage_.panels().popoverModel().challenge(); }
    const stats::ChallengeService::State& state() { return stage_.agent().challenge().state(); }
    void answer(const QByteArray& body, int status = 200) {
        stage_.desk().http().setAnswer(test::challengePage, HttpReply{status, body});
    }
    QString shown(const QString& objectName) {
        return stage_.hasItem(objectName) ? stage_.item(objectName).property("text").toString()
                                          : QString();
    }
    QString focused() {
        for (const QQuickItem* item = stage_.popover().activeFocusItem(); item != nullptr;
             item = item->parentItem())
            if (!item->objectName().isEmpty())
                return item->objectName();
        return {};
    }
    std::vector<std::string> requests() {
        std::vector<std::string> all;
        for (const std::string& call : stage_.desk().journal().calls())
            if (call.starts_with("http"))
                all.push_back(call);
        return all;
    }

    test::UiStage stage_;
};

TEST_F(ChallengeScreenTest, isJoinedByKeyboardAlone) {
    open();
    EXPECT_THAT(requests(), IsEmpty());
    EXPECT_FALSE(stage_.item(u"challengeSend"_s).isEnabled()); // no name yet
    EXPECT_EQ(screen().country(), u"us");                      // the locale's
    answer(
        R"({"available":true,"ok":true,"rank":3,"of":9,"board":[{"rank":3,"n":"Ada","me":true}]})");
    stage_.type(u"Ada"_s);
    stage_.press(Qt::Key_Tab);
    stage_.type(u"swi"_s);
    stage_.press(Qt::Key_Return);
    EXPECT_EQ(screen().country(), u"ch");
    EXPECT_EQ(focused(), u"challengeCountryHead");
    stage_.press(Qt::Key_Tab);
    EXPECT_EQ(focused(), u"challengeSend");
    stage_.press(Qt::Key_Space);
    wait();
    ASSERT_TRUE(state().joined);
    EXPECT_EQ(state().name, u"Ada");
    EXPECT_EQ(state().country, u"ch");
    EXPECT_EQ(shown(u"challengeStanding"_s), u"Rank #3 of 9");
    EXPECT_EQ(focused(), u"challengeBoard");
    EXPECT_EQ(screen().rows()->rowCount(), 1);
}

TEST_F(ChallengeScreenTest, escapeFoldsTheCountriesAndOnlyThenLeaves) {
    open();
    stage_.press(Qt::Key_Tab);
    stage_.press(Qt::Key_Down);
    EXPECT_EQ(focused(), u"challengeCountrySearch");
    EXPECT_EQ(stage_.item(u"challengeCountryList"_s).property("currentIndex").toInt(),
              screen().countries()->rowOfCode(u"us"_s));
    stage_.type(u"zz"_s);
    EXPECT_EQ(screen().countries()->rowCount(), 0);
    stage_.press(Qt::Key_Return);
    stage_.press(Qt::Key_Escape);
    EXPECT_EQ(focused(), u"challengeCountryHead");
    EXPECT_EQ(screen().country(), u"us");
    stage_.press(Qt::Key_Escape);
    EXPECT_EQ(stage_.panels().popoverModel().screen(), u"list");
}

TEST_F(ChallengeScreenTest, aNameThatCannotBeHadIsToldAndNothingIsStored) {
    open();
    answer(R"({"available":false})");
    stage_.type(u"Ada"_s);
    stage_.press(Qt::Key_Return);
    wait();
    EXPECT_EQ(shown(u"challengeMessage"_s), u"That name's already taken. Try another.");
    EXPECT_FALSE(state().joined);
    answer("", 500);
    stage_.press(Qt::Key_Return);
    wait();
    EXPECT_THAT(shown(u"challengeMessage"_s).toStdString(), HasSubstr("can't be reached"));
    stage_.type(u"2"_s); // what was said is old
    EXPECT_EQ(shown(u"challengeMessage"_s), u"");
    EXPECT_EQ(shown(u"challengeNameHint"_s), u"");
    stage_.type(u"345678901234567890123"_s);
    EXPECT_NE(shown(u"challengeNameHint"_s), u"");
    EXPECT_FALSE(screen().canSend());
    EXPECT_FALSE(state().joined);
}

TEST_F(ChallengeScreenTest, withoutAServiceItSaysSo) {
    open(test::removeWebService);
    EXPECT_EQ(shown(u"challengeProblem"_s), stage_.agent().challenge().availability().reason);
    EXPECT_FALSE(stage_.item(u"challengeName"_s).isEnabled());
    EXPECT_FALSE(stage_.item(u"challengeCountry"_s).isEnabled());
    EXPECT_FALSE(stage_.hasItem(u"challengeWeb"_s));
    screen().setName(u"Ada"_s);
    screen().send();
    screen().readBoard();
    wait();
    EXPECT_FALSE(state().joined);
    EXPECT_THAT(requests(), IsEmpty());
    stage_.press(Qt::Key_Escape);
    EXPECT_EQ(stage_.panels().popoverModel().screen(), u"list");
}

TEST_F(ChallengeScreenTest, theBoardIsReadWheneverItComesIntoView) {
    open(test::takePartInChallenge);
    EXPECT_EQ(shown(u"challengeStanding"_s), u"Rank #7 of 1,204");
    EXPECT_EQ(shown(u"challengeClimb"_s), u"▲3");
    EXPECT_EQ(screen().rows()->rowCount(), 59);
    EXPECT_EQ(stage_.item(u"challengeBoard"_s).property("currentIndex").toInt(), 6);
    stage_.press(Qt::Key_Down);
    stage_.press(Qt::Key_End);
    EXPECT_EQ(stage_.item(u"challengeBoard"_s).property("currentIndex").toInt(), 58);

    answer("", 503);
    stage_.desk().journal().clear();
    stage_.agent().shell().closePopover();
    stage_.show({PopoverScreen::challenge, {}});
    wait();
    EXPECT_EQ(requests().size(), 1U);
    EXPECT_THAT(shown(u"challengeBoardNote"_s).toStdString(), HasSubstr("how it was last"));
    EXPECT_EQ(screen().rows()->rowCount(), 59);

    stage_.click(stage_.item(u"challengeWeb"_s));
    EXPECT_THAT(stage_.desk().journal().calls().back(),
                HasSubstr("url=https://service.example/leaderboard.php"));
}

TEST_F(ChallengeScreenTest, aBoardThatWasAskedForEarlierIsNotShownLater) {
    open(test::takePartInChallenge);
    auto& http = stage_.desk().http();
    http.setAnswer(test::challengePage,
                   HttpReply{200, R"({"ok":true,"board":[{"rank":1,"n":"Old"}]})"}, 5s);
    screen().readBoard();
    http.setAnswer(test::challengePage,
                   HttpReply{200, R"({"ok":true,"board":[{"rank":1,"n":"New"}]})"}, 1s);
    screen().readBoard();
    wait(10s);
    ASSERT_EQ(screen().rows()->rowCount(), 1);
    EXPECT_EQ(screen().rows()->rows().front().name, u"New");
}

TEST_F(ChallengeScreenTest, anotherNameIsAskedForInPlace) {
    open(test::takePartInChallenge);
    const QString id = state().id;
    stage_.item(u"challengeRename"_s).forceActiveFocus(Qt::TabFocusReason);
    stage_.press(Qt::Key_Return);
    EXPECT_EQ(focused(), u"challengeName");
    EXPECT_EQ(shown(u"challengeName"_s), u"Ada");
    EXPECT_FALSE(screen().canSend()); // nothing is different yet
    stage_.press(Qt::Key_Escape);
    EXPECT_EQ(screen().face(), u"board");
    stage_.click(stage_.item(u"challengeRename"_s));
    stage_.press(Qt::Key_End);
    stage_.type(u" L"_s);
    stage_.press(Qt::Key_Return);
    wait();
    EXPECT_EQ(state().name, u"Ada L");
    EXPECT_EQ(state().id, id);
    EXPECT_EQ(shown(u"challengeOwnName"_s), u"Ada L");
}

TEST_F(ChallengeScreenTest, leavingIsAskedForTwiceAndToldWhereItFails) {
    open(test::takePartInChallenge);
    stage_.item(u"challengeAskToLeave"_s).forceActiveFocus(Qt::TabFocusReason);
    stage_.press(Qt::Key_Return);
    EXPECT_EQ(focused(), u"challengeStay"); // Return changes nothing
    stage_.press(Qt::Key_Return);
    EXPECT_EQ(screen().face(), u"board");
    EXPECT_THAT(requests(), IsEmpty());

    answer("", 500);
    stage_.click(stage_.item(u"challengeAskToLeave"_s));
    stage_.click(stage_.item(u"challengeLeave"_s));
    wait();
    EXPECT_TRUE(state().joined);
    EXPECT_THAT(shown(u"challengeMessage"_s).toStdString(), HasSubstr("still on the board"));
    answer("");
    stage_.click(stage_.item(u"challengeLeave"_s));
    wait();
    EXPECT_FALSE(state().joined);
    EXPECT_EQ(screen().face(), u"join");
    EXPECT_EQ(focused(), u"challengeName");
    EXPECT_EQ(screen().rows()->rowCount(), 0);
}

TEST(ChallengeRows, aNewBoardIsToldAsTheOperationsThatLeadThere) {
    const auto board = [](std::initializer_list<const char*> names) {
        stats::ChallengeBoard result;
        for (const char* name : names)
            result.entries.push_back({static_cast<std::int64_t>(result.entries.size()) + 1,
                                      QString::fromLatin1(name), u"de"_s, 1, 0, 0, false});
        return result;
    };
    ChallengeRows rows;
    const QAbstractItemModelTester tester(&rows,
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    std::vector<std::string> told;
    QObject::connect(&rows, &QAbstractItemModel::rowsInserted, [&told](auto&, int first, int) {
        told.push_back("insert " + std::to_string(first));
    });
    QObject::connect(&rows, &QAbstractItemModel::rowsRemoved, [&told](auto&, int first, int) {
        told.push_back("remove " + std::to_string(first));
    });
    QObject::connect(&rows, &QAbstractItemModel::rowsMoved, [&told] { told.emplace_back("move"); });
    QObject::connect(&rows, &QAbstractItemModel::modelReset,
                     [&told] { told.emplace_back("reset"); });
    rows.show(board({"Ada", "Ben", "Cleo"}));
    told.clear();
    rows.show(board({"Cleo", "Ada", "Dan"}));
    EXPECT_THAT(told, ElementsAre("remove 1", "move", "insert 2"));
    told.clear();
    rows.show(board({"Cleo", "Ada", "Dan"}));
    EXPECT_THAT(told, IsEmpty());
}

TEST(CountryChoices, areFoundByWordAndCode) {
    struct Row {
        QString typed;
        QString first; // code
        bool alone;
    };
    const Row table[] = {
        {u"germ"_s, u"de"_s, true},      {u"DE"_s, u"de"_s, false},
        {u"aland"_s, u"ax"_s, true},     {u"arab emir"_s, u"ae"_s, true},
        {u"  ivoire "_s, u"ci"_s, true}, {u"ivoir x"_s, u""_s, false},
        {u"turkiye"_s, u"tr"_s, true},   {u"kong"_s, u"hk"_s, true},
        {u"guinea"_s, u"gn"_s, false},
    };
    CountryChoices choices;
    const int all = choices.rowCount();
    EXPECT_EQ(all, 249);
    for (const Row& row : table) {
        choices.setText(row.typed);
        EXPECT_EQ(choices.codeAt(0), row.first) << qPrintable(row.typed);
        EXPECT_EQ(choices.rowCount() == 1, row.alone) << qPrintable(row.typed);
    }
    choices.setText({});
    EXPECT_EQ(choices.rowCount(), all);
}

TEST(Flags, areTheTwoLettersOfTheCode) {
    EXPECT_EQ(Flags::text(u"de"_s), u"🇩🇪");
    EXPECT_EQ(Flags::text(u"xx"_s), u"");
    EXPECT_EQ(Flags::text(u""_s), u"");
}

} // namespace
} // namespace skipnest::ui
