// SPDX-License-Identifier: Apache-2.0
#include "platform/DebugLogFile.h"

#include "platform/sim/VirtualScheduler.h"
#include "platform/sim/VirtualWallClock.h"

#include <QFileInfo>
#include <QTemporaryDir>

#include <gmock/gmock.h>

namespace skipnest::platform {
namespace {

using testing::ElementsAre;

class DebugLogFileTest : public testing::Test {
protected:
    std::vector<std::string> lines(const char* name = "Skipnest-debug.log") const {
        QFile file(folder + u'/' + QString::fromLatin1(name));
        std::vector<std::string> all;
        if (!file.open(QFile::ReadOnly))
            return all;
        for (const QByteArray& line : file.readAll().split('\n'))
            all.push_back(line.toStdString());
        EXPECT_EQ(all.back(), ""); // every entry ends its line
        all.pop_back();
        return all;
    }

    QTemporaryDir root;
    QString folder = root.filePath(QStringLiteral("state/Skipnest"));
    sim::VirtualScheduler scheduler;
    sim::VirtualWallClock clock{scheduler};
};

TEST_F(DebugLogFileTest, oneEntryIsOneLineWithLocalTimeForTheUserOnly) {
    clock.setZone(QTimeZone("Europe/Berlin"));
    DebugLogFile log(folder, scheduler, clock);
    log.log(QStringLiteral("open 'Größe\n2026-01-01 forged\x1b[31m\u0085'"));
    log.log(QStringLiteral("second"));
    EXPECT_FALSE(QFileInfo::exists(folder)); // nothing is written while the event is at hand
    scheduler.runPosted();
    EXPECT_THAT(lines(), ElementsAre("2026-01-01T01:00:00.000 open "
                                     "'Größe\\n2026-01-01 forged\\u001b[31m\\u0085'",
                                     "2026-01-01T01:00:00.000 second"));
    EXPECT_EQ(QFile::permissions(folder) & ~(QFile::ReadUser | QFile::WriteUser | QFile::ExeUser),
              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    EXPECT_EQ(QFile::permissions(folder + QStringLiteral("/Skipnest-debug.log")) &
                  (QFile::ReadGroup | QFile::ReadOther),
              QFile::Permissions());
}

TEST_F(DebugLogFileTest, rotatesAtFiveMegabytesAndKeepsOneOldFile) {
    DebugLogFile log(folder, scheduler, clock);
    const QString megabyte(1'000'000, u'x');
    for (int i = 0; i < 14; ++i) {
        log.log(QString::number(i) + megabyte);
        scheduler.runPosted();
    }
    // Four entries fill a file; two of fourteen are left for the fourth.
    EXPECT_EQ(lines().size(), 2u);
    EXPECT_EQ(lines("Skipnest-debug.log.old").size(), 4u);
    EXPECT_LE(QFileInfo(folder + QStringLiteral("/Skipnest-debug.log")).size(), 5'000'000);
}

TEST_F(DebugLogFileTest, whatWasGatheredIsWrittenAtTheEndAndAnUnwritableLogIsSilent) {
    {
        DebugLogFile log(folder, scheduler, clock);
        log.log(QStringLiteral("last words"));
    }
    EXPECT_EQ(lines().size(), 1u);
    scheduler.runPosted(); // the posted write finds nobody

    QFile blocker(root.filePath(QStringLiteral("file")));
    ASSERT_TRUE(blocker.open(QFile::WriteOnly));
    DebugLogFile nowhere(blocker.fileName(), scheduler, clock);
    nowhere.log(QStringLiteral("lost"));
    scheduler.runPosted();
}

} // namespace
} // namespace skipnest::platform
