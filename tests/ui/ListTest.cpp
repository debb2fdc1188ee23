// SPDX-License-Identifier: Apache-2.0
#include "tests/ui/UiStage.h"

#include "hotkeys/KeyLedger.h"
#include "model/ComboText.h"
#include "platform/EventFlags.h"
#include "ui/PopoverModel.h"
#include "ui/controls/KeyedListModel.h"
#include "ui/list/ShortcutListScreenModel.h"

#include <QAbstractItemModelTester>
#include <QClipboard>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QQuickItem>
#include <QQuickView>

#include <gmock/gmock.h>

namespace skipnest {
namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using model::KeyCombo;
using model::ShortcutItem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

KeyCombo combo(const QString& text) {
    return model::parseCombo(text).value();
}

sim::HotkeyCombo pressed(const QString& text) {
    const KeyCombo keys = combo(text);
    return {keys.keyCode, keys.modifiers.carbonModifiers()};
}

// What a view is told between two states of a list, and that the list is right at each step.

struct Letter {
    QString id;
    int value = 0;

    [[nodiscard]] const QString& key() const { return id; }
    bool operator==(const Letter&) const = default;
};

class Letters final : public ui::KeyedListModel<Letter> {
public:
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
        return role == Qt::DisplayRole ? rows()[static_cast<std::size_t>(index.row())].id
                                       : QVariant();
    }
};

std::vector<Letter> letters(const QString& text) {
    std::vector<Letter> rows;
    for (const QChar c : text)
        rows.push_back({QString(c.toLower()), c.isUpper() ? 1 : 0});
    return rows;
}

struct Operations {
    const char* name;
    QString before; // a capital letter is the same row with another value
    QString after;
    std::vector<std::string> told;
};

class RowOperations : public testing::TestWithParam<Operations> {};

