// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/crash/LinuxCrashCapture.h"
#include "services/CrashRecord.h"

#include <QFile>
#include <QStringList>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <optional>
#include <ostream>
#include <vector>

#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace skipnest::linuxdesktop {
namespace {

using namespace Qt::StringLiterals;
using services::CrashRecord;

QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

class CrashCaptureTest : public testing::Test {
protected:
    // The wait status of a run of the victim.
    int run(const QStringList& arguments) {
        std::vector<QByteArray> texts{SKIPNEST_CRASH_VICTIM, QFile::encodeName(record)};
        for (const QString& argument : arguments)
            texts.push_back(argument.toUtf8());
        std::vector<char*> words;
        words.reserve(texts.size() + 1);
        for (QByteArray& text : texts)
            words.push_back(text.data());
        words.push_back(nullptr);

        posix_spawn_file_actions_t files;
        posix_spawn_file_actions_init(&files);
        posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, QFile::encodeName(output).data(),
                                         O_WRONLY | O_CREAT | O_TRUNC, 0600);
        posix_spawn_file_actions_addopen(&files, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
        // A shell starts what it puts behind it with some signals ignored.
        posix_spawnattr_t attributes;
        posix_spawnattr_init(&attributes);
        sigset_t all;
        sigfillset(&all);
        posix_spawnattr_setsigdefault(&attributes, &all);
        posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);
        pid_t pid = 0;
        int status = -1;
        EXPECT_EQ(posix_spawn(&pid, words[0], &files, &attributes, words.data(), environ), 0);
        EXPECT_EQ(waitpid(pid, &status, 0), pid);
        posix_spawn_file_actions_destroy(&files);
        posix_spawnattr_destroy(&attributes);
        return status;
    }

    [[nodiscard]] CrashRecord readRecord() const {
        const auto decoded = services::decodeCrashRecord(contentOf(record));
        EXPECT_TRUE(decoded.ok()) << contentOf(record).constData();
        return decoded.ok() ? *decoded : CrashRecord{};
    }

    // The first frame that is the victim's own; -1 where none is in the function that crashed.
    [[nodiscard]] qsizetype siteFrame(const QString& stack) const {
        const QString prefix = u"crash_victim+0x"_s;
        const QStringList frames = stack.split(u'\n');
        for (qsizetype i = 0; i < frames.size(); ++i) {
            if (!frames[i].startsWith(prefix))
                continue;
            constexpr qulonglong longestFunction = 400;
            const qulonglong site = contentOf(output).split('\n').first().toULongLong(nullptr, 16);
            const qulonglong offset = frames[i].mid(prefix.size()).toULongLong(nullptr, 16);
            return offset >= site && offset < site + longestFunction ? i : -1;
        }
        return -1;
    }

    QTemporaryDir folder;
    const QString record = folder.filePath(u"pending-crash.json"_s);
    const QString output = folder.filePath(u"output"_s);
};

struct Crash {
    const char* way;
    int signal;
    const char* type;
    const char* name;
    const char* reason;
    qsizetype siteFrame; // at most; the frames before it are the system's
    friend std::ostream& operator<<(std::ostream& out, const Crash& crash) {
        return out << crash.way;
    }
};

class CrashWays : public CrashCaptureTest, public testing::WithParamInterface<Crash> {};

TEST_P(CrashWays, leaveARecordAndEndAsTheyWould) {
    const Crash& crash = GetParam();
    const int status = run(QString::fromLatin1(crash.way).split(u' '));
    EXPECT_TRUE(WIFSIGNALED(status)) << status;
    EXPECT_EQ(WTERMSIG(status), crash.signal);
    const CrashRecord left = readRecord();
    EXPECT_EQ(left.type.toStdString(), crash.type);
    EXPECT_EQ(left.name.toStdString(), crash.name);
    EXPECT_EQ(left.reason.toStdString(), crash.reason);
    EXPECT_GE(siteFrame(left.stack), 0)
        << contentOf(output).toStdString() << left.stack.toStdString();
    EXPECT_LE(siteFrame(left.stack), crash.siteFrame) << left.stack.toStdString();
    struct stat entry = {};
    EXPECT_EQ(::stat(QFile::encodeName(record).constData(), &entry), 0);
    EXPECT_EQ(entry.st_mode & 0777U, 0600U);
    EXPECT_FALSE(QFile::exists(record + u".new"_s));
}

