// SPDX-License-Identifier: Apache-2.0
#include "model/ShortcutTransfer.h"

#include "Samples.h"
#include "model/ConfigurationCoding.h"
#include "model/ShortcutListViewModel.h"
#include "model/StorageService.h"
#include "platform/JsonDefaults.h"
#include "platform/sim/MemoryFiles.h"

#include <gmock/gmock.h>

namespace skipnest::model {
namespace {

QString s(const char* text) {
    return QString::fromUtf8(text);
}

// A record written as "letter order path key"; the letter is its name and its identity.
ShortcutItem record(const char* text) {
    const QStringList words = s(text).split(u' ');
    ShortcutItem item;
    item.id = *RecordId::fromText(s("00000000-0000-4000-8000-0000000000%1")
                                      .arg(words[0].at(0).unicode(), 2, 16, QLatin1Char('0')));
    item.name = words[0];
    item.sortOrder = words[1].toInt();
    item.targetPath = words[2];
    if (words.size() > 3)
        item.keyCombo = KeyCombo{static_cast<std::uint16_t>(words[3].toInt()), {6}};
    item.createdAt = QDateTime(QDate(2026, 1, 1), QTime(12, 0), Qt::UTC);
    return item;
}

QStringList described(const std::vector<ShortcutItem>& items) {
    QStringList rows;
    for (const ShortcutItem& item : items) {
        rows << s("%1 %2 %3").arg(item.name).arg(item.sortOrder).arg(item.targetPath);
        if (item.keyCombo)
            rows.last() += s(" %1").arg(item.keyCombo->keyCode);
    }
    return rows;
}

QStringList texts(const std::vector<const char*>& list) {
    QStringList rows;
    for (const char* text : list)
        rows << s(text);
    return rows;
}

AppConfiguration documentOf(const std::vector<const char*>& records) {
    AppConfiguration document;
    for (const char* text : records)
        document.shortcuts.push_back(record(text));
    return document;
}

class ShortcutTransferTest : public testing::Test {
protected:
    void open(AppConfiguration document) {
        files.put(configPath, encodeConfiguration(document));
        start();
    }
    // What the program finds when it starts on what is on the disk.
    void start() {
        transfer.reset();
        list.reset();
        defaults = std::make_unique<platform::JsonDefaults>(files, s("/home/me/defaults.json"));
        storage = std::make_unique<StorageService>(files, lines, clock, *defaults, app);
        list = std::make_unique<ShortcutListViewModel>(
            *storage, workspace, bookmarks, files, clock, *defaults, app,
            [this](const AppConfiguration& config) { hotkeys = described(config.shortcuts); },
            nullptr);
        transfer = std::make_unique<ShortcutTransfer>(*list, files, clock, app);
    }
    [[nodiscard]] AppConfiguration onDisk() const {
        return *decodeConfiguration(*files.content(configPath));
    }