TEST_P(RowOperations, leadFromTheOldListToTheNew) {
    const Operations& row = GetParam();
    Letters model;
    const QAbstractItemModelTester tester(&model,
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    model.setRows(letters(row.before));
    std::vector<std::string> told;
    const auto tell = [&told](const char* what, int first, int last) {
        told.push_back(std::string(what) + ' ' + std::to_string(first) + '-' +
                       std::to_string(last));
    };
    QObject::connect(&model, &Letters::rowsInserted, &model,
                     [&](const QModelIndex&, int a, int b) { tell("insert", a, b); });
    QObject::connect(&model, &Letters::rowsRemoved, &model,
                     [&](const QModelIndex&, int a, int b) { tell("remove", a, b); });
    QObject::connect(&model, &Letters::rowsMoved, &model,
                     [&](const QModelIndex&, int from, int, const QModelIndex&, int to) {
                         tell("move", from, to);
                     });
    QObject::connect(
        &model, &Letters::dataChanged, &model,
        [&](const QModelIndex& a, const QModelIndex& b) { tell("change", a.row(), b.row()); });
    QObject::connect(&model, &Letters::modelReset, &model, [&] { tell("reset", 0, 0); });

    model.setRows(letters(row.after));

    EXPECT_EQ(model.rows(), letters(row.after));
    EXPECT_EQ(told, row.told);
}

INSTANTIATE_TEST_SUITE_P(
    rows, RowOperations,
    testing::Values(Operations{"same", u"abc"_s, u"abc"_s, {}},
                    Operations{"appended", u"ab"_s, u"abc"_s, {"insert 2-2"}},
                    Operations{"removedInRuns", u"abcdef"_s, u"ad"_s, {"remove 4-5", "remove 1-2"}},
                    Operations{"allGone", u"abc"_s, u""_s, {"remove 0-2"}},
                    // Qt counts the target of a move down before the row has left.
                    Operations{"movedDown", u"abcd"_s, u"bcad"_s, {"move 0-3"}},
                    Operations{"movedUp", u"abcd"_s, u"cabd"_s, {"move 2-0"}},
                    Operations{"changed", u"abc"_s, u"aBc"_s, {"change 1-1"}},
                    Operations{"filteredAndBack", u"bd"_s, u"abcd"_s, {"insert 0-0", "insert 2-2"}},
                    Operations{"keptTwice", u"aa"_s, u"aba"_s, {"insert 1-1"}},
                    Operations{"oneOfTwoGone", u"aba"_s, u"ba"_s, {"remove 2-2", "move 0-2"}},
                    Operations{"everything",
                               u"abcde"_s,
                               u"xedB"_s,
                               {"remove 2-2", "remove 0-0", "insert 0-0", "move 3-1", "move 2-4",
                                "change 3-3"}}),
    [](const auto& row) { return row.param.name; });

// The home screen.

class List : public testing::Test {
protected:
    void SetUp() override {
        for (const QString& name : {u"Notes"_s, u"Firefox"_s, u"Mail"_s, u"Über"_s})
            desk().installApp({.name = name,
                               .path = u"/Applications/%1.app"_s.arg(name),
                               .running = sim::Running::no});
    }

    sim::SimDesktop& desk() { return stage.desk(); }
    ui::ShortcutListScreenModel& screen() { return *stage.panels().popoverModel().list(); }
    ui::ListBanner& banner() { return *screen().banner(); }

    void open() {
        if (!launched)
            stage.launch();
        launched = true;
        stage.show({});
        desk().runPosted();
        stage.settle();
    }
    ShortcutItem add(const QString& name, const QString& key = {}) {
        if (!launched) {
            stage.launch();
            launched = true;
        }
        return stage.list().addShortcut(u"/Applications/%1.app"_s.arg(name),
                                        key.isEmpty() ? std::nullopt : std::optional(combo(key)),
                                        std::nullopt);
    }
    std::vector<std::string> names() {
        std::vector<std::string> all;
        for (const auto& row : screen().rows()->rows())
            all.push_back(row.name.toStdString());
        return all;
    }
    QString note(const ShortcutItem& item) {
        return screen()
            .rows()
            ->rows()[static_cast<std::size_t>(screen().rowOf(item.id.text()))]
            .note;
    }

    test::UiStage stage;
    bool launched = false;
};

TEST_F(List, theFirstShortcutIsOneReturnAway) {
    open();
    ASSERT_TRUE(stage.hasItem(u"emptyAdd"_s));
    stage.press(Qt::Key_Return);
    EXPECT_EQ(stage.panels().popoverModel().screen(), u"add"_s);
}

TEST_F(List, returnEditsAndControlReturnJumps) {
    add(u"Notes"_s, u"ctrl+opt+n"_s);
    add(u"Mail"_s, u"ctrl+opt+m"_s);
    open();
    stage.press(Qt::Key_Down);
    stage.press(Qt::Key_Return);
    EXPECT_EQ(stage.panels().popoverModel().screen(), u"add"_s);
    EXPECT_EQ(stage.panels().popoverModel().editor()->name(), u"Mail"_s);
    stage.press(Qt::Key_Escape);
    EXPECT_EQ(stage.panels().popoverModel().screen(), u"list"_s);

    desk().journal().clear();
    stage.press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_THAT(desk().journal().calls(),
                testing::Contains(HasSubstr("openApplication path=/Applications/Mail.app")));
    EXPECT_FALSE(desk().panels().isPopoverShown());
}

TEST_F(List, aRemovedShortcutComesBackAsItWasAndWhereItWas) {
    add(u"Notes"_s, u"ctrl+opt+n"_s);
    const ShortcutItem mail = add(u"Mail"_s, u"ctrl+opt+m"_s);
    add(u"Firefox"_s, u"ctrl+opt+f"_s);
    open();
    const QAbstractItemModelTester tester(screen().rows());

    stage.press(Qt::Key_Down);
    stage.press(Qt::Key_Delete);
    EXPECT_THAT(names(), ElementsAre("Notes", "Firefox"));
    EXPECT_FALSE(desk().pressHotkey(pressed(u"ctrl+opt+m"_s)));
    EXPECT_EQ(screen().undoText(), u"Removed “Mail”"_s);

    desk().advance(7999ms);
    stage.click(stage.item(u"undo"_s));
    EXPECT_THAT(names(), ElementsAre("Notes", "Mail", "Firefox"));
    EXPECT_EQ(stage.list().item(mail.id)->keyCombo, mail.keyCombo);
    EXPECT_TRUE(desk().pressHotkey(pressed(u"ctrl+opt+m"_s)));
    EXPECT_FALSE(stage.hasItem(u"undoLine"_s));
}

TEST_F(List, undoGoesBackOneRemovalAtATimeAndEndsAfterEightSeconds) {
    const ShortcutItem notes = add(u"Notes"_s);
    const ShortcutItem mail = add(u"Mail"_s);
    add(u"Firefox"_s);
    open();
    stage.press(Qt::Key_Delete);
    stage.press(Qt::Key_Delete);
    stage.press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_THAT(names(), ElementsAre("Mail", "Firefox"));
    EXPECT_EQ(screen().undoText(), u"Removed “Notes”"_s);
    desk().advance(8s);
    screen().undo();
    EXPECT_THAT(names(), ElementsAre("Mail", "Firefox"));
}

TEST_F(List, aConfirmedProgramFromElsewhereIsNotAskedForAgainAfterAnUndo) {
    desk().installApp({.name = u"Tool"_s, .path = u"/Users/person/Downloads/Tool.app"_s});
    stage.launch();
    launched = true;
    const auto tool = stage.list().addShortcut(u"/Users/person/Downloads/Tool.app"_s,
                                               combo(u"ctrl+opt+t"_s), std::nullopt);
    open();
    stage.press(Qt::Key_Delete);
    stage.press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_THAT(names(), ElementsAre("Tool"));
    EXPECT_TRUE(stage.list().isConfirmed(tool.id));
    EXPECT_TRUE(desk().pressHotkey(pressed(u"ctrl+opt+t"_s)));
}

TEST_F(List, altArrowsReorderUnlessTheListIsFiltered) {
    add(u"Notes"_s);
    add(u"Mail"_s);
    add(u"Firefox"_s);
    open();
    const QAbstractItemModelTester tester(screen().rows());
    stage.press(Qt::Key_Up, Qt::AltModifier); // first already
    stage.press(Qt::Key_Down, Qt::AltModifier);
    EXPECT_THAT(names(), ElementsAre("Mail", "Notes", "Firefox"));
    stage.press(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(stage.list().shortcuts().back().name, u"Notes"_s);

    screen().setFilter(u"i"_s);
    EXPECT_THAT(names(), ElementsAre("Mail", "Firefox"));
    screen().moveBy(stage.list().shortcuts().front().id.text(), 1);
    EXPECT_EQ(stage.list().shortcuts().front().name, u"Mail"_s);
}

TEST_F(List, aRowDraggedByItsHandleIsWrittenOnlyWhereItIsDropped) {
    add(u"Notes"_s);
    add(u"Mail"_s);
    add(u"Firefox"_s);
    open();
    const QAbstractItemModelTester tester(screen().rows());
    QQuickItem& handle = stage.item(u"handle"_s);
    const QPointF start = handle.mapToScene(QPointF(handle.width() / 2, handle.height() / 2));
    const auto mouse = [&](QEvent::Type type, qreal rows) {
        const QPointF at = start + QPointF(0, rows * handle.height());
        const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        const auto held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, at, stage.popover().mapToGlobal(at), button, held, Qt::NoModifier);
        QCoreApplication::sendEvent(&stage.popover(), &event);
        stage.settle();
    };
    mouse(QEvent::MouseButtonPress, 0);
    mouse(QEvent::MouseMove, 1);
    mouse(QEvent::MouseMove, 2);
    EXPECT_THAT(names(), ElementsAre("Mail", "Firefox", "Notes"));
    EXPECT_EQ(stage.list().shortcuts().front().name, u"Notes"_s);
    mouse(QEvent::MouseButtonRelease, 2);
    EXPECT_EQ(stage.list().shortcuts().back().name, u"Notes"_s);
}

TEST_F(List, typingAnywhereFiltersWithoutCaseAndDiacritics) {
    add(u"Notes"_s);
    add(u"Über"_s);
    add(u"Mail"_s);
    open();
    stage.type(u"uBe"_s);
    EXPECT_THAT(names(), ElementsAre("Über"));
    EXPECT_TRUE(stage.item(u"filter"_s).hasActiveFocus());
    EXPECT_EQ(stage.item(u"filter"_s).property("text").toString(), u"uBe"_s);
    stage.press(Qt::Key_Escape);
    EXPECT_THAT(names(), ElementsAre("Notes", "Über", "Mail"));
    EXPECT_TRUE(desk().panels().isPopoverShown());
}

TEST_F(List, whatNoShortcutIsCalledIsSearchedForInTheEditor) {
    add(u"Notes"_s);
    open();
    stage.type(u"calc"_s);
    EXPECT_THAT(names(), IsEmpty());
    stage.press(Qt::Key_Return);
    EXPECT_EQ(stage.panels().popoverModel().screen(), u"add"_s);
    EXPECT_EQ(stage.panels().popoverModel().editor()->chooser()->text(), u"calc"_s);
}

TEST_F(List, aRowSaysTheGravestThingThatIsWrong) {
    const ShortcutItem notes = add(u"Notes"_s, u"ctrl+opt+n"_s);
    const ShortcutItem mail = add(u"Mail"_s, u"ctrl+opt+m"_s);
    ShortcutItem twin = add(u"Firefox"_s, u"ctrl+opt+f"_s);
    open();
    EXPECT_EQ(note(notes), QString());

    twin.keyCombo = notes.keyCombo;
    (void)stage.list().update(twin);
    EXPECT_EQ(note(notes), u"Same key as “Firefox”"_s);
    EXPECT_EQ(note(twin), u"Same key as “Notes”"_s);

    desk().hotkeys().refuse(pressed(u"ctrl+opt+m"_s), 10);
    stage.list().commit();
    screen().refresh();
    EXPECT_EQ(note(mail), u"Not bound: another program has it"_s);
    EXPECT_EQ(banner().subject(), ui::ListBanner::Subject::notBound);
    EXPECT_TRUE(banner().text().contains(u"another program"_s));

    // Freed without a word from anybody but the next look.
    desk().hotkeys().refuse(pressed(u"ctrl+opt+m"_s), 0);
    desk().runPosted();
    screen().refresh();
    EXPECT_EQ(note(mail), QString());
    EXPECT_EQ(banner().subject(), ui::ListBanner::Subject::none);

    (void)desk().removePath(u"/Applications/Notes.app"_s);
    screen().refresh();
    desk().runPosted();
    EXPECT_EQ(note(notes), u"Not found: /Applications/Notes.app"_s);
    EXPECT_FALSE(screen().jump(notes.id.text()));
}

TEST_F(List, anImportedProgramRunsOnlyAfterItsRowWasConfirmed) {
    desk().installApp({.name = u"Tool"_s, .path = u"/Users/person/Downloads/Tool.app"_s});
    ShortcutItem tool;
    tool.name = u"Tool"_s;
    tool.targetPath = u"/Users/person/Downloads/Tool.app"_s;
    tool.targetType = ShortcutItem::TargetType::application;
    tool.keyCombo = combo(u"ctrl+opt+t"_s);
    tool.createdAt = QDateTime::fromSecsSinceEpoch(0, Qt::UTC);
    stage.launch();
    launched = true;
    ASSERT_TRUE(stage.list().merge({tool}).ok());
    open();
    EXPECT_EQ(note(tool), u"Imported – confirm before it can run"_s);
    EXPECT_FALSE(screen().jump(tool.id.text()));
    EXPECT_FALSE(desk().pressHotkey(pressed(u"ctrl+opt+t"_s)));

    stage.click(stage.item(u"confirm"_s));
    EXPECT_EQ(note(tool), QString());
    EXPECT_TRUE(desk().pressHotkey(pressed(u"ctrl+opt+t"_s)));
}

TEST_F(List, theBannerShowsTheGravestThingAndThenTheNext) {
    desk().http().setAnswer(
        u"/version.json"_s,
        platform::HttpReply{200,
                            R"({"version":"2.0","build":"7","url":"https://service.example/2.0",)"
                            R"("notes":"Jumps are faster.\nAnd more."})"});
    desk().files().put(desk().appInfo().supportFolder + u"/pending-crash.json"_s,
                       R"({"type":"signal","name":"SIGSEGV","stack":"skipnest+0x12ab"})");
    const QString config = desk().appInfo().supportFolder + u"/config.json"_s;
    desk().files().put(desk().appInfo().supportFolder + u"/Backups/config-2026-11-20.json"_s,
                       R"({"version":1,"shortcuts":[],"launchAtLogin":false,)"
                       R"("menuBarIconName":"snapshot"})");
    desk().files().put(config, "not a document");
    desk().hotkeys().refuse(pressed(u"ctrl+opt+n"_s), 10);
    add(u"Notes"_s, u"ctrl+opt+n"_s);
    open();
    desk().advance(1s);
    stage.settle();

    using Subject = ui::ListBanner::Subject;
    EXPECT_EQ(banner().subject(), Subject::damaged);
    EXPECT_EQ(banner().text(), u"Your configuration could not be read and was set aside."_s);
    ASSERT_EQ(banner().actions().size(), 1);
    stage.click(stage.item(u"bannerAction0"_s));
    EXPECT_EQ(stage.list().menuBarIconName(), u"snapshot"_s);
    EXPECT_THAT(names(), IsEmpty());
    EXPECT_EQ(banner().subject(), Subject::restored);

    banner().dismiss();
    EXPECT_EQ(banner().subject(), Subject::update);
    EXPECT_EQ(banner().text(), u"Skipnest update available: 2.0\nJumps are faster."_s);
    add(u"Notes"_s, u"ctrl+opt+n"_s);
    EXPECT_EQ(banner().subject(), Subject::notBound);
    stage.click(stage.item(u"bannerClose"_s));
    EXPECT_EQ(banner().subject(), Subject::update);

    desk().journal().clear();
    stage.click(stage.item(u"bannerAction0"_s));
    EXPECT_THAT(desk().journal().calls(),
                testing::Contains(HasSubstr("https://service.example/2.0")));
    EXPECT_FALSE(desk().panels().isPopoverShown());
    open();
    banner().dismiss();
    EXPECT_FALSE(stage.hasItem(u"banner"_s));
}

// Whoever looks something up for a shortcut that they are making goes elsewhere for it.
TEST_F(List, aDraftIsThereAgainWhenThePopoverComesBack) {
    const ShortcutItem notes = add(u"Notes"_s, u"ctrl+opt+n"_s);
    const auto leaveAndComeBack = [this] {
        stage.agent().shell().closePopover();
        stage.settle();
        open();
        return stage.panels().popoverModel().screen();
    };
    ui::PopoverModel& popover = stage.panels().popoverModel();
    open();
    popover.open(u"add"_s);
    EXPECT_EQ(leaveAndComeBack(), u"list"_s); // nothing was begun

    popover.open(u"add"_s);
    stage.settle();
    stage.type(u"mai"_s);
    EXPECT_EQ(leaveAndComeBack(), u"add"_s);
    stage.type(u"l"_s);
    EXPECT_EQ(popover.editor()->chooser()->text(), u"mail"_s);
    popover.setRoute({platform::PopoverScreen::add, u"/Applications/Mail.app"_s});
    EXPECT_EQ(leaveAndComeBack(), u"add"_s);
    EXPECT_EQ(popover.editor()->targetPath(), u"/Applications/Mail.app"_s);

    // Given up is given up.
    popover.back();
    EXPECT_EQ(leaveAndComeBack(), u"list"_s);
    popover.edit(notes.id.text());
    EXPECT_EQ(leaveAndComeBack(), u"list"_s); // as it is
    popover.edit(notes.id.text());
    popover.editor()->setName(u"My notes"_s);
    EXPECT_EQ(leaveAndComeBack(), u"add"_s);
    popover.editor()->save();
    EXPECT_EQ(leaveAndComeBack(), u"list"_s);
}

TEST_F(List, aDesktopThatGivesNoKeysGetsReadyBindings) {
    desk().hotkeys().setAvailability(
        {platform::Availability::State::unavailable, u"No X server."_s, {}});
    const ShortcutItem notes = add(u"Notes"_s, u"ctrl+opt+n"_s);
    open();
    EXPECT_EQ(note(notes), u"Not bound by this desktop"_s);
    stage.click(stage.item(u"bannerAction2"_s));
    EXPECT_THAT(QGuiApplication::clipboard()->text().toStdString(),
                testing::AllOf(HasSubstr("bindsym"), HasSubstr("jump 'Notes'")));
}

TEST_F(List, fiveHundredShortcutsMakeOnlyTheRowsInView) {
    for (int i = 0; i < 500; ++i)
        (void)desk().addFile(u"/Users/person/file%1.txt"_s.arg(i));
    stage.launch();
    launched = true;
    std::vector<ShortcutItem> items;
    for (int i = 0; i < 500; ++i) {
        ShortcutItem item;
        item.name = u"file%1"_s.arg(i);
        item.targetPath = u"/Users/person/file%1.txt"_s.arg(i);
        item.sortOrder = i;
        item.createdAt = QDateTime::fromSecsSinceEpoch(0, Qt::UTC);
        items.push_back(item);
    }
    ASSERT_TRUE(stage.list().merge(items).ok());
    open();
    stage.press(Qt::Key_End);
    QQuickItem* content = stage.item(u"shortcuts"_s).property("contentItem").value<QQuickItem*>();
    EXPECT_LT(content->childItems().size(), 30);
    EXPECT_EQ(stage.item(u"shortcuts"_s).property("currentIndex").toInt(), 499);
}

} // namespace
} // namespace skipnest
