// SPDX-License-Identifier: Apache-2.0
#include "app/ReadyBindings.h"

#include "tests/hotkeys/Combos.h"

#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gmock/gmock.h>

namespace skipnest::app {
namespace {

using namespace Qt::StringLiterals;
using testing::HasSubstr;
using testing::Not;

// Types ö where the US keyboard has a semicolon, and nothing on key 41's neighbour.
class GermanLayout final : public platform::KeyboardLayout {
public:
    [[nodiscard]] std::optional<QString> character(std::uint16_t keyCode) const override {
        return keyCode == 41 ? std::optional(u"ö"_s) : std::nullopt;
    }
    [[nodiscard]] platform::Observation observeChanges(std::function<void()>) override {
        return {};
    }
};

std::vector<model::ShortcutItem> oddNames() {
    std::vector<model::ShortcutItem> items = {
        test::shortcut("Notes", "/Notes.app", "ctrl+opt+j"),
        test::shortcut("It's \"Größe\" $HOME `id` \\ 100%, ;", "/a", "cmd+shift+left"),
        test::shortcut("two\nlines", "/b", "ctrl+opt+cmd+,"),
        test::shortcut("Notes", "/c", "ctrl+f5"),
        test::shortcut("unbound", "/d"),
        test::shortcut("--flag", "/e", "opt+space"),
        test::shortcut("nameless key", "/f", "ctrl+key200"),
    };
    for (std::size_t i = 0; i < items.size(); ++i)
        items[i].id = *model::RecordId::fromText(u"00000000-0000-4000-8000-00000000000%1"_s.arg(i));
    return items;
}

// What a shell makes of a script in which `recorded` print their arguments, one line a call.
QStringList callsOf(const QString& script, const QString& folder, const QStringList& recorded) {
    QString prelude = u"export XDG_DATA_HOME='%1'\n"_s.arg(folder);
    for (const QString& name : recorded)
        prelude += name + u"() { printf '%s|' "_s + name + u" \"$@\" >&2; echo >&2; }\n"_s;
    QProcess shell;
    shell.start(u"/bin/sh"_s, {u"-c"_s, prelude + script});
    EXPECT_TRUE(shell.waitForFinished());
    EXPECT_EQ(shell.exitCode(), 0);
    return QString::fromUtf8(shell.readAllStandardError()).split(u'\n', Qt::SkipEmptyParts);
}

const QString awkward = u"It's \"Größe\" $HOME `id` \\ 100%, ;"_s;

TEST(ReadyBindings, gnomeGetsEachNameAsOneArgument) {
    const QTemporaryDir folder;
    const QString script = readyBindings(oddNames(), BindingsFor::gnome, u"/opt/s n/skipnest"_s);
    const QStringList calls = callsOf(script, folder.path(), {u"gsettings"_s});
    const QString text = calls.join(u'\n');
    EXPECT_EQ(text.count(u" binding|"_s.trimmed()), 5);
    for (const char* key :
         {"|\"<Control><Alt>j\"|", "|\"<Shift><Super>Left\"|", "|\"<Control><Alt><Super>comma\"|",
          "|\"<Control>F5\"|", "|\"<Alt>space\"|"})
        EXPECT_THAT(text.toStdString(), HasSubstr(key));
    EXPECT_THAT(script.toStdString(), HasSubstr("# nameless key: its key has no name here.\n"));
    // The list that is written back names every binding once.
    EXPECT_EQ(calls.last().count(u"/skipnest-00000000-0000-4000-8000-"_s), 5);

    // GNOME splits the command as a shell does, after gsettings has read the value.
    QString command;
    for (const QString& call : calls)
        if (call.contains(u"|command|\"") && call.contains(u"Größe"))
            command = call.section(u"|command|\""_s, 1).chopped(2);
    command.replace(u"\\\""_s, u"\""_s).replace(u"\\\\"_s, u"\\"_s);
    QProcess shell;
    shell.start(u"/bin/sh"_s, {u"-c"_s, u"printf '%s|' "_s + command});
    ASSERT_TRUE(shell.waitForFinished());
    EXPECT_EQ(QString::fromUtf8(shell.readAllStandardOutput()),
              u"/opt/s n/skipnest|jump|"_s + awkward + u'|');
}

TEST(ReadyBindings, namesThatCannotStandThereAreReplacedByTheId) {
    const auto items = oddNames();
    const struct {
        BindingsFor desktop;
        QList<int> byId;
    } rows[] = {
        {BindingsFor::gnome, {0, 2, 3, 5}},
        {BindingsFor::kde, {0, 2, 3, 5}},
        {BindingsFor::sway, {0, 1, 2, 3, 5}},
    };
    for (const auto& row : rows) {
        const QString text = readyBindings(items, row.desktop, u"skipnest"_s);
        for (int i = 0; i < 6; ++i) {
            const QRegularExpression jump(u"jump ['\"\\\\]+"_s +
                                          items[static_cast<std::size_t>(i)].id.text());
            EXPECT_EQ(text.contains(jump), row.byId.contains(i)) << i << text.toStdString();
        }
    }
}

TEST(ReadyBindings, kdeGetsDesktopEntriesAndBothGenerationsOfItsSettings) {
    const QTemporaryDir folder;
    const QString script = readyBindings(oddNames(), BindingsFor::kde, u"skipnest"_s);
    // The tool's presence is asked for by `command -v`, which finds the functions too.
    const QStringList six = callsOf(script, folder.path(), {u"kwriteconfig6"_s});
    EXPECT_EQ(six.size(), 5);
    EXPECT_EQ(six[0], u"kwriteconfig6|--file|kglobalshortcutsrc|--group|services|--group|"
                      u"skipnest-00000000-0000-4000-8000-000000000000.desktop|--key|_launch|"
                      u"Ctrl+Alt+J|"_s);
    EXPECT_TRUE(six[2].endsWith(u"|_launch|Meta+Ctrl+Alt+,|"_s)) << six[2].toStdString();
    if (QProcess::execute(u"/bin/sh"_s, {u"-c"_s, u"command -v kwriteconfig6 >/dev/null"_s}) != 0) {
        const QStringList five = callsOf(script, folder.path(), {u"kwriteconfig5"_s});
        EXPECT_TRUE(five[2].endsWith(u"|Meta+Ctrl+Alt+\\,,none,Skipnest: two lines|"_s))
            << five[2].toStdString();
    }

    QFile entry(
        folder.filePath(u"applications/skipnest-00000000-0000-4000-8000-000000000001.desktop"_s));
    ASSERT_TRUE(entry.open(QFile::ReadOnly));
    const std::string text = entry.readAll().toStdString();
    EXPECT_THAT(text, HasSubstr("Name=Skipnest: It's \"Größe\" $HOME `id` \\\\ 100%, ;\n"));
    EXPECT_THAT(text, HasSubstr("Exec=\"skipnest\" jump \"It's \\\\\"Größe\\\\\" \\\\$HOME "
                                "\\\\`id\\\\` \\\\\\\\ 100%%, ;\"\n"));
}

TEST(ReadyBindings, swayGetsLinesOfItsConfiguration) {
    const std::string text =
        readyBindings({test::shortcut("Große Notiz", "/a", "cmd+ctrl+opt+shift+j")},
                      BindingsFor::sway, u"/usr/bin/skipnest"_s)
            .toStdString();
    EXPECT_EQ(text, "# Große Notiz.\nbindsym Ctrl+Mod1+Shift+Mod4+j exec '/usr/bin/skipnest' "
                    "jump 'Große Notiz'\n");
    const QString odd = readyBindings(oddNames(), BindingsFor::sway, u"skipnest"_s);
    for (const QString& line : odd.split(u'\n', Qt::SkipEmptyParts))
        EXPECT_TRUE(line.startsWith(u"# ") || line.startsWith(u"bindsym ")) << line.toStdString();
    EXPECT_THAT(readyBindings({test::shortcut("x", "/x", "ctrl+;")}, BindingsFor::sway,
                              u"skipnest"_s, GermanLayout())
                    .toStdString(),
                HasSubstr("bindsym Ctrl+U00f6 exec"));
}

} // namespace
} // namespace skipnest::app
