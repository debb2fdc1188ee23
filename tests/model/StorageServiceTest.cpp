// SPDX-License-Identifier: Apache-2.0
#include "model/StorageService.h"
#include "Samples.h"
#include "model/ConfigurationCoding.h"
#include "platform/JsonDefaults.h"
#include "platform/sim/MemoryFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace skipnest::model {
namespace {

using platform::sim::MemoryFiles;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using Kind = StorageState::Kind;

const QString configPath = QStringLiteral("/home/me/Skipnest/config.json");
const QString backups = QStringLiteral("/home/me/Skipnest/Backups");
const QString corruptPath = configPath + QStringLiteral(".corrupt-20260724T093015");

AppConfiguration namedDocument(const QString& icon) {
    AppConfiguration document;
    document.menuBarIconName = icon;
    return document;
}

ShortcutItem itemNamed(const QString& name, std::int64_t order) {
    ShortcutItem item;
    item.name = name;
    item.sortOrder = order;
    item.createdAt = QDateTime(QDate(2026, 1, 1), QTime(12, 0), Qt::UTC);
    return item;
}

// One machine; start() is what a start of the program finds on it.
struct Machine {
    MemoryFiles files;
    test::GatheredLines lines;
    test::SetClock clock;
    std::unique_ptr<platform::JsonDefaults> defaults;
    std::unique_ptr<StorageService> storage;