INSTANTIATE_TEST_SUITE_P(
    Crashes, CrashWays,
    testing::Values(Crash{"writeNull", SIGSEGV, "signal", "SIGSEGV", "", 0},
                    Crash{"writeNull worker", SIGSEGV, "signal", "SIGSEGV", "", 0},
                    Crash{"callNull", SIGSEGV, "signal", "SIGSEGV", "", 1},
                    Crash{"abort", SIGABRT, "signal", "SIGABRT", "", 4},
                    Crash{"divide", SIGFPE, "signal", "SIGFPE", "", 0},
                    Crash{"illegal", SIGILL, "signal", "SIGILL", "", 0},
                    Crash{"trap", SIGTRAP, "signal", "SIGTRAP", "", 3},
                    Crash{"bus", SIGBUS, "signal", "SIGBUS", "", 0},
                    Crash{"overflow", SIGSEGV, "signal", "SIGSEGV", "", 0},
                    Crash{"overflow worker", SIGSEGV, "signal", "SIGSEGV", "", 0},
                    Crash{"destroyStack", SIGILL, "signal", "SIGILL", "", 0},
                    Crash{"withoutDescriptors", SIGSEGV, "signal", "SIGSEGV", "", 0},
                    Crash{"throwStandard", SIGABRT, "exception", "std::out_of_range",
                          "uncaught std::logic_error", 4},
                    Crash{"throwStandard worker", SIGABRT, "exception", "std::out_of_range",
                          "uncaught std::logic_error", 8},
                    Crash{"throwOwn", SIGABRT, "exception", "(anonymous namespace)::OwnFault",
                          "uncaught exception", 4},
                    Crash{"exhaustMemory", SIGABRT, "exception", "std::bad_alloc",
                          "uncaught std::bad_alloc", 5},
                    Crash{"terminate", SIGABRT, "exception", "std::terminate",
                          "terminated without an exception", 2}));

TEST_F(CrashCaptureTest, ofTwoThreadsOneIsRecorded) {
    const int status = run({u"twoThreads"_s});
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGSEGV) << status;
    EXPECT_EQ(readRecord().name, u"SIGSEGV");
}

TEST_F(CrashCaptureTest, theHandlerThatWasThereBeforeIsCalledOnceAndTheProgramStillEnds) {
    const std::pair<const char*, QByteArrayList> rows[] = {
        {"writeNull", {"previous handler"}},
        {"abort", {"previous handler"}},
        {"throwOwn", {"previous terminate", "previous handler"}},
    };
    for (const auto& [way, lines] : rows) {
        const int status = run({QString::fromLatin1(way), u"handled-before"_s});
        EXPECT_TRUE(WIFSIGNALED(status)) << way << status;
        EXPECT_EQ(contentOf(output).trimmed().split('\n').mid(1), lines) << way;
        EXPECT_GE(siteFrame(readRecord().stack), 0) << way;
    }
}

TEST_F(CrashCaptureTest, anOlderRecordStaysUntilTheNextCrash) {
    QFile older(record);
    ASSERT_TRUE(older.open(QIODevice::WriteOnly));
    older.write("older");
    older.close();
    EXPECT_EQ(run({u"fork"_s}), EXIT_SUCCESS); // whose child crashes: no crash of this program
    EXPECT_EQ(contentOf(record), "older");
    (void)run({u"writeNull"_s});
    EXPECT_EQ(readRecord().name, u"SIGSEGV");
}

TEST_F(CrashCaptureTest, aFolderThatIsNotThereIsRefused) {
    const auto capture = makeCrashCapture();
    EXPECT_FALSE(capture->install(folder.filePath(u"missing/record"_s)).ok());
}

TEST_F(CrashCaptureTest, launchedProgramsBlockAndIgnoreNothing) {
    const QString entry = folder.filePath(u"copy.desktop"_s);
    const QString byEntry = folder.filePath(u"entry"_s);
    const QString byName = folder.filePath(u"program"_s);
    QFile file(entry);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[Desktop Entry]\nType=Application\nName=Copy\nExec=cp /proc/self/status " +
               byEntry.toUtf8() + "\n");
    file.close();
    EXPECT_EQ(run({u"launch"_s, entry, u"exec cp /proc/self/status "_s + byName}), EXIT_SUCCESS);
    for (const QString& state : {byEntry, byName}) {
        // They are nobody's children here.
        for (int i = 0; i < 500 && !contentOf(state).contains("SigIgn"); ++i)
            ::poll(nullptr, 0, 10);
        for (const char* kind : {"SigBlk:\t", "SigIgn:\t"}) {
            const QByteArray all = contentOf(state);
            const qsizetype at = all.indexOf(kind);
            ASSERT_GE(at, 0) << state.toStdString();
            // The C library keeps two of the signals beyond 31 for itself.
            constexpr qulonglong named = 0x7fffffff;
            EXPECT_EQ(all.mid(at + 8, 16).toULongLong(nullptr, 16) & named, 0U)
                << state.toStdString() << kind;
        }
    }
}

} // namespace
} // namespace skipnest::linuxdesktop
