// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/index/LinuxFileIndex.h"

#include "platform/QtExecutor.h"
#include "platform/QtScheduler.h"
#include "platform/linux/index/IndexCache.h"
#include "platform/linux/index/IndexWatch.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <sys/resource.h>

namespace skipnest::linuxdesktop {
namespace {

using namespace std::chrono_literals;
using platform::FileQuery;
using platform::IndexedFile;
using testing::ElementsAre;
using testing::IsEmpty;

class FileIndexTest : public testing::Test {
protected:
    FileIndexTest() {
        folders.home = place("home");
        folders.userFolders = {{place("home/Dokumente"), {QStringLiteral("Documents")}}};
        folders.applications = {place("share/applications")};
        folders.driveFolders = {};
        folders.cacheFile = place("cache/names");
        write("home/Dokumente/Bericht.pdf");
        write("home/Projekte/alt/Skizze.svg");
        write("share/applications/editor.desktop",
              "[Desktop Entry]\nType=Application\nName=Editor\nExec=true\n");
    }

    QString place(const char* name) const { return folder.filePath(QString::fromUtf8(name)); }
    void write(const char* name, const QByteArray& bytes = {}) {
        ASSERT_TRUE(QDir().mkpath(QFileInfo(place(name)).path()));
        QFile made(place(name));
        ASSERT_TRUE(made.open(QIODevice::WriteOnly));
        made.write(bytes);
    }

    bool eventually(const std::function<bool()>& condition, platform::Duration limit = 10s) {
        const platform::Instant deadline = scheduler.now() + limit;
        const auto wake = scheduler.every(5ms, "condition", [] {});
        while (!condition() && scheduler.now() < deadline)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        return condition();
    }

    void start() {
        index = std::make_unique<LinuxFileIndex>(scheduler, executor, entries, folders);
        index->start();
        ASSERT_TRUE(eventually([&] { return !index->state().isBuilding; }));
    }

    std::vector<std::string> found(const char* text) {
        std::optional<std::vector<std::string>> paths;
        const auto search = index->search({QString::fromUtf8(text)}, [&](const auto& files) {
            paths.emplace();
            for (const IndexedFile& file : files)
                paths->push_back(file.path.mid(folder.path().size() + 1).toStdString());
        });
        EXPECT_FALSE(paths) << "answered inside the call";
        EXPECT_TRUE(eventually([&] { return paths.has_value(); }));
        return paths.value_or(std::vector<std::string>());
    }
    bool becomes(const char* text, const std::vector<std::string>& expected) {
        return eventually([&] { return found(text) == expected; });
    }

