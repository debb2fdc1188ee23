// SPDX-License-Identifier: Apache-2.0
#include "tests/ui/UiStage.h"

#include "stats/ChallengeService.h"
#include "stats/JumpStats.h"
#include "ui/PopoverModel.h"
#include "ui/stats/MomentWording.h"
#include "ui/stats/StatisticsCardModel.h"
#include "ui/stats/StatisticsPicture.h"

#include <QAbstractItemModelTester>
#include <QClipboard>
#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonObject>
#include <QQuickItem>

#include <gmock/gmock.h>

namespace skipnest::ui {
namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using platform::PopoverScreen;
using stats::JumpStats;
using testing::Contains;
using testing::Not;

constexpr auto day = 24h;

class StatisticsCard : public testing::Test {
protected:
    void launch() {
        desk().installApp({.name = u"Notes"_s, .path = u"/Applications/Notes.app"_s});
        stage_.launch();
        stage_.list().addShortcut(u"/Applications/Notes.app"_s, std::nullopt, std::nullopt);
    }
    // Takes part in the challenge, as told by an earlier run.
    void join(int rank, int of) {
        (void)desk().defaults().setValue(
            QString::fromLatin1(stats::ChallengeService::key),
            QJsonObject{{u"joined"_s, true},
                        {u"name"_s, u"Ada"_s},
                        {u"country"_s, u"gb"_s},
                        {u"id"_s, u"5f0c1f0e-8f8b-4d0e-9d5c-0123456789ab"_s},
                        {u"lastRank"_s, rank},
                        {u"lastOf"_s, of},
                        {u"awarded"_s, QJsonArray{u"ch.join"_s, u"ch.100"_s, u"ch.10"_s}},
                        {u"weekAnchorRank"_s, rank + 3},
                        {u"weekAnchorDate"_s, u"2025-12-31T00:00:00Z"_s}});
    }
    void jump(int times, const QString& target = u"Notes"_s) {
        for (int i = 0; i < times; ++i)
            stage_.agent().stats().record(JumpStats::Kind::keyboard, target);
        stage_.settle();
    }
    void show(PopoverScreen screen = PopoverScreen::list) { stage_.show({screen, {}}); }
    void hide() {
        stage_.agent().shell().closePopover();
        stage_.settle();
    }
    sim::SimDesktop& desk() { return stage_.desk(); }
    StatisticsCardModel& card() { return *stage_.panels().popoverModel().statistics(); }
    bool isCelebrated(const QString& id) {
        return stage_.agent().stats().store().celebrated.contains(id);
    }
    QString shown(const QString& objectName) {
        return stage_.hasItem(objectName) ? stage_.item(objectName).property("text").toString()
                                          : QString();
    }

