// SPDX-License-Identifier: Apache-2.0
#include "tests/ui/UiStage.h"

#include "model/ComboText.h"
#include "platform/EventFlags.h"
#include "ui/PopoverModel.h"

#include <QQuickItem>

#include <gmock/gmock.h>

namespace skipnest {
namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using model::KeyCombo;
using model::ShortcutItem;
using platform::IndexedFile;
using testing::Contains;
using testing::HasSubstr;

KeyCombo combo(const QString& text) {
    return model::parseCombo(text).value();
}

class Editor : public testing::Test {
protected:
    void SetUp() override {
        for (const QString& name : {u"Notes"_s, u"Notebook"_s, u"Mail"_s}) {
            const QString path = u"/Applications/%1.app"_s.arg(name);
            desk().installApp({.name = name, .path = path, .running = sim::Running::no});
            desk().fileIndex().add({path, name, IndexedFile::Kind::application});
        }
        (void)desk().addFolder(u"/Users/person/Documents/Notes 2026"_s);
        desk().fileIndex().add(
            {u"/Users/person/Documents/Notes 2026"_s, u"Notes 2026"_s, IndexedFile::Kind::folder});
        stage.launch();
    }

    sim::SimDesktop& desk() { return stage.desk(); }
    ui::PopoverModel& popover() { return stage.panels().popoverModel(); }
    ui::ShortcutEditor& editor() { return *popover().editor(); }
    const std::vector<ShortcutItem>& shortcuts() { return stage.list().shortcuts(); }

    void openAdd(const QString& path = {}) { stage.show({platform::PopoverScreen::add, path}); }
    void openEdit(const ShortcutItem& item) {
        stage.show({});
        popover().edit(item.id.text());
        stage.settle();
    }
    // What was typed has been searched for and shown.
    void settleSearch() {
        desk().advance(180ms);
        stage.settle();
    }
    void pressWhileRecording(const QString& keys) {
        const KeyCombo pressed = combo(keys);
        desk().keyboardCapture().press(pressed.keyCode,
                                       sim::eventFlags(pressed.modifiers.carbonModifiers()));
        stage.settle();
    }
    bool jumps(const QString& keys) {
        const KeyCombo pressed = combo(keys);
        return desk().pressHotkey({pressed.keyCode, pressed.modifiers.carbonModifiers()});
    }
    ShortcutItem add(const QString& path, const QString& keys) {
        return stage.list().addShortcut(path, combo(keys), std::nullopt);
    }

