// SPDX-License-Identifier: Apache-2.0
#include "tests/ui/SwitcherScene.h"

#include "platform/UserDefaults.h"
#include "ui/Theme.h"
#include "ui/switcher/BarLayout.h"
#include "ui/switcher/MarkedMatch.h"
#include "ui/switcher/SwitcherBarModel.h"
#include "ui/switcher/WindowPreview.h"

#include <QAbstractItemModelTester>
#include <QQuickItem>
#include <QQuickView>

#include <gmock/gmock.h>

namespace skipnest {
namespace {

using namespace Qt::StringLiterals;
using test::SwitcherScene;
using testing::ElementsAre;
using testing::IsEmpty;
using ui::BarLayout;
using Content = SwitcherScene::Content;
using Level = switcher::SwitcherModel::Level;

// Sizes.

struct Room {
    const char* name;
    QSize area;
    int windows;
    double cardWidth;
    int columns;
    bool scrolls;
};

class CardsIn : public testing::TestWithParam<Room> {};

TEST_P(CardsIn, areAllInViewWhileTheyCanBeRead) {
    const Room& row = GetParam();
    const BarLayout layout = ui::layoutBar({row.area, row.cardWidth, row.windows});
    EXPECT_EQ(layout.cardColumns, row.columns);
    EXPECT_LE(layout.size.width(), row.area.width());
    EXPECT_LE(layout.size.height(), row.area.height());
    const int rows = (row.windows + layout.cardColumns - 1) / layout.cardColumns;
    const int needed = rows * (layout.cardHeight + BarLayout::gap) - BarLayout::gap;
    const int chrome = 2 * BarLayout::margin + BarLayout::headerHeight + BarLayout::footerHeight +
                       2 * BarLayout::spacing;
    EXPECT_EQ(needed > layout.size.height() - chrome, row.scrolls);
    EXPECT_LE(layout.cardColumns * (layout.cardWidth + BarLayout::gap) - BarLayout::gap,
              layout.size.width() - 2 * BarLayout::margin);
}

INSTANTIATE_TEST_SUITE_P(bar, CardsIn,
                         testing::Values(Room{"one", {1600, 1000}, 1, 220, 1, false},
                                         Room{"six", {1600, 1000}, 6, 220, 6, false},
                                         Room{"sevenInTwoEvenRows", {1600, 1000}, 7, 220, 4, false},
                                         Room{"shrunkToFit", {1280, 720}, 20, 220, 7, false},
                                         Room{"fiveHundred", {1600, 1000}, 500, 220, 7, true},
                                         Room{"smallScreen", {800, 480}, 4, 220, 2, false},
                                         Room{"absurdWish", {1024, 768}, 3, 5000, 2, false}),
                         [](const auto& info) { return info.param.name; });

TEST(BarLayout, shrinksInViewOnlyForWhatIsFound) {
    const BarLayout windows = ui::layoutBar({{1600, 1000}, 220, 20});
    const BarLayout tabs = ui::layoutBar({{1600, 1000}, 220, 20, 3, 0, false}, windows.size);
    EXPECT_EQ(tabs.size, windows.size);
    const BarLayout found = ui::layoutBar({{1600, 1000}, 220, 20, 0, 1, true}, windows.size);
    EXPECT_EQ(found.size.width(), windows.size.width());
    EXPECT_LT(found.size.height(), windows.size.height() / 2);
    EXPECT_EQ(ui::layoutBar({{1600, 1000}, 220, 20}, found.size).size, windows.size);
}

// Texts.

struct Marking {
    const char* name;
    QString text;
    QString query;
    QString marked;
};

class MarkedMatch : public testing::TestWithParam<Marking> {};

TEST_P(MarkedMatch, isSafeMarkup) {
    EXPECT_EQ(ui::markedMatch(GetParam().text, GetParam().query), GetParam().marked);
}

INSTANTIATE_TEST_SUITE_P(
    bar, MarkedMatch,
    testing::Values(Marking{"none", u"Minutes"_s, u"x"_s, u"Minutes"_s},
                    Marking{"everyMatchInAnyCase", u"Git and git"_s, u"gIT"_s,
                            u"<b><u>Git</u></b> and <b><u>git</u></b>"_s},
                    Marking{"tagsInTheTitle", u"<img src=\"file:///x\"> & co"_s, u"co"_s,
                            u"&lt;img src=&quot;file:///x&quot;&gt; &amp; <b><u>co</u></b>"_s},
                    Marking{"tagAsQuery", u"a<b>c"_s, u"<b>"_s, u"a<b><u>&lt;b&gt;</u></b>c"_s},
                    // The ampersand of an entity that we made is no match.
                    Marking{"ampersand", u"a<b"_s, u"lt"_s, u"a&lt;b"_s},
                    Marking{"farToTheRight",
                            u"0123456789 0123456789 0123456789 0123456789 needle"_s, u"needle"_s,
                            u"…0123456789 <b><u>needle</u></b>"_s}),
    [](const auto& info) { return info.param.name; });

TEST(MarkedMatch, isShortOfATextWithoutEnd) {
    const QString text = u"ab"_s.repeated(5000);
    EXPECT_LT(ui::markedMatch(text, u"a"_s).size(), 4000);
    EXPECT_TRUE(ui::boundedTitle(text + u"end"_s).endsWith(u"end"));
    EXPECT_LT(ui::boundedTitle(text).size(), 300);
}

TEST(ShortTitle, leavesOutOnlyTheNameOfTheApplicationAtTheEnd) {
    EXPECT_EQ(ui::shortTitle(u"Minutes - Writer"_s, u"Writer"_s), u"Minutes"_s);
    EXPECT_EQ(ui::shortTitle(u"Minutes — writer"_s, u"Writer"_s), u"Minutes"_s);
    for (const QString& kept :
         {u"Writer"_s, u" - Writer"_s, u"Ghostwriter"_s, u"Writer - Minutes"_s})
        EXPECT_EQ(ui::shortTitle(kept, u"Writer"_s), kept);
}

// The bar itself.

class Bar : public testing::Test {
protected:
    void SetUp() override {
        // Nothing slides: what is selected is where it belongs at once.
        (void)stage_.desk().defaults().setValue(u"sk.lessMotion"_s, true);
        stage_.launch();
        scene_.emplace(stage_);
        auto& model = scene_->model();
        model.onPickWindow = [this](int i) { told_.push_back(u"window %1"_s.arg(i)); };
        model.onPickTab = [this](int i) { told_.push_back(u"tab %1"_s.arg(i)); };
        model.onPickResult = [this](int i) { told_.push_back(u"result %1"_s.arg(i)); };
        model.onHoverWindow = [this](int i) {
            told_.push_back(u"hover %1"_s.arg(i));
            Content content = scene_->model().content();
            content.selWin = i;
            scene_->model().setContent(content);
        };
    }