    test::UiStage stage_;
};

TEST_F(StatisticsCard, saysTheWeekTheStreakAndTheTimeSaved) {
    launch();
    show();
    EXPECT_EQ(shown(u"statisticsHeadline"_s), u"Your jumps are counted here");
    hide();
    jump(20);
    desk().advance(day);
    jump(22);
    show();
    EXPECT_EQ(shown(u"statisticsHeadline"_s), u"42 jumps this week");
    EXPECT_EQ(shown(u"statisticsDetails"_s), u"2-day streak 🔥 · 4 min saved");

    // While it is shown it goes with the counts, and over midnight with the next look.
    jump(1);
    EXPECT_EQ(shown(u"statisticsHeadline"_s), u"43 jumps this week");
    hide();
    desk().advance(day);
    show();
    EXPECT_EQ(shown(u"statisticsDetails"_s), u"2 days, keep it alive today · 4 min saved");
    hide();
    desk().advance(10 * day);
    show();
    EXPECT_EQ(shown(u"statisticsHeadline"_s), u"0 jumps this week");
    EXPECT_EQ(shown(u"statisticsDetails"_s), u"43 jumps in all · 4 min saved");
}

TEST_F(StatisticsCard, readsNothingWhileNobodyLooks) {
    launch();
    int told = 0;
    QObject::connect(&card(), &StatisticsCardModel::changed, [&told] { ++told; });
    jump(5);
    EXPECT_EQ(told, 0);
    EXPECT_FALSE(isCelebrated(u"first"_s));
    show();
    EXPECT_GT(told, 0);
    EXPECT_TRUE(isCelebrated(u"first"_s));
    hide();
    told = 0;
    show();
    EXPECT_EQ(told, 0);
}

TEST_F(StatisticsCard, celebratesEachMilestoneInOneShowing) {
    launch();
    jump(1);
    show(PopoverScreen::settings);
    EXPECT_FALSE(isCelebrated(u"first"_s)); // not seen yet
    stage_.press(Qt::Key_Escape);
    EXPECT_EQ(shown(u"momentTitle"_s), u"Your first jump! 🎉");
    EXPECT_TRUE(isCelebrated(u"first"_s));
    jump(99);
    stage_.press(Qt::Key_Tab); // whatever the person does meanwhile
    EXPECT_EQ(card().momentTitle(), u"Your first jump! 🎉");
    hide();

    // One at a time: the hundred jumps, then the week.
    show();
    EXPECT_EQ(shown(u"momentTitle"_s), u"100 jumps! 🎉");
    EXPECT_EQ(shown(u"momentText"_s), u"That's 8 min of hunting you never did.");
    stage_.click(stage_.item(u"momentClose"_s));
    EXPECT_FALSE(stage_.hasItem(u"moment"_s));
    hide();
    show();
    EXPECT_EQ(shown(u"momentTitle"_s), u"100 jumps this week ⚡");
    EXPECT_EQ(card().momentKind(), u"recap");
    hide();
    show();
    EXPECT_EQ(card().momentKind(), u"tip");
}

TEST_F(StatisticsCard, aTipStaysUntilItIsClosedAndSaysTheKeysOfThisPerson) {
    launch();
    (void)desk().defaults().setValue(u"sk.comboGlyphs"_s, false);
    stage_.agent().stats().celebrate(u"first"_s);
    jump(3);
    for (int showing = 0; showing < 2; ++showing) {
        show();
        EXPECT_EQ(card().momentText(),
                  u"Drop any file or folder onto the menu-bar icon to give it a key.");
        hide();
    }
    show();
    card().dismissMoment();
    EXPECT_TRUE(isCelebrated(u"tip.drop"_s));
    hide();
    stage_.agent().stats().celebrate(u"recap.2026-W1"_s);
    jump(17);
    show();
    EXPECT_EQ(card().momentText(),
              u"Add Shift to any jump key and the window tucks away again. In, out, one hand.");
    hide();

    // Of keys that do not hide, and of features that are still to come, there is nothing to say.
    stage_.list().changeSettings([](auto& settings) { settings.shiftToHide = false; });
    show();
    EXPECT_EQ(card().momentKind(), QString());
}

TEST_F(StatisticsCard, theRankAndItsCelebrationAreTheChallenges) {
    join(2, 40);
    launch();
    jump(20);
    show();
    EXPECT_EQ(shown(u"statisticsDetails"_s), u"1-day streak 🔥 · 2 min saved · 🌍 #2 ▲3");
    // The jumps of twenty are more than a first one.
    EXPECT_EQ(shown(u"momentTitle"_s), u"You're on the podium! 🏅");
    EXPECT_EQ(shown(u"momentText"_s), u"Rank #2 worldwide.");
    EXPECT_TRUE(stage_.agent().challenge().state().awarded.contains(u"ch.3"_s));
    EXPECT_FALSE(isCelebrated(u"ch.3"_s));
    stage_.click(stage_.item(u"statisticsCard"_s));
    EXPECT_EQ(shown(u"challengeTitle"_s), u"🌍 #2 of 40 in the world");
    EXPECT_EQ(shown(u"challengeText"_s), u"3 places up this week");
    stage_.item(u"openChallenge"_s).forceActiveFocus();
    stage_.press(Qt::Key_Return);
    EXPECT_EQ(stage_.panels().popoverModel().screen(), u"challenge");
}

TEST_F(StatisticsCard, theScreenShowsTheWeeksAndTheMostUsedTargets) {
    launch();
    jump(4, u"Notes"_s);
    desk().advance(7 * day);
    jump(1, u"A\nB"_s);
    jump(8, u"Mail"_s);
    for (const char* name : {"c", "d", "e", "f"})
        jump(2, QString::fromLatin1(name));
    const QAbstractItemModelTester bars(card().bars());
    const QAbstractItemModelTester targets(card().targets());
    show(PopoverScreen::statistics);

    std::vector<double> lengths;
    for (const WeekBar& bar : card().bars()->rows())
        lengths.push_back(bar.length);
    EXPECT_THAT(lengths,
                testing::ElementsAre(0, 0, 0, 0, 0, 0, testing::DoubleNear(4 / 17.0, 1e-9), 1));
    EXPECT_EQ(card().bars()->rows().back().spoken, u"17 jumps in the seven days to today");
    std::vector<std::string> names;
    for (const MostUsedTarget& target : card().targets()->rows())
        names.push_back(target.name.toStdString());
    EXPECT_THAT(names, testing::ElementsAre("Mail", "Notes", "c", "d", "e"));

    jump(30, u"f"_s);
    EXPECT_EQ(card().targets()->rows().front().name, u"f");
}

TEST_F(StatisticsCard, thePictureIsSavedBesideEarlierOnesOrTheReasonIsSaid) {
    desk().setServiceAddress({});
    launch();
    jump(3);
    show(PopoverScreen::statistics);
    const QString folder = desk().appInfo().downloadsFolder;
    const QString stem =
        folder + u"/Skipnest-jumps-"_s + desk().ports().wallClock.today().toString(Qt::ISODate);
    card().savePicture();
    card().savePicture();
    for (const QString& path : {stem + u".png"_s, stem + u"-2.png"_s}) {
        const auto bytes = desk().ports().files.read(path, 1 << 20);
        ASSERT_TRUE(bytes) << qPrintable(path);
        EXPECT_EQ(QImage::fromData(*bytes, "PNG").size(), QSize(1200, 630));
    }
    EXPECT_TRUE(shown(u"shareResult"_s).endsWith(u"-2.png"_s));

    desk().files().failAfter(1); // the folder is there
    card().savePicture();
    EXPECT_EQ(card().shareResultKind(), u"danger");
    EXPECT_EQ(desk().ports().files.kind(stem + u"-3.png"_s), platform::FileKind::none);

    card().copyPicture();
    EXPECT_EQ(QGuiApplication::clipboard()->image().size(), QSize(1200, 630));
    // Without a service there is no page to link to.
    EXPECT_FALSE(stage_.hasItem(u"copyLink"_s));
    card().copyLink();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QString());
}