    StorageService& start() {
        defaults = std::make_unique<platform::JsonDefaults>(
            files, QStringLiteral("/home/me/Skipnest/defaults.json"));
        storage = std::make_unique<StorageService>(files, lines, clock, *defaults, test::appInfo());
        return *storage;
    }
    void putDocument(const AppConfiguration& document) {
        files.put(configPath, encodeConfiguration(document));
    }
    [[nodiscard]] AppConfiguration onDisk() const {
        const auto document = decodeConfiguration(files.content(configPath).value_or(QByteArray()));
        return document ? *document : namedDocument(QStringLiteral("(undecodable)"));
    }
};

class Storage : public testing::Test, protected Machine {};

TEST_F(Storage, readsOnceAndWritesBack) {
    start();
    EXPECT_TRUE(storage->load() == AppConfiguration());
    EXPECT_EQ(storage->state().kind, Kind::missing);
    storage->save(namedDocument(QStringLiteral("star")));
    EXPECT_EQ(storage->state().kind, Kind::loaded);
    putDocument(namedDocument(QStringLiteral("edited")));
    EXPECT_EQ(storage->load().menuBarIconName, QStringLiteral("star"));
    EXPECT_EQ(start().load().menuBarIconName, QStringLiteral("edited"));
    EXPECT_THAT(lines.printed, IsEmpty());
}

TEST_F(Storage, aBrokenFileIsReportedOnceAndMovedBeforeTheFirstSave) {
    files.put(configPath, "{\"version\":1");
    files.put(corruptPath, "an earlier one");
    start();
    EXPECT_TRUE(storage->load() == AppConfiguration());
    (void)storage->load();
    ASSERT_EQ(lines.printed.size(), 1);
    EXPECT_TRUE(lines.printed[0].startsWith(QStringLiteral("[Skipnest] Failed to load config: ")));
    EXPECT_TRUE(lines.printed[0].endsWith(QStringLiteral(". Using empty config.")));
    EXPECT_EQ(storage->state().kind, Kind::broken);
    EXPECT_EQ(files.content(configPath), QByteArray("{\"version\":1"));

    storage->save(namedDocument(QStringLiteral("star")));
    EXPECT_EQ(files.content(corruptPath), QByteArray("an earlier one"));
    EXPECT_EQ(files.content(corruptPath + QStringLiteral("-2")), QByteArray("{\"version\":1"));
    EXPECT_EQ(onDisk().menuBarIconName, QStringLiteral("star"));
    EXPECT_THAT(lines.logged,
                ElementsAre(QStringLiteral("config: moved a document that does not decode to "
                                           "config.json.corrupt-20260724T093015-2")));
    EXPECT_EQ(storage->state().movedTo, QStringLiteral("config.json.corrupt-20260724T093015-2"));
}

TEST_F(Storage, otherWaysToBeBroken) {
    const auto expectBroken = [this](const char* why) {
        lines.printed.clear();
        EXPECT_TRUE(start().load() == AppConfiguration()) << why;
        EXPECT_EQ(storage->state().kind, Kind::broken) << why;
        EXPECT_EQ(lines.printed.size(), 1) << why;
    };
    files.put(configPath, "");
    expectBroken("no bytes");
    files.put(configPath, QByteArray(largestConfiguration + 1, ' '));
    expectBroken("too large");
    ASSERT_TRUE(files.remove(configPath));
    ASSERT_TRUE(files.createFolder(configPath));
    expectBroken("a folder");
    storage->save(namedDocument(QStringLiteral("star")));
    EXPECT_EQ(onDisk().menuBarIconName, QStringLiteral("star"));
    EXPECT_EQ(files.kind(corruptPath), platform::FileKind::folder);
    files.makeUnreadable(configPath);
    expectBroken("unreadable");
}

TEST_F(Storage, aFileBrokenWhileRunningIsKeptToo) {
    start().save(AppConfiguration());
    files.put(configPath, "edited by hand");
    storage->save(namedDocument(QStringLiteral("star")));
    EXPECT_EQ(files.content(corruptPath), QByteArray("edited by hand"));
    EXPECT_EQ(onDisk().menuBarIconName, QStringLiteral("star"));
}

TEST_F(Storage, withoutTheMoveThereIsNoSave) {
    files.put(configPath, "broken");
    start();
    (void)storage->load();
    lines.printed.clear();
    files.failAfter(2); // folder, read, rename
    storage->save(namedDocument(QStringLiteral("star")));
    ASSERT_EQ(files.operations().last().section(u' ', 0, 0), QStringLiteral("rename"));
    EXPECT_EQ(files.content(configPath), QByteArray("broken"));
    ASSERT_EQ(lines.printed.size(), 1);
    EXPECT_TRUE(lines.printed[0].startsWith(QStringLiteral("[Skipnest] Failed to save config: ")));
    EXPECT_EQ(storage->load().menuBarIconName, QStringLiteral("star"));
}

// Whatever operation of a save is the last one, the next start finds the old or the new document,
// and a document that could not be read is still somewhere.
class StorageFaults : public testing::TestWithParam<bool> {};

TEST_P(StorageFaults, everySaveIsAllOrNothing) {
    const bool broken = GetParam();
    const QByteArray before =
        broken ? QByteArray("broken") : encodeConfiguration(namedDocument(QStringLiteral("old")));
    const auto prepare = [&before](Machine& machine) {
        machine.files.put(configPath, before);
        (void)machine.start().load();
    };
    const auto check = [&](Machine& machine, const std::string& when) {
        const QString icon = machine.start().load().menuBarIconName;
        EXPECT_TRUE(icon == QStringLiteral("new") ||
                    icon == (broken ? QStringLiteral("skipnest") : QStringLiteral("old")))
            << when << ": " << icon.toStdString();
        if (broken) {
            EXPECT_TRUE(machine.files.content(configPath) == before ||
                        machine.files.content(corruptPath) == before)
                << when;
        }
        return icon;
    };

    Machine reference;
    prepare(reference);
    const qsizetype preparation = reference.files.operations().size();
    reference.storage->save(namedDocument(QStringLiteral("new")));
    const int operations = static_cast<int>(reference.files.operations().size() - preparation);
    ASSERT_GE(operations, 6);
    for (const auto reached : {MemoryFiles::Reached::nothing, MemoryFiles::Reached::namesOnly}) {
        reference.files.crash(reached);
        EXPECT_EQ(check(reference, "after a whole save"), QStringLiteral("new"));
    }

    for (int n = 0; n < operations; ++n) {
        Machine failing;
        prepare(failing);
        failing.lines.printed.clear();
        failing.files.failAfter(n);
        failing.storage->save(namedDocument(QStringLiteral("new")));
        EXPECT_EQ(failing.storage->load().menuBarIconName, QStringLiteral("new"));
        EXPECT_LE(failing.lines.printed.size(), 1);
        check(failing, "failing at " + std::to_string(n));
        EXPECT_EQ(failing.files.kind(configPath + QStringLiteral(".new")),
                  platform::FileKind::none);

        for (const auto reached :
             {MemoryFiles::Reached::nothing, MemoryFiles::Reached::lastName,
              MemoryFiles::Reached::namesOnly, MemoryFiles::Reached::everything}) {
            Machine stopped;
            prepare(stopped);
            stopped.files.stopAfter(n);
            stopped.storage->save(namedDocument(QStringLiteral("new")));
            stopped.files.crash(reached);
            check(stopped, "stopped at " + std::to_string(n) + ", reached " +
                               std::to_string(static_cast<int>(reached)));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(, StorageFaults, testing::Bool());

TEST_F(Storage, oneSnapshotADayAndTheFirstWins) {
    start().takeDailySnapshot();
    EXPECT_THAT(lines.logged, IsEmpty()) << "nothing to copy";
    putDocument(namedDocument(QStringLiteral("morning")));
    start().takeDailySnapshot();
    const QByteArray morning = *files.content(configPath);
    putDocument(namedDocument(QStringLiteral("evening")));
    start().takeDailySnapshot();
    // 22:30 in London is the next day in Berlin.
    clock.now = QDateTime(QDate(2026, 7, 24), QTime(22, 30), Qt::UTC);
    clock.local = QTimeZone(2 * 3600);
    start().takeDailySnapshot();
    EXPECT_THAT(lines.logged,
                ElementsAre(QStringLiteral("backup: snapshot config-2026-07-24.json"),
                            QStringLiteral("backup: snapshot config-2026-07-25.json")));
    EXPECT_EQ(files.content(backups + QStringLiteral("/config-2026-07-24.json")), morning);
    EXPECT_EQ(storage->state().newestSnapshot, QStringLiteral("config-2026-07-25.json"));
}

TEST_F(Storage, aBrokenDocumentIsNoSnapshot) {
    files.put(configPath, "broken");
    start().takeDailySnapshot();
    ASSERT_EQ(lines.logged.size(), 1);
    EXPECT_TRUE(lines.logged[0].startsWith(QStringLiteral("backup: snapshot failed ")));
    EXPECT_EQ(files.kind(backups), platform::FileKind::none);

    putDocument(AppConfiguration());
    const qsizetype preparation = files.operations().size();
    start().takeDailySnapshot();
    const int operations = static_cast<int>(files.operations().size() - preparation);
    for (int n = 0; n < operations - 1; ++n) { // the last one lists the folder for pruning
        Machine machine;
        machine.putDocument(AppConfiguration());
        machine.files.failAfter(n);
        machine.start().takeDailySnapshot();
        EXPECT_TRUE(
            machine.lines.logged.value(0).startsWith(QStringLiteral("backup: snapshot failed ")))
            << n;
    }
}

TEST_F(Storage, theOldestSnapshotsGo) {
    putDocument(AppConfiguration());
    for (int day = 1; day <= 31; ++day)
        files.put(backups + QStringLiteral("/config-2026-05-%1.json").arg(day, 2, 10, QChar(u'0')),
                  "x");
    files.put(backups + QStringLiteral("/config-2026-04-01.json.mine"), "x");
    files.put(backups + QStringLiteral("/notes.txt"), "x");
    start().takeDailySnapshot();
    const QStringList names = *files.list(backups);
    EXPECT_EQ(names.size(), StorageService::snapshotsKept + 2);
    EXPECT_THAT(names, Contains(QStringLiteral("config-2026-04-01.json.mine")));
    EXPECT_THAT(names, Contains(QStringLiteral("config-2026-05-03.json")));
    EXPECT_THAT(names, testing::Not(Contains(QStringLiteral("config-2026-05-02.json"))));
}

TEST_F(Storage, restoresTheNewestUsableSnapshotOrThatOfADay) {
    const auto put = [this](const char* day, const QByteArray& bytes) {
        files.put(backups + QStringLiteral("/config-%1.json").arg(QString::fromLatin1(day)), bytes);
    };
    put("2026-07-20", encodeConfiguration(namedDocument(QStringLiteral("twentieth"))));
    put("2026-07-21", encodeConfiguration(namedDocument(QStringLiteral("newest"))));
    put("2026-07-22", "broken");
    files.put(configPath, "broken too");
    start();
    EXPECT_EQ(storage->state().newestSnapshot, QStringLiteral("config-2026-07-21.json"));

    const auto restored = storage->restore(std::nullopt);
    ASSERT_TRUE(restored) << restored.failure().detail.toStdString();
    EXPECT_EQ(*restored, QStringLiteral("config-2026-07-21.json"));
    EXPECT_EQ(storage->load().menuBarIconName, QStringLiteral("newest"));
    EXPECT_EQ(onDisk().menuBarIconName, QStringLiteral("newest"));
    EXPECT_EQ(storage->state().kind, Kind::loaded);
    const QString kept = configPath + QStringLiteral(".before-restore-20260724T093015");
    EXPECT_EQ(files.content(kept), QByteArray("broken too"));

    ASSERT_TRUE(storage->restore(QDate(2026, 7, 20)));
    EXPECT_EQ(onDisk().menuBarIconName, QStringLiteral("twentieth"));
    EXPECT_EQ(files.content(kept), QByteArray("broken too"));
    EXPECT_TRUE(files.content(kept + QStringLiteral("-2")));

    EXPECT_EQ(storage->restore(QDate(2026, 7, 22)).failure().kind,
              platform::Failure::Kind::malformed);
    EXPECT_EQ(storage->restore(QDate(2026, 7, 23)).failure().kind,
              platform::Failure::Kind::notFound);
    EXPECT_EQ(onDisk().menuBarIconName, QStringLiteral("twentieth"));
}

TEST_F(Storage, aRestoreThatFailsLeavesTheDocument) {
    for (int n = 0; n < 8; ++n) { // up to the rename over the document
        Machine machine;
        machine.putDocument(namedDocument(QStringLiteral("present")));
        machine.files.put(backups + QStringLiteral("/config-2026-07-20.json"),
                          encodeConfiguration(namedDocument(QStringLiteral("older"))));
        (void)machine.start().load();
        machine.files.failAfter(n);
        const bool restored = machine.storage->restore(QDate(2026, 7, 20)).ok();
        const QString expected = restored ? QStringLiteral("older") : QStringLiteral("present");
        EXPECT_EQ(machine.storage->load().menuBarIconName, expected) << n;
        EXPECT_EQ(machine.onDisk().menuBarIconName, expected) << n;
    }
}

class Migration : public Storage {
protected:
    const QString litePath = test::appInfo().liteConfig;
    ShortcutItem notes = itemNamed(QStringLiteral("Notes"), 5);

    Migration() {
        AppConfiguration lite;
        ShortcutItem twin = notes;
        twin.id = *RecordId::fromText(notes.id.text().toLower());
        twin.name = QStringLiteral("Notes of Lite");
        lite.shortcuts = {itemNamed(QStringLiteral("Second"), 2), twin,
                          itemNamed(QStringLiteral("First"), 1)};
        files.put(litePath, encodeConfiguration(lite));
    }
    static QStringList names(const AppConfiguration& document) {
        QStringList names;
        for (const ShortcutItem& item : document.shortcuts)
            names << QStringLiteral("%1 %2").arg(item.name).arg(item.sortOrder);
        return names;
    }
};

TEST_F(Migration, adoptsOnceWhatIsNotThereYet) {
    AppConfiguration own;
    own.shortcuts = {notes};
    putDocument(own);
    start().migrateFromLite();
    const QStringList expected{QStringLiteral("Notes 5"), QStringLiteral("First 6"),
                               QStringLiteral("Second 7")};
    EXPECT_EQ(names(storage->load()), expected);
    EXPECT_EQ(names(onDisk()), expected);
    EXPECT_THAT(lines.logged,
                ElementsAre(QStringLiteral("migration: adopted 2 shortcut(s) from Skipnest Lite")));

    AppConfiguration emptied = storage->load();
    emptied.shortcuts.clear();
    storage->save(emptied);
    start().migrateFromLite();
    EXPECT_THAT(storage->load().shortcuts, IsEmpty()) << "what the person removed came back";
}

TEST_F(Migration, numbersAnewWhereNoOrderIsLeft) {
    AppConfiguration own;
    notes.sortOrder = std::numeric_limits<std::int64_t>::max();
    own.shortcuts = {notes, itemNamed(QStringLiteral("Before"), 0)};
    putDocument(own);
    start().migrateFromLite();
    EXPECT_EQ(names(storage->load()),
              (QStringList{QStringLiteral("Before 0"), QStringLiteral("Notes 1"),
                           QStringLiteral("First 2"), QStringLiteral("Second 3")}));
}

TEST_F(Migration, waitsForADocumentThatCanBeUsed) {
    files.put(configPath, "broken");
    start().migrateFromLite();
    EXPECT_EQ(files.content(configPath), QByteArray("broken"));
    EXPECT_THAT(storage->load().shortcuts, IsEmpty());

    const QByteArray lite = *files.content(litePath);
    putDocument(AppConfiguration());
    files.put(litePath, "broken");
    start().migrateFromLite();
    EXPECT_THAT(onDisk().shortcuts, IsEmpty());

    files.put(litePath, lite);
    start();
    (void)storage->load();
    files.failAfter(4); // defaults, Lite, folder, own document, write
    storage->migrateFromLite();
    EXPECT_THAT(onDisk().shortcuts, IsEmpty());
    start().migrateFromLite();
    EXPECT_EQ(onDisk().shortcuts.size(), 3U) << "a failed save was taken for done";
}

} // namespace
} // namespace skipnest::model