    const QString configPath = s("/home/me/Skipnest/config.json");
    platform::AppInfo app = test::appInfo();
    platform::sim::MemoryFiles files;
    test::GatheredLines lines;
    test::SetClock clock;
    test::PathWorkspace workspace;
    test::NamedBookmarks bookmarks;
    std::unique_ptr<platform::JsonDefaults> defaults;
    std::unique_ptr<StorageService> storage;
    std::unique_ptr<ShortcutListViewModel> list;
    std::unique_ptr<ShortcutTransfer> transfer;
    QStringList hotkeys; // the records that the hotkeys were last made of
};

struct MergeRow {
    const char* what;
    std::vector<const char*> before;
    std::vector<const char*> imported;
    std::vector<const char*> after;
    std::vector<const char*> bound; // what the hotkeys are made of, where it is not `after`
    ImportReport report;
};

class Merging : public ShortcutTransferTest, public testing::WithParamInterface<MergeRow> {};

TEST_P(Merging, givesListFileAndHotkeys) {
    const MergeRow& row = GetParam();
    AppConfiguration own = documentOf(row.before);
    own.themeRaw = s("dark");
    open(own);
    AppConfiguration theirs = documentOf(row.imported);
    theirs.themeRaw = s("light");
    const QByteArray document = encodeConfiguration(theirs);

    EXPECT_EQ(*transfer->preview(document), row.report);
    EXPECT_EQ(described(list->shortcuts()), texts(row.before)) << "a preview changes nothing";
    EXPECT_EQ(*transfer->importDocument(document), row.report);
    EXPECT_EQ(described(list->shortcuts()), texts(row.after));
    EXPECT_EQ(described(onDisk().shortcuts), texts(row.after));
    EXPECT_EQ(onDisk().themeRaw, s("dark")) << "the document's own settings stay";
    EXPECT_EQ(hotkeys, texts(row.bound.empty() ? row.after : row.bound));
    start();
    EXPECT_EQ(hotkeys, texts(row.bound.empty() ? row.after : row.bound)) << "after a restart";
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Merging,
    testing::Values(MergeRow{"into an empty list, in their order",
                             {},
                             {"b 9 /b", "a 2 /a"},
                             {"a 0 /a", "b 1 /b"},
                             {},
                             {.added = 2}},
                    MergeRow{"known ones keep their place, new ones come last",
                             {"a 3 /a 1", "b 7 /b"},
                             {"c 0 /c", "b 1 /elsewhere 2"},
                             {"a 0 /a 1", "b 1 /elsewhere 2", "c 2 /c"},
                             {},
                             {.added = 1, .updated = 1}},
                    MergeRow{"the same again changes nothing, whatever the order",
                             {"a 3 /a 1", "b 7 /b"},
                             {"b 0 /b", "a 1 /a 1"},
                             {"a 3 /a 1", "b 7 /b"},
                             {},
                             {.unchanged = 2}},
                    MergeRow{"an id that comes twice counts once, the last one",
                             {},
                             {"a 0 /first", "b 1 /b", "a 2 /last"},
                             {"b 0 /b", "a 1 /last"},
                             {},
                             {.added = 2}},
                    MergeRow{"a combo in use is kept on both",
                             {"a 0 /a 1", "b 1 /b 2"},
                             {"c 0 /c 1", "d 1 /d 3"},
                             {"a 0 /a 1", "b 1 /b 2", "c 2 /c 1", "d 3 /d 3"},
                             {},
                             {.added = 2, .conflicting = 1}},
                    MergeRow{
                        "an application from elsewhere waits, also where it replaces a target",
                        {"a 0 /Applications/A.app", "b 1 /tmp/Mine.app"},
                        {"a 0 /tmp/A.app", "b 1 /tmp/Mine.app 4", "c 2 /Applications/../tmp/C.app",
                         "d 3 /Applications/D.app", "e 4 /tmp/e.txt"},
                        {"a 0 /tmp/A.app", "b 1 /tmp/Mine.app 4", "c 2 /Applications/../tmp/C.app",
                         "d 3 /Applications/D.app", "e 4 /tmp/e.txt"},
                        {"b 1 /tmp/Mine.app 4", "d 3 /Applications/D.app", "e 4 /tmp/e.txt"},
                        {.added = 3, .updated = 2, .unconfirmed = 2}}),
    [](const auto& row) {
        QString name = s(row.param.what);
        name.removeIf([](QChar c) { return !c.isLetterOrNumber(); });
        return name.toStdString();
    });

TEST_F(ShortcutTransferTest, aConfirmedApplicationIsBoundFromThenOn) {
    open({});
    ASSERT_TRUE(transfer->importDocument(encodeConfiguration(documentOf({"a 0 /tmp/A.app 1"}))));
    const RecordId id = record("a 0 /").id;
    EXPECT_FALSE(list->isConfirmed(id));
    EXPECT_TRUE(list->confirm(id));
    EXPECT_FALSE(list->confirm(id));
    EXPECT_EQ(hotkeys, texts({"a 0 /tmp/A.app 1"}));
    start();
    EXPECT_TRUE(list->isConfirmed(id));
}

TEST_F(ShortcutTransferTest, neitherRemovingNorASnapshotConfirms) {
    open({});
    ASSERT_TRUE(transfer->importDocument(encodeConfiguration(documentOf({"a 0 /tmp/A.app 1"}))));
    storage->takeDailySnapshot();
    ASSERT_TRUE(list->remove(record("a 0 /").id));
    ASSERT_TRUE(storage->restore(std::nullopt));
    list->reload();
    EXPECT_EQ(list->shortcuts().size(), 1U);
    EXPECT_EQ(hotkeys, QStringList());
    ShortcutItem edited = list->shortcuts().front();
    edited.targetPath = s("/tmp/B.app");
    ASSERT_TRUE(list->update(edited));
    EXPECT_EQ(hotkeys.size(), 1) << "a target chosen by the person needs no second word";
}

TEST_F(ShortcutTransferTest, whatCannotBeNotedIsNotImported) {
    open(documentOf({"a 0 /a"}));
    files.failAfter(0);
    EXPECT_FALSE(transfer->importDocument(encodeConfiguration(documentOf({"b 0 /tmp/B.app"}))));
    EXPECT_EQ(described(onDisk().shortcuts), texts({"a 0 /a"}));
    EXPECT_EQ(described(list->shortcuts()), texts({"a 0 /a"}));
    EXPECT_TRUE(list->isConfirmed(record("b 0 /").id));
}

TEST_F(ShortcutTransferTest, brokenFilesChangeNothing) {
    open(documentOf({"a 0 /a"}));
    const QByteArray before = *files.content(configPath);
    const QByteArray whole = encodeConfiguration(documentOf({"b 0 /b"}));
    const QString path = s("/home/me/import.json");
    const QString unreadable =
        s("That file couldn't be read as a Skipnest export - pick another one.");
    const std::vector<std::pair<QByteArray, QString>> rows = {
        {"", unreadable},
        {whole.first(whole.size() / 2), unreadable},
        {QByteArray(whole).replace("\"file\"", "\"window\""), unreadable},
        {QByteArray("\xff\xfe\x00{", 4), unreadable},
        {QByteArray((16 << 20) + 1, ' '),
         s("That file is larger than 16 MB, and no Skipnest export is.")},
    };
    for (const auto& [bytes, message] : rows) {
        files.put(path, bytes);
        const auto imported = transfer->importFile(path);
        ASSERT_FALSE(imported) << bytes.left(40).toStdString();
        EXPECT_EQ(imported.failure().detail, message);
        EXPECT_FALSE(transfer->preview(bytes));
    }
    EXPECT_FALSE(transfer->importFile(s("/home/me/gone.json")));
    EXPECT_EQ(*files.content(configPath), before);
    EXPECT_EQ(hotkeys, texts({"a 0 /a"}));
}

TEST_F(ShortcutTransferTest, oddNamesComeBackAsTheyWere) {
    AppConfiguration odd = documentOf({"a 0 /a", "b 1 /b", "c 2 /c"});
    odd.shortcuts[0].name = s("two\nlines\r\n\x01");
    odd.shortcuts[1].name = s("\u202Eمرحبا\u202C");
    odd.shortcuts[2].name = s("👩‍💻 Größe");
    open(odd);
    const auto written = transfer->exportTo(ExportDestination::desktop);
    ASSERT_TRUE(written);
    EXPECT_EQ(*written, s("/home/me/Schreibtisch/Skipnest-Export-2026-07-24.json"));
    EXPECT_EQ(*files.content(*written), *files.content(configPath));
    open({});
    ASSERT_TRUE(transfer->importFile(*written));
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_EQ(list->shortcuts()[i].name, odd.shortcuts[i].name);
}

TEST_F(ShortcutTransferTest, candidatesAreFoundNewestNameFirst) {
    open({});
    for (const char* path : {"/home/me/Downloads/Skipnest-Export-2026-01-02.json",
                             "/home/me/Documents/Skipnest-Export-2026-07-24 (1).json",
                             "/home/me/Schreibtisch/my Skipnest work-Export.json",
                             "/home/me/Downloads/Skipnest.json", "/home/me/Downloads/x-Export"})
        files.put(s(path), "x");
    (void)files.createFolder(s("/home/me/Downloads/Skipnest-Export-folder"));
    EXPECT_EQ(transfer->candidates(),
              texts({"/home/me/Schreibtisch/my Skipnest work-Export.json",
                     "/home/me/Documents/Skipnest-Export-2026-07-24 (1).json",
                     "/home/me/Downloads/Skipnest-Export-2026-01-02.json"}));
    EXPECT_FALSE(transfer->exportTo(s("/home/me/Downloads")));
    files.failAfter(1);
    EXPECT_FALSE(transfer->exportTo(s("/home/me/Downloads/Skipnest.json")));
    EXPECT_EQ(*files.content(s("/home/me/Downloads/Skipnest.json")), QByteArray("x"));
}

TEST_F(ShortcutTransferTest, aSharedComboIsMarkedOnBothAndFreedWithOne) {
    open(documentOf({"a 0 /a 1", "b 1 /b 2", "c 2 /c"}));
    ShortcutItem c = record("c 2 /c");
    c.hideKeyCombo = KeyCombo{1, {6}};
    ASSERT_TRUE(list->update(c));
    EXPECT_TRUE(list->conflicting(c.id));
    EXPECT_TRUE(list->conflicting(record("a 0 /").id));
    EXPECT_FALSE(list->conflicting(record("b 0 /").id));
    ASSERT_TRUE(list->remove(record("a 0 /").id));
    EXPECT_FALSE(list->conflicting(c.id));
}

} // namespace
} // namespace skipnest::model
