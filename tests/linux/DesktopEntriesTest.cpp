// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/DesktopEntries.h"

#include "platform/QtExecutor.h"
#include "platform/QtScheduler.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>

namespace skipnest::linuxdesktop {
namespace {

using namespace std::chrono_literals;

void write(const QString& path, const QByteArray& keys) {
    ASSERT_TRUE(QDir().mkpath(path.left(path.lastIndexOf(u'/'))));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[Desktop Entry]\nType=Application\n" + keys);
}

QByteArray named(const char* name) {
    return QByteArray("Name=") + name + "\nExec=true\n";
}

class DesktopEntriesTest : public testing::Test {
protected:
    QString file(const char* path) const { return folder.filePath(QString::fromLatin1(path)); }
    QTemporaryDir folder;
};

struct ExecRow {
    const char* exec;
    const char* program;
    const char* arguments;
};

class ExecTest : public DesktopEntriesTest, public testing::WithParamInterface<ExecRow> {};

TEST_P(ExecTest, NamesTheProgramThatAProcessWillHave) {
    const QString path = file("x.desktop");
    write(path, QByteArray("Name=X\nExec=") + GetParam().exec + "\n");
    const auto entry = readDesktopEntry(path, QStringLiteral("x"));
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->programs.value(0).toStdString(), GetParam().program);
    EXPECT_EQ(entry->arguments.join(u'|').toStdString(), GetParam().arguments);
}

INSTANTIATE_TEST_SUITE_P(
    Lines, ExecTest,
    testing::Values(ExecRow{"nosuch %U", "nosuch", ""},
                    ExecRow{"/opt/x/nosuch --new \"%F\"", "nosuch", "--new"},
                    ExecRow{"nosuch -title \"two words\" %u", "nosuch", "-title|two words"},
                    ExecRow{"env A=b LANG=C /snap/bin/nosuch %U", "nosuch", ""},
                    ExecRow{"/usr/bin/flatpak run --branch=stable --command=inner org.x.Y @@u %U",
                            "inner", ""},
                    ExecRow{"\"unclosed", "", ""}, ExecRow{"", "", ""}));

TEST_F(DesktopEntriesTest, NearerFoldersHideWhatIsFurtherAway) {
    write(file("near/a.desktop"), named("Near"));
    write(file("far/a.desktop"), named("Far"));
    write(file("near/gone.desktop"), named("Gone") + "Hidden=true\n");
    write(file("far/gone.desktop"), named("Gone"));
    write(file("far/vendor/deep.desktop"), named("Deep"));
    write(file("far/link.desktop"), "Name=L\nType=Link\n");
    QStringList found;
    for (const DesktopEntry& entry : readDesktopEntries({file("near"), file("far"), file("none")}))
        found.append(entry.id + u'=' + entry.name);
    EXPECT_EQ(found.join(u' ').toStdString(), "a=Near vendor-deep=Deep");
}

TEST_F(DesktopEntriesTest, AnEntryMeantForMenusComesFirst) {
    DesktopEntry first;
    first.path = QStringLiteral("/a.desktop");
    first.startupWmClass = QStringLiteral("Same");
    first.listed = false;
    DesktopEntry second = first;
    second.path = QStringLiteral("/b.desktop");
    second.listed = true;
    const DesktopEntryIndex index({first, second});
    ASSERT_EQ(index.withWmClass(QStringLiteral("same")).size(), 2U);
    EXPECT_EQ(index.withWmClass(QStringLiteral("same")).front()->path, second.path);
}

TEST_F(DesktopEntriesTest, AnEntryOutsideTheFoldersIsReadAgainBeforeAStart) {
    int argc = 0;
    QCoreApplication application(argc, nullptr);
    platform::QtScheduler scheduler;
    platform::QtExecutor executor(scheduler);
    DesktopEntries entries(scheduler, executor);
    const QString path = file("own.desktop");
    write(path, named("Own"));
    ASSERT_NE(entries.entry(path), nullptr);
    const auto generation = entries.generation();
    entries.refresh(path);
    EXPECT_EQ(entries.generation(), generation) << "nothing has changed";
    write(path, "Name=Renamed\nExec=other\nStartupWMClass=Wm\n");
    entries.refresh(path);
    EXPECT_NE(entries.generation(), generation);
    ASSERT_NE(entries.entry(path), nullptr);
    EXPECT_EQ(entries.entry(path)->name, QStringLiteral("Renamed"));
    EXPECT_EQ(entries.index().withWmClass(QStringLiteral("wm")).size(), 1U);
    ASSERT_TRUE(QFile::remove(path));
    entries.refresh(path);
    EXPECT_EQ(entries.entry(path), nullptr);
    EXPECT_TRUE(entries.index().withWmClass(QStringLiteral("wm")).empty());
}

TEST_F(DesktopEntriesTest, FollowsFoldersThatAppearAndFilesThatChange) {
    int argc = 0;
    QCoreApplication application(argc, nullptr);
    platform::QtScheduler scheduler;
    int changes = 0;
    FolderWatch watch([&] { ++changes; });
    const auto changed = [&](int before) {
        const platform::Instant deadline = scheduler.now() + 5s;
        const auto wake = scheduler.every(1ms, "condition", [] {});
        while (changes == before && scheduler.now() < deadline)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        return changes > before;
    };
    const QStringList folders{file("share/applications")};
    watch.watch(folders);
    write(file("unrelated/x"), "");
    write(file("share/applications/a.desktop"), named("A"));
    ASSERT_TRUE(changed(0)) << "the folder appeared";
    watch.watch(folders);
    int before = changes;
    write(file("share/applications/a.desktop"), named("B"));
    ASSERT_TRUE(changed(before)) << "rewritten in place";
    before = changes;
    ASSERT_TRUE(QFile::remove(file("share/applications/a.desktop")));
    EXPECT_TRUE(changed(before)) << "removed";
}

} // namespace
} // namespace skipnest::linuxdesktop