    test::UiStage stage;
};

TEST_F(Editor, aNameTwoKeysAndReturnMakeAShortcutThatJumps) {
    openAdd();
    stage.type(u"note"_s);
    settleSearch();
    stage.press(Qt::Key_Up);
    stage.press(Qt::Key_Down); // Notebook comes first
    stage.press(Qt::Key_Return);
    EXPECT_EQ(stage.item(u"targetName"_s).property("text").toString(), u"Notes"_s);

    stage.press(Qt::Key_Return); // the key field waits for it
    ASSERT_TRUE(desk().keyboardCapture().isCaptured());
    pressWhileRecording(u"ctrl+opt+n"_s);
    EXPECT_FALSE(desk().keyboardCapture().isCaptured());
    EXPECT_EQ(editor().derivedHide(), u"Hides with ⌃⌥⇧N"_s);
    stage.press(Qt::Key_Return); // saves

    EXPECT_EQ(popover().screen(), u"list"_s);
    ASSERT_EQ(shortcuts().size(), 1U);
    EXPECT_EQ(shortcuts().front().name, u"Notes"_s);
    desk().journal().clear();
    EXPECT_TRUE(jumps(u"ctrl+opt+n"_s));
    EXPECT_THAT(desk().journal().calls(),
                Contains(HasSubstr("openApplication path=/Applications/Notes.app")));
}

TEST_F(Editor, returnBeforeTheAnswerTakesTheFirstAnswer) {
    openAdd();
    stage.type(u"mai"_s);
    stage.press(Qt::Key_Return);
    EXPECT_TRUE(editor().isChoosing());
    settleSearch();
    EXPECT_EQ(editor().targetPath(), u"/Applications/Mail.app"_s);
}

TEST_F(Editor, aTypedPathIsATargetToo) {
    openAdd();
    editor().chooser()->setText(u"~/Documents/Notes 2026"_s);
    stage.settle();
    ASSERT_EQ(editor().chooser()->results()->rowCount(), 1);
    editor().chooser()->setText(u"~/Documents/nothing"_s);
    stage.settle();
    EXPECT_EQ(editor().chooser()->results()->rowCount(), 0);
    EXPECT_EQ(editor().chooser()->note(), u"There is nothing at “~/Documents/nothing”."_s);
}

TEST_F(Editor, theScopeDecidesWhetherFoldersAreFound) {
    openAdd();
    stage.type(u"2026"_s);
    settleSearch();
    EXPECT_EQ(editor().chooser()->note(), u"No application is called “2026”."_s);
    stage.click(stage.item(u"searchEverything"_s));
    settleSearch();
    EXPECT_EQ(editor().chooser()->results()->rowCount(), 1);
}

TEST_F(Editor, whatIsHeldShowsWhileRecordingAndEscapeEndsOnlyThat) {
    openAdd(u"/Applications/Notes.app"_s);
    editor().jumpKey()->start();
    desk().keyboardCapture().changeModifiers(
        59, sim::eventFlags(combo(u"ctrl+j"_s).modifiers.carbonModifiers()));
    EXPECT_EQ(editor().jumpKey()->heldKeys(), QStringList{u"⌃"_s});
    pressWhileRecording(u"esc"_s);
    EXPECT_FALSE(editor().jumpKey()->isRecording());
    EXPECT_EQ(popover().screen(), u"add"_s);
    EXPECT_EQ(editor().targetPath(), u"/Applications/Notes.app"_s);
    stage.press(Qt::Key_Escape);
    EXPECT_EQ(popover().screen(), u"list"_s);
    EXPECT_TRUE(shortcuts().empty());
}

TEST_F(Editor, aKeyThatAnotherShortcutHasIsRefusedByName) {
    add(u"/Applications/Mail.app"_s, u"ctrl+opt+m"_s);
    openAdd(u"/Applications/Notes.app"_s);
    editor().jumpKey()->start();
    pressWhileRecording(u"ctrl+opt+m"_s);
    EXPECT_TRUE(editor().jumpKey()->isRecording());
    EXPECT_EQ(stage.item(u"jumpKeyProblem"_s).property("text").toString(),
              u"Ctrl + Opt + M is already assigned to \"Mail\""_s);
    pressWhileRecording(u"ctrl+opt+n"_s);
    EXPECT_FALSE(stage.hasItem(u"jumpKeyProblem"_s));
    EXPECT_EQ(editor().jumpKey()->combo(), combo(u"ctrl+opt+n"_s));
}

TEST_F(Editor, oneRecordingAtATime) {
    openAdd(u"/Applications/Notes.app"_s);
    stage.click(stage.item(u"jumpKeyBox"_s));
    EXPECT_TRUE(editor().jumpKey()->isRecording());
    stage.click(stage.item(u"hideKeyBox"_s));
    EXPECT_FALSE(editor().jumpKey()->isRecording());
    EXPECT_TRUE(editor().hideKey()->isRecording());
    stage.agent().shell().closePopover();
    EXPECT_FALSE(editor().hideKey()->isRecording());
    EXPECT_FALSE(stage.list().hotkeysSuspended());
}

TEST_F(Editor, oneKeyCannotBothJumpAndHide) {
    openAdd(u"/Applications/Notes.app"_s);
    editor().jumpKey()->setCombo(combo(u"ctrl+opt+n"_s));
    editor().hideKey()->setCombo(combo(u"ctrl+opt+n"_s));
    editor().save();
    EXPECT_TRUE(shortcuts().empty());
    EXPECT_EQ(editor().problem(), u"One key cannot both jump and hide."_s);
}

TEST_F(Editor, aTargetWithAShortcutLeadsToThatShortcut) {
    const ShortcutItem notes = add(u"/Applications/Notes.app"_s, u"ctrl+opt+n"_s);
    openAdd(u"/Applications/Notes.app"_s);
    editor().save();
    EXPECT_EQ(shortcuts().size(), 1U);
    stage.click(stage.item(u"openExisting"_s));
    EXPECT_TRUE(editor().isEditing());
    EXPECT_EQ(editor().recordId(), notes.id.text());
    EXPECT_EQ(editor().problem(), QString());
}

TEST_F(Editor, editingKeepsTheRecordAndItsPlace) {
    const ShortcutItem notes = add(u"/Applications/Notes.app"_s, u"ctrl+opt+n"_s);
    add(u"/Applications/Mail.app"_s, u"ctrl+opt+m"_s);
    openEdit(notes);
    stage.click(stage.item(u"jumpKeyClear"_s));
    editor().setName(u"Two\nlines"_s);
    stage.click(stage.item(u"save"_s));
    EXPECT_EQ(shortcuts().front().id, notes.id);
    EXPECT_EQ(shortcuts().front().name, u"Two\nlines"_s);
    EXPECT_EQ(shortcuts().front().keyCombo, std::nullopt);
    EXPECT_FALSE(jumps(u"ctrl+opt+n"_s));

    openEdit(shortcuts().front());
    editor().setName(u"  "_s);
    editor().save();
    EXPECT_EQ(shortcuts().front().name, u"Notes"_s);
}

TEST_F(Editor, leavingChangesNothing) {
    const ShortcutItem notes = add(u"/Applications/Notes.app"_s, u"ctrl+opt+n"_s);
    openEdit(notes);
    editor().setName(u"Other"_s);
    editor().jumpKey()->setCombo(combo(u"ctrl+opt+o"_s));
    stage.click(stage.item(u"cancelEdit"_s));
    EXPECT_EQ(shortcuts().front(), notes);
}

TEST_F(Editor, aVanishedTargetIsLocatedAgainWithIdAndKeysKept) {
    const ShortcutItem notes = add(u"/Applications/Notes.app"_s, u"ctrl+opt+n"_s);
    (void)desk().removePath(u"/Applications/Notes.app"_s);
    openEdit(notes);
    EXPECT_TRUE(editor().isTargetMissing());
    stage.click(stage.item(u"changeTarget"_s));
    stage.type(u"notebook"_s);
    settleSearch();
    stage.press(Qt::Key_Return);
    editor().save();
    const ShortcutItem& now = shortcuts().front();
    EXPECT_EQ(now.id, notes.id);
    EXPECT_EQ(now.keyCombo, notes.keyCombo);
    EXPECT_EQ(now.targetPath, u"/Applications/Notebook.app"_s);
    EXPECT_EQ(now.name, u"Notebook"_s);
    EXPECT_NE(now.bookmarkData, notes.bookmarkData);
}

TEST_F(Editor, anotherTargetCanBeTakenBack) {
    const ShortcutItem notes = add(u"/Applications/Notes.app"_s, u"ctrl+opt+n"_s);
    openEdit(notes);
    stage.click(stage.item(u"changeTarget"_s));
    stage.press(Qt::Key_Escape);
    EXPECT_FALSE(editor().isChoosing());
    EXPECT_EQ(editor().targetPath(), notes.targetPath);
    EXPECT_EQ(popover().screen(), u"add"_s);
}

TEST_F(Editor, whatVanishedBeforeSavingIsSaidAndNothingIsMade) {
    openAdd(u"/Applications/gone.app"_s);
    EXPECT_TRUE(editor().isChoosing());
    EXPECT_EQ(editor().problem(), u"“gone” is not there any more."_s);

    openAdd(u"/Applications/Notes.app"_s);
    (void)desk().removePath(u"/Applications/Notes.app"_s);
    editor().save();
    EXPECT_EQ(editor().problem(), u"“Notes” is not there any more."_s);
    EXPECT_TRUE(shortcuts().empty());
}

TEST_F(Editor, aShortcutRemovedElsewhereIsMadeAnew) {
    const ShortcutItem notes = add(u"/Applications/Notes.app"_s, u"ctrl+opt+n"_s);
    openEdit(notes);
    (void)stage.list().remove(notes.id);
    editor().save();
    EXPECT_FALSE(editor().problem().isEmpty());
    editor().save();
    ASSERT_EQ(shortcuts().size(), 1U);
    EXPECT_EQ(shortcuts().front().keyCombo, notes.keyCombo);
}

TEST_F(Editor, removingFromTheEditorCanBeUndoneOnTheList) {
    const ShortcutItem notes = add(u"/Applications/Notes.app"_s, u"ctrl+opt+n"_s);
    openEdit(notes);
    stage.click(stage.item(u"removeShortcut"_s));
    EXPECT_TRUE(shortcuts().empty());
    EXPECT_EQ(popover().screen(), u"list"_s);
    stage.click(stage.item(u"undo"_s));
    EXPECT_EQ(shortcuts().front().id, notes.id);
}

} // namespace
} // namespace skipnest