    QQuickItem& item(const QString& name) { return stage_.item(scene_->view(), name); }
    bool hasItem(const QString& name) { return stage_.hasItem(scene_->view(), name); }
    QPointF middle(const QString& name) {
        const QQuickItem& found = item(name);
        return found.mapToScene(QPointF(found.width() / 2, found.height() / 2));
    }
    bool isInView(const QString& name) {
        const QQuickItem& found = item(name);
        const QRectF seen = found.mapRectToItem(found.parentItem()->parentItem(),
                                                QRectF(0, 0, found.width(), found.height()));
        const QQuickItem* view = found.parentItem()->parentItem();
        // What is around a card may be cut, half a gap.
        return QRectF(0, 0, view->width(), view->height()).adjusted(-7, -7, 7, 7).contains(seen);
    }
    int cardsMade() {
        int made = 0;
        for (const QQuickItem* child : item(u"cards"_s).findChildren<QQuickItem*>())
            made += child->objectName().startsWith(u"card") ? 1 : 0;
        return made;
    }
    ui::WindowPreview& preview(int window) {
        return *item(u"card%1"_s.arg(window)).findChild<ui::WindowPreview*>();
    }
    std::vector<QString> told() { return std::exchange(told_, {}); }

    test::UiStage stage_;
    std::optional<SwitcherScene> scene_;
    std::vector<QString> told_;
};

TEST_F(Bar, followsTheSwitcherWhileItIsShown) {
    const QAbstractItemModelTester tester(scene_->bar().windows(),
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    scene_->show(test::windowSession(3));
    EXPECT_TRUE(scene_->view().isVisible());
    EXPECT_EQ(scene_->view().geometry().center(), SwitcherScene::area.center());
    EXPECT_EQ(item(u"card1"_s).property("isCurrent"), true);
    EXPECT_TRUE(hasItem(u"inFront"_s));
    EXPECT_EQ(item(u"queryText"_s).property("text"), u"Type to filter windows…"_s);
    EXPECT_EQ(item(u"card0"_s).property("title"), u"Minutes of the general assembly.odt"_s);
    EXPECT_EQ(item(u"card0"_s).property("name"), u"Minutes of the general assembly.odt - Writer"_s);

    scene_->set(test::tabSession(12));
    EXPECT_FALSE(hasItem(u"card0"_s));
    EXPECT_EQ(item(u"chip6"_s).property("isCurrent"), true);
    EXPECT_EQ(item(u"headline"_s).property("text"), u"git rebase --onto explained"_s);
    EXPECT_EQ(item(u"queryText"_s).property("text"), u"Type to filter every tab…"_s);

    scene_->set(test::searchSession(u"git"_s));
    EXPECT_EQ(item(u"queryText"_s).property("text"), u"git"_s);
    EXPECT_TRUE(item(u"foundTitle"_s).property("text").toString().startsWith(u"<b><u>git</u></b>"));

    scene_->set(test::searchSession(u"quaint"_s));
    EXPECT_EQ(item(u"nothingFound"_s).property("text"), u"No tab matches “quaint”"_s);
    EXPECT_FALSE(hasItem(u"result0"_s));

    scene_->hide();
    EXPECT_FALSE(scene_->view().isVisible());
    scene_->model().setContent(test::windowSession(40));
    EXPECT_LT(scene_->bar().windowCount(), 40) << "work for a bar that nobody sees";
}

TEST_F(Bar, showsPicturesAsTheyComeAndForgetsThemWhenItGoes) {
    scene_->show(test::windowSession(2));
    EXPECT_TRUE(preview(0).isEmpty());
    scene_->model().setImage(1, test::windowPicture(1));
    EXPECT_TRUE(preview(1).isEmpty()) << "scaled while the bar waits";
    stage_.settle();
    ASSERT_FALSE(preview(1).isEmpty());
    EXPECT_TRUE(preview(0).isEmpty());
    const double ratio = scene_->view().devicePixelRatio();
    EXPECT_LE(preview(1).picture().width(), preview(1).width() * ratio);
    EXPECT_LE(preview(1).picture().height(), preview(1).height() * ratio);

    // A late picture of the session before is nobody's.
    scene_->model().setImage(0, test::windowPicture(0));
    stage_.panels().hideSwitcherBar();
    Content other = test::browserSession(2);
    scene_->show(other);
    EXPECT_TRUE(preview(0).isEmpty());
    EXPECT_TRUE(preview(1).isEmpty());
}

TEST_F(Bar, makesOnlyTheCardsInViewAndBringsTheSelectedOneThere) {
    Content content = test::windowSession(500);
    scene_->show(content);
    EXPECT_TRUE(isInView(u"card1"_s));
    EXPECT_LT(cardsMade(), 80);
    for (const int selected : {499, 250, 0}) {
        content.selWin = selected;
        scene_->set(content);
        EXPECT_TRUE(isInView(u"card%1"_s.arg(selected))) << selected;
        EXPECT_EQ(item(u"card%1"_s.arg(selected)).property("isCurrent"), true);
    }
    EXPECT_LT(cardsMade(), 80);

    Content tabs = test::tabSession(300);
    tabs.selTab = 299;
    scene_->set(tabs);
    EXPECT_TRUE(isInView(u"chip299"_s));
    // The bar comes up with a selection far down.
    scene_->hide();
    content.selWin = 480;
    scene_->show(content);
    EXPECT_TRUE(isInView(u"card480"_s));
}

TEST_F(Bar, isPickedFromByClicks) {
    scene_->show(test::browserSession(3));
    stage_.click(item(u"card2"_s));
    scene_->set(test::tabSession(9));
    stage_.click(item(u"chip3"_s));
    scene_->set(test::searchSession(u"e"_s));
    stage_.click(item(u"result1"_s));
    stage_.click(item(u"queryText"_s));
    EXPECT_THAT(told(), ElementsAre(u"window 2"_s, u"tab 3"_s, u"result 1"_s));
}

TEST_F(Bar, isSelectedInOnlyByAPointerThatMoves) {
    scene_->show(test::windowSession(4));
    const QPointF over = middle(u"card2"_s);
    scene_->movePointer(over);
    scene_->movePointer(over + QPointF(2, 0));
    EXPECT_THAT(told(), IsEmpty()) << "the bar came up under a resting pointer";
    scene_->movePointer(over + QPointF(9, 0));
    EXPECT_THAT(told(), ElementsAre(u"hover 2"_s));
    scene_->movePointer(middle(u"card3"_s));
    scene_->movePointer(middle(u"card3"_s) + QPointF(3, 3));
    EXPECT_THAT(told(), ElementsAre(u"hover 3"_s)) << "selected already";

    // Stepped on by keys: a hand that trembles does not take the selection back.
    Content content = scene_->model().content();
    content.selWin = 0;
    scene_->set(content);
    scene_->movePointer(middle(u"card3"_s) + QPointF(4, 3));
    scene_->movePointer(middle(u"card3"_s) + QPointF(5, 3));
    EXPECT_THAT(told(), IsEmpty());
    scene_->movePointer(middle(u"card2"_s));
    EXPECT_THAT(told(), ElementsAre(u"hover 2"_s));
}

TEST_F(Bar, standsStillAtItsTopWhileItIsInView) {
    scene_->show(test::browserSession(3));
    const int top = scene_->view().y();
    scene_->set(test::searchSession(u"git"_s));
    EXPECT_EQ(scene_->view().y(), top);
    scene_->set(test::tabSession(300));
    EXPECT_TRUE(SwitcherScene::area.contains(scene_->view().geometry()));
    scene_->hide();
    scene_->show(test::browserSession(3));
    EXPECT_EQ(scene_->view().y(), top) << "where the session before left it";
}

TEST_F(Bar, marksTheChosenOneWhereverItIs) {
    auto content = test::tabSession(140);
    scene_->show(content);
    const QColor ring = ui::palette(stage_.list().theme()).accent;
    for (const int selected : {70, 139, 3}) {
        content.selTab = selected;
        scene_->set(content);
        const QImage picture = stage_.picture(scene_->view());
        const QQuickItem& chip = item(u"chip%1"_s.arg(selected));
        const QPointF edge = chip.mapToScene(QPointF(chip.width() / 2, 4));
        EXPECT_EQ(picture.pixelColor((edge * picture.devicePixelRatio()).toPoint()), ring)
            << selected;
    }
}

} // namespace
} // namespace skipnest
