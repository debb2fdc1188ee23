// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/PosixFiles.h"

#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <csignal>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace skipnest::linuxdesktop {
namespace {

using platform::Failure;
using platform::FileKind;

constexpr std::int64_t noLimit = 1 << 30;

// A full disk: writes beyond this size are short, the next one fails with EFBIG.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) {
        previousHandler_ = std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &previous_);
        const rlimit limit{bytes, previous_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() {
        ::setrlimit(RLIMIT_FSIZE, &previous_);
        std::signal(SIGXFSZ, previousHandler_);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    rlimit previous_{};
    void (*previousHandler_)(int) = SIG_DFL;
};

class PosixFilesTest : public testing::Test {
protected:
    QString path(const char* name) const { return folder_.filePath(QString::fromUtf8(name)); }
    static mode_t mode(const QString& path) {
        struct stat status {};
        ::lstat(QFile::encodeName(path).constData(), &status);
        return status.st_mode & 07777;
    }
    QStringList entries() { return files_.list(folder_.path()).value(); }

    QTemporaryDir folder_;
    PosixFiles files_;
};

TEST_F(PosixFilesTest, linkToSettingsElsewhereStaysALink) {
    ASSERT_TRUE(files_.createFolder(path("dotfiles")));
    ASSERT_TRUE(files_.write(path("dotfiles/config.json"), "old"));
    ASSERT_TRUE(QFile::link(path("dotfiles/config.json"), path("config.json")));
    ASSERT_TRUE(platform::writeDurably(files_, path("config.json"), "new"));
    EXPECT_EQ(files_.read(path("dotfiles/config.json"), noLimit).value(), "new");
    EXPECT_EQ(QFile::symLinkTarget(path("config.json")), path("dotfiles/config.json"));
    EXPECT_EQ(entries(), QStringList({QStringLiteral("config.json"), QStringLiteral("dotfiles")}));
}

TEST_F(PosixFilesTest, whatIsNoRegularFileIsRefusedAtOnce) {
    ASSERT_EQ(::mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
    ASSERT_TRUE(files_.createFolder(path("folder")));
    for (const char* name : {"pipe", "folder"}) {
        const auto read = files_.read(path(name), noLimit);
        ASSERT_FALSE(read) << name;
        EXPECT_EQ(read.failure().kind, Failure::Kind::refused);
        EXPECT_TRUE(read.failure().detail.contains(path(name)));
    }
    EXPECT_EQ(files_.kind(path("pipe")), FileKind::other);
    EXPECT_FALSE(files_.write(path("folder"), "x"));
    EXPECT_EQ(files_.kind(path("folder")), FileKind::folder);
}

TEST_F(PosixFilesTest, theLimitIsTheLargestSizeThatIsRead) {
    ASSERT_TRUE(files_.write(path("file"), "12345"));
    EXPECT_EQ(files_.read(path("file"), 5).value(), "12345");
    EXPECT_EQ(files_.read(path("file"), 4).failure().kind, Failure::Kind::tooLarge);
}

// Files of /proc have size 0 by stat: only the reading tells.
TEST_F(PosixFilesTest, theLimitHoldsWhereTheSizeIsNotTold) {
    const QString maps = QStringLiteral("/proc/self/maps");
    EXPECT_GT(files_.read(maps, noLimit).value().size(), 100);
    EXPECT_EQ(files_.read(maps, 100).failure().kind, Failure::Kind::tooLarge);
}

TEST_F(PosixFilesTest, newFilesAndFoldersAreForTheUserOnly) {
    const mode_t previous = ::umask(0);
    ASSERT_TRUE(files_.createFolder(path("a/b/c")));
    ASSERT_TRUE(files_.write(path("a/file"), "secret"));
    ::umask(previous);
    EXPECT_EQ(mode(path("a")), 0700U);
    EXPECT_EQ(mode(path("a/b/c")), 0700U);
    EXPECT_EQ(mode(path("a/file")), 0600U);
    EXPECT_TRUE(files_.createFolder(path("a/b/c")));
    EXPECT_FALSE(files_.createFolder(path("a/file/below")));
}

TEST_F(PosixFilesTest, aReplacedFileIsAnewOneAndNotWrittenThroughALink) {
    ASSERT_TRUE(files_.write(path("elsewhere"), "theirs"));
    ::chmod(QFile::encodeName(path("elsewhere")).constData(), 0644);
    ASSERT_TRUE(QFile::link(path("elsewhere"), path("link")));
    ASSERT_TRUE(files_.write(path("link"), "ours"));
    ASSERT_TRUE(files_.write(path("elsewhere"), "theirs"));
    EXPECT_EQ(files_.read(path("link"), noLimit).value(), "ours");
    EXPECT_EQ(mode(path("link")), 0600U);
    EXPECT_EQ(mode(path("elsewhere")), 0600U);
}

TEST_F(PosixFilesTest, aFullDiskKeepsTheOldFileAndLeavesNothingBehind) {
    ASSERT_TRUE(platform::writeDurably(files_, path("config"), "old"));
    {
        const FileSizeLimit full(4096);
        const auto written =
            platform::writeDurably(files_, path("config"), QByteArray(100'000, 'x'));
        ASSERT_FALSE(written);
        EXPECT_FALSE(files_.write(path("direct"), QByteArray(100'000, 'x')));
        EXPECT_TRUE(written.failure().detail.contains(QStringLiteral("File too large")))
            << written.failure().detail.toStdString();
    }
    EXPECT_EQ(files_.read(path("config"), noLimit).value(), "old");
    EXPECT_EQ(entries(), QStringList{QStringLiteral("config")});
    EXPECT_TRUE(platform::writeDurably(files_, path("config"), "new"));
    EXPECT_EQ(files_.read(path("config"), noLimit).value(), "new");
}

TEST_F(PosixFilesTest, failuresTellWhatHappenedToWhat) {
    const auto missing = files_.read(path("none"), noLimit);
    EXPECT_EQ(missing.failure(),
              (Failure{Failure::Kind::notFound,
                       QStringLiteral("open %1: No such file or directory").arg(path("none"))}));
    EXPECT_EQ(files_.rename(path("none"), path("other")).failure().kind, Failure::Kind::notFound);
    EXPECT_EQ(files_.list(path("none")).failure().kind, Failure::Kind::notFound);
    EXPECT_EQ(files_.flushFolder(path("none")).failure().kind, Failure::Kind::notFound);

    ASSERT_TRUE(files_.write(path("closed"), "x"));
    ::chmod(QFile::encodeName(path("closed")).constData(), 0);
    if (::geteuid() != 0) { // root reads everything
        EXPECT_EQ(files_.read(path("closed"), noLimit).failure().kind, Failure::Kind::refused);
    }
}

TEST_F(PosixFilesTest, namesBeyondAsciiAreListedSorted) {
    for (const char* name : {"zwei", "Übung", "日本", ".hidden", "a b"})
        ASSERT_TRUE(files_.write(path(name), ""));
    EXPECT_EQ(entries(),
              (QStringList{QStringLiteral(".hidden"), QStringLiteral("a b"), QStringLiteral("zwei"),
                           QStringLiteral("Übung"), QStringLiteral("日本")}));
}

} // namespace
} // namespace skipnest::linuxdesktop