TEST_F(StatisticsCard, theLinkCarriesTheFiguresOnly) {
    launch();
    jump(12);
    show(PopoverScreen::statistics);
    card().copyLink();
    EXPECT_EQ(QGuiApplication::clipboard()->text(),
              u"https://service.example/share.php?j=12&m=1&s=1&t=12");
}

TEST_F(StatisticsCard, aThemesPictureIsOfItsColours) {
    const StatisticsFigures figures{42, 42, 5, 0, {0, 1, 2, 3, 4, 5, 6, 42}, QDate(2026, 11, 21)};
    EXPECT_EQ(statisticsPicture(figures, darkPalette).pixelColor(2, 2), darkPalette.window);
    EXPECT_NE(statisticsPicture(figures, darkPalette), statisticsPicture(figures, brandPalette));
    EXPECT_EQ(statisticsPicture({}, lightPalette).size(), QSize(1200, 630));
}

// In English a moment reads as the catalogue has it, whatever wording stands in between.
TEST(MomentWording, isTheCataloguesInEnglish) {
    stats::StatsStore store;
    store.total = 80'000;
    int seen = 0;
    for (auto milestone = stats::jumpMilestone(store); milestone;
         milestone = stats::jumpMilestone(store), ++seen) {
        const Moment moment = wordedMilestone(*milestone, std::nullopt);
        // Without translations English has no singular.
        if (milestone->id != u"h1") {
            EXPECT_EQ(moment.title, milestone->title);
        }
        EXPECT_EQ(moment.text, milestone->sub);
        store.celebrated.append(milestone->id);
    }
    EXPECT_EQ(seen, 12);

    stats::ChallengeStanding standing{1, 200, {}};
    for (auto milestone = stats::challengeMilestone(standing); milestone;
         milestone = stats::challengeMilestone(standing)) {
        const Moment moment = wordedMilestone(*milestone, standing);
        EXPECT_EQ(moment.title, milestone->title);
        EXPECT_EQ(moment.text, milestone->sub);
        standing.awarded.append(milestone->id);
    }
    EXPECT_EQ(standing.awarded.size(), 5);

    const QDate today(2026, 11, 21);
    store.byDay = {{today, 1400}, {today.addDays(-1), 100}};
    const auto recap = stats::recap(store, today);
    const Moment moment = wordedRecap(*recap, 1500, 2);
    EXPECT_EQ(moment.title, recap->title);
    EXPECT_EQ(moment.text, recap->sub);

    using platform::ModifierStyle;
    for (auto tip = stats::tip(store); tip; tip = stats::tip(store)) {
        EXPECT_EQ(wordedTip(*tip, {}, ModifierStyle::glyphs).text, tip->text);
        const QString names = wordedTip(*tip, {}, ModifierStyle::names).text;
        for (const char16_t glyph : {u'⇧', u'⌃', u'⌘', u'⌫'})
            EXPECT_FALSE(names.contains(QChar(glyph))) << qPrintable(names);
        store.celebrated.append(tip->id);
    }
}

} // namespace
} // namespace skipnest::ui
