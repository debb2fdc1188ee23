// SPDX-License-Identifier: Apache-2.0
#include "ui/editor/RecorderWording.h"

#include "model/ComboText.h"
#include "platform/UsKeyboardLayout.h"
#include "ui/editor/PlainLine.h"

#include <gmock/gmock.h>

namespace skipnest::ui {
namespace {

using namespace Qt::StringLiterals;
using platform::Availability;
using platform::ModifierStyle;
using Conflict = RecorderWording::Conflict;
using Warning = RecorderWording::Warning;

model::KeyCombo combo(const QString& text) {
    return model::parseCombo(text).value();
}

struct ConflictRow {
    Conflict conflict;
    const char* names;
    const char* glyphs;
};

class ConflictWording : public testing::TestWithParam<ConflictRow> {};

TEST_P(ConflictWording, namesTheKeysAsThePersonKnowsThem) {
    const platform::UsKeyboardLayout layout;
    const auto& [conflict, names, glyphs] = GetParam();
    EXPECT_EQ(RecorderWording(layout, ModifierStyle::names).conflict(conflict, {}).toStdString(),
              names);
    EXPECT_EQ(RecorderWording(layout, ModifierStyle::glyphs).conflict(conflict, {}).toStdString(),
              glyphs);
}

using CK = Conflict::Kind;
INSTANTIATE_TEST_SUITE_P(
    rows, ConflictWording,
    testing::Values(
        ConflictRow{{CK::noModifier, {38, {}}, {}, {}},
                    "Please include at least one modifier key (Ctrl, Alt, Shift, Super)",
                    "Please include at least one modifier key (Cmd, Opt, Ctrl, Shift)"},
        ConflictRow{{CK::systemShortcut, combo(u"cmd+q"_s), {}, {}},
                    "Super+Q is a system shortcut and cannot be used.",
                    "Cmd + Q is a system shortcut and cannot be used."},
        ConflictRow{{CK::otherShortcut, combo(u"ctrl+opt+j"_s), u"My\nnotes"_s, {}},
                    "Ctrl+Alt+J is already assigned to \"My notes\"",
                    "Ctrl + Opt + J is already assigned to \"My notes\""},
        ConflictRow{{CK::desktop, combo(u"ctrl+opt+t"_s), u"GNOME"_s, u"Terminal"_s},
                    "Ctrl+Alt+T is already used by GNOME (Terminal).",
                    "Ctrl + Opt + T is already used by GNOME (Terminal)."},
        ConflictRow{{CK::desktop, combo(u"ctrl+opt+t"_s), {}, {}},
                    "Ctrl+Alt+T is already used by another program.",
                    "Ctrl + Opt + T is already used by another program."}));

TEST(RecorderWording, theWarningAboutCommandsIsAboutTheKeyThatRunsThemHere) {
    const platform::UsKeyboardLayout layout;
    const RecorderWording names(layout, ModifierStyle::names);
    const RecorderWording glyphs(layout, ModifierStyle::glyphs);
    const auto warning = [](const QString& text) {
        return Warning{Warning::Kind::commonCommand, u"ignored"_s, {}, {}, combo(text)};
    };

    EXPECT_EQ(glyphs.warning(warning(u"cmd+shift+s"_s)),
              u"⌘⇧S is “Save” in most apps. A global shortcut would override it everywhere - a "
              "Control (⌃) or Option (⌥) shortcut is safer."_s);
    EXPECT_EQ(names.warning(warning(u"cmd+s"_s)), QString());

    EXPECT_TRUE(names.commonCommand(combo(u"ctrl+s"_s)).startsWith(u"Ctrl+S is “Save” in most"));
    EXPECT_TRUE(names.commonCommand(combo(u"ctrl+shift+t"_s))
                    .startsWith(u"Ctrl+Shift+T is “New Tab” in most"));
    EXPECT_EQ(names.commonCommand(combo(u"ctrl+opt+s"_s)), QString());
    EXPECT_EQ(names.commonCommand(combo(u"ctrl+j"_s)), QString());
    EXPECT_EQ(glyphs.commonCommand(combo(u"ctrl+s"_s)), QString());
}

TEST(RecorderWording, aKeyboardThatCannotBeHadSaysWhy) {
    const platform::UsKeyboardLayout layout;
    const RecorderWording wording(layout, ModifierStyle::names);
    const Conflict taken{CK::keyboardTaken, {}, {}, {}};
    EXPECT_EQ(wording.conflict(taken, {Availability::State::unavailable, u"No X server."_s, {}}),
              u"No X server."_s);
    EXPECT_TRUE(wording.conflict(taken, {}).startsWith(u"Another program holds the keyboard"));
}

TEST(RecorderWording, whatGivesWayIsNamed) {
    const platform::UsKeyboardLayout layout;
    const RecorderWording wording(layout, ModifierStyle::names);
    const auto hidden = [&](const QString& action) {
        return wording.warning(
            {Warning::Kind::hiddenByOther, {}, u"Mail"_s, action, combo(u"ctrl+opt+v"_s)});
    };
    EXPECT_EQ(hidden(u"hide"_s), u"Ctrl+Alt+V hides “Mail” now and will no longer do so."_s);
    EXPECT_EQ(hidden(u"voice"_s),
              u"Ctrl+Alt+V starts the voice search now and will no longer do so."_s);
}

struct LineRow {
    QString name;
    QString shown;
};

class PlainLine : public testing::TestWithParam<LineRow> {};

TEST_P(PlainLine, isOneLineThatTurnsNothingRound) {
    EXPECT_EQ(plainLine(GetParam().name), GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(rows, PlainLine,
                         testing::Values(LineRow{u"two\nlines\t here"_s, u"two lines here"_s},
                                         LineRow{u"a\u202Egpj.exe"_s, u"agpj.exe"_s},
                                         LineRow{u"bell\a"_s, u"bell"_s},
                                         LineRow{u"\u2067תוכנית\u2069"_s, u"תוכנית"_s},
                                         LineRow{u"🎉 Party"_s, u"🎉 Party"_s}));

TEST(PlainLine, aPathUnderHomeIsShortenedAndOneBesideItIsNot) {
    const QString home = u"/Users/person"_s;
    EXPECT_EQ(shownPath(u"/Users/person/a"_s, home), u"~/a"_s);
    EXPECT_EQ(shownPath(u"/Users/personal/a"_s, home), u"/Users/personal/a"_s);
    EXPECT_EQ(shownFolder(u"/Users/person/a"_s, home), u"~"_s);
    EXPECT_EQ(shownFolder(u"/file"_s, home), u"/"_s);
}

} // namespace
} // namespace skipnest::ui