    QTemporaryDir folder;
    platform::QtScheduler scheduler;
    platform::QtExecutor executor{scheduler};
    DesktopEntries entries{scheduler, executor};
    IndexFolders folders;
    std::unique_ptr<LinuxFileIndex> index;
};

TEST_F(FileIndexTest, IsEmptyUntilItIsStarted) {
    index = std::make_unique<LinuxFileIndex>(scheduler, executor, entries, folders);
    EXPECT_THAT(found("bericht"), IsEmpty());
    EXPECT_FALSE(QFile::exists(place("cache")));
    index->start();
    ASSERT_TRUE(eventually([&] { return !index->state().isBuilding; }));
    EXPECT_THAT(found("bericht"), ElementsAre("home/Dokumente/Bericht.pdf"));
    EXPECT_THAT(found("editor"), ElementsAre("share/applications/editor.desktop"));
    EXPECT_THAT(found("documents"), ElementsAre("home/Dokumente"));
    EXPECT_EQ(index->availability(), platform::Availability());
}

TEST_F(FileIndexTest, FollowsWhatHappensInTheFolders) {
    start();
    write("home/Dokumente/Neue Übersicht.odt");
    EXPECT_TRUE(becomes("ubersicht", {"home/Dokumente/Neue Übersicht.odt"}));
    ASSERT_TRUE(QFile::rename(place("home/Dokumente/Neue Übersicht.odt"), place("home/Plan.odt")));
    EXPECT_TRUE(becomes("plan.odt", {"home/Plan.odt"}));
    EXPECT_THAT(found("ubersicht"), IsEmpty());
    ASSERT_TRUE(QFile::remove(place("home/Plan.odt")));
    EXPECT_TRUE(becomes("plan.odt", {}));
    // A renamed folder takes its contents along, and goes on being watched under its new name.
    ASSERT_TRUE(QDir().rename(place("home/Projekte"), place("home/Archiv")));
    EXPECT_TRUE(becomes("skizze", {"home/Archiv/alt/Skizze.svg"}));
    write("home/Archiv/alt/Entwurf.svg");
    EXPECT_TRUE(becomes("entwurf", {"home/Archiv/alt/Entwurf.svg"}));
    ASSERT_TRUE(QDir(place("home/Archiv")).removeRecursively());
    EXPECT_TRUE(becomes("skizze", {}));
    EXPECT_THAT(found("entwurf"), IsEmpty());
    // And one made again is found again.
    write("home/Archiv/alt/Skizze.svg");
    EXPECT_TRUE(becomes("skizze", {"home/Archiv/alt/Skizze.svg"}));
}

TEST_F(FileIndexTest, AFolderReplacedInOneGoIsReadAndWatchedAfresh) {
    start();
    ASSERT_TRUE(QDir(place("home/Projekte")).removeRecursively());
    write("home/Projekte/alt/Nachfolger.svg");
    EXPECT_TRUE(becomes("nachfolger", {"home/Projekte/alt/Nachfolger.svg"}));
    EXPECT_THAT(found("skizze"), IsEmpty());
    write("home/Projekte/alt/Danach.svg");
    EXPECT_TRUE(becomes("danach", {"home/Projekte/alt/Danach.svg"}));
}

TEST_F(FileIndexTest, WithoutAHomeItIsDoneAndHasTheApplications) {
    folders.home = place("missing");
    folders.userFolders.clear();
    start();
    EXPECT_THAT(found("editor"), ElementsAre("share/applications/editor.desktop"));
}

TEST_F(FileIndexTest, AStartFromTheCacheKnowsWhatChangedMeanwhile) {
    start();
    index.reset();
    write("home/Dokumente/Danach.pdf");
    ASSERT_TRUE(QFile::remove(place("home/Projekte/alt/Skizze.svg")));
    // Only the cache can tell this one: its folder has not changed.
    const auto cached = loadNames(folders.cacheFile);
    ASSERT_TRUE(cached);
    EXPECT_GT(cached->size(), 3U);
    start();
    EXPECT_THAT(found("bericht"), ElementsAre("home/Dokumente/Bericht.pdf"));
    EXPECT_TRUE(becomes("danach", {"home/Dokumente/Danach.pdf"}));
    EXPECT_TRUE(becomes("skizze", {}));
}

TEST_F(FileIndexTest, ACacheOfOtherFoldersIsNotUsed) {
    start();
    index.reset();
    write("other/Fremd.pdf");
    folders.home = place("other");
    folders.userFolders.clear();
    start();
    EXPECT_THAT(found("bericht"), IsEmpty());
    EXPECT_THAT(found("fremd"), ElementsAre("other/Fremd.pdf"));
}

TEST_F(FileIndexTest, WhereNothingIsWatchedTheRescanFindsIt) {
    folders.mostWatched = 0;
    folders.rescanPeriod = 200ms;
    start();
    write("home/Dokumente/Später.pdf");
    EXPECT_TRUE(becomes("spater", {"home/Dokumente/Später.pdf"}));
}

TEST(IndexWatchTest, SaysThatTheKernelRefusesToWatch) {
    EXPECT_FALSE(IndexWatch(10).wasRefused());
    // Nothing more may be opened, as where other programs have used up what the user may have.
    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &before), 0);
    const rlimit none{0, before.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &none), 0);
    IndexWatch watch(10);
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &before), 0);
    EXPECT_TRUE(watch.wasRefused());
    watch.watch("/");
    EXPECT_TRUE(watch.take().folders.empty());
}

TEST_F(FileIndexTest, ACacheThatCannotBeWrittenIsSaidAndTheIndexWorks) {
    write("cache"); // a file where the folder should be
    start();
    EXPECT_EQ(index->availability().state, platform::Availability::State::limited);
    EXPECT_TRUE(index->availability().reason.contains(place("cache")));
    EXPECT_THAT(found("bericht"), ElementsAre("home/Dokumente/Bericht.pdf"));
}

TEST_F(FileIndexTest, ADroppedSearchStaysSilent) {
    start();
    bool isTold = false;
    auto search = index->search({QStringLiteral("bericht")}, [&](const auto&) { isTold = true; });
    search.reset();
    EXPECT_THAT(found("bericht"), ElementsAre("home/Dokumente/Bericht.pdf"));
    EXPECT_FALSE(isTold);
}

TEST_F(FileIndexTest, ManyFilesAtOnceAreAllFoundAndAllGoneAgain) {
    start();
    for (int number = 0; number < 2000; ++number)
        write(QStringLiteral("home/viele/%1/blatt%1.txt").arg(number % 100).toUtf8().constData());
    EXPECT_TRUE(eventually([&] { return found("blatt99").size() == 1; }));
    EXPECT_TRUE(eventually([&] { return index->state().items > 200; }));
    ASSERT_TRUE(QDir(place("home/viele")).removeRecursively());
    EXPECT_TRUE(becomes("blatt", {}));
}

} // namespace
} // namespace skipnest::linuxdesktop
