// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/LinuxBookmarks.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace skipnest::linuxdesktop {
namespace {

using platform::Failure;

class LinuxBookmarksTest : public testing::Test {
protected:
    QString path(const char* name) const { return folder_.filePath(QString::fromUtf8(name)); }
    QString make(const char* name) const {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        return file.fileName();
    }
    QString resolved(const QByteArray& bookmark) {
        const auto found = bookmarks_.resolve(bookmark);
        return found ? found.value() : QStringLiteral("(none)");
    }

    QTemporaryDir folder_;
    LinuxBookmarks bookmarks_;
};

TEST_F(LinuxBookmarksTest, aTargetRenamedInItsFolderIsFoundAgain) {
    const QByteArray file = bookmarks_.create(make("Notizen für später.txt")).value();
    ASSERT_TRUE(QDir(folder_.path()).mkdir(QStringLiteral("project")));
    const QByteArray folder = bookmarks_.create(path("project")).value();
    EXPECT_EQ(resolved(file), path("Notizen für später.txt"));
    ASSERT_TRUE(QFile::rename(path("Notizen für später.txt"), path("archive.txt")));
    ASSERT_TRUE(QFile::rename(path("project"), path("project-2")));
    EXPECT_EQ(resolved(file), path("archive.txt"));
    EXPECT_EQ(resolved(folder), path("project-2"));
}

TEST_F(LinuxBookmarksTest, aFileReplacedByItsEditorStaysThePath) {
    const QByteArray bookmark = bookmarks_.create(make("notes")).value();
    make("notes.new");
    ASSERT_EQ(::rename(QFile::encodeName(path("notes.new")), QFile::encodeName(path("notes"))), 0);
    EXPECT_EQ(resolved(bookmark), path("notes"));
}

// ext4 hands the number of a deleted file to the next new one.
TEST_F(LinuxBookmarksTest, anotherFileWithTheOldNumberIsNotTheTarget) {
    const QByteArray bookmark = bookmarks_.create(make("notes")).value();
    make("notes.new");
    ASSERT_EQ(::rename(QFile::encodeName(path("notes.new")), QFile::encodeName(path("notes"))), 0);
    for (int i = 0; i < 64; ++i)
        make(QByteArray("other" + QByteArray::number(i)).constData());
    EXPECT_EQ(resolved(bookmark), path("notes"));
}

TEST_F(LinuxBookmarksTest, aTargetThatMadeRoomForAnotherIsFollowed) {
    const QByteArray bookmark = bookmarks_.create(make("report")).value();
    ASSERT_TRUE(QFile::rename(path("report"), path("report-old")));
    make("report");
    EXPECT_EQ(resolved(bookmark), path("report-old"));
}

TEST_F(LinuxBookmarksTest, whatIsGoneIsNotFound) {
    const QByteArray bookmark = bookmarks_.create(make("notes")).value();
    ASSERT_TRUE(QFile::remove(path("notes")));
    make("unrelated");
    const auto found = bookmarks_.resolve(bookmark);
    ASSERT_FALSE(found) << found.value().toStdString();
    EXPECT_EQ(found.failure().kind, Failure::Kind::notFound);
    EXPECT_EQ(bookmarks_.create(path("notes")).failure().kind, Failure::Kind::notFound);
    EXPECT_EQ(bookmarks_.create(QStringLiteral("notes")).failure().kind, Failure::Kind::malformed);
}

TEST_F(LinuxBookmarksTest, aLinkIsFollowedByItsOwnNameNotByWhatItPointsAt) {
    make("app-1.desktop");
    make("app-2.desktop");
    ASSERT_TRUE(QFile::link(path("app-1.desktop"), path("app.desktop")));
    const QByteArray bookmark = bookmarks_.create(path("app.desktop")).value();
    ASSERT_TRUE(QFile::rename(path("app.desktop"), path("renamed.desktop")));
    EXPECT_EQ(resolved(bookmark), path("renamed.desktop"));
    ASSERT_TRUE(QFile::remove(path("renamed.desktop")));
    EXPECT_EQ(resolved(bookmark), QStringLiteral("(none)"));
    ASSERT_TRUE(QFile::link(path("app-2.desktop"), path("app.desktop")));
    EXPECT_EQ(resolved(bookmark), path("app.desktop"));

    ASSERT_TRUE(QFile::remove(path("app-2.desktop")));
    EXPECT_EQ(resolved(bookmark), QStringLiteral("(none)")) << "a dangling link opens nothing";
    EXPECT_FALSE(bookmarks_.create(path("app.desktop")));
}

TEST_F(LinuxBookmarksTest, deviceNumbersMayChangeBetweenStartsOfTheMachine) {
    QJsonObject bookmark =
        QJsonDocument::fromJson(bookmarks_.create(make("notes")).value()).object();
    if (bookmark[QStringLiteral("birth")].toString() == u"0")
        GTEST_SKIP() << "this file system keeps no birth times";
    bookmark[QStringLiteral("device")] = QStringLiteral("1");
    bookmark[QStringLiteral("headHash")] = QStringLiteral("added by a later version");
    ASSERT_TRUE(QFile::rename(path("notes"), path("renamed")));
    EXPECT_EQ(resolved(QJsonDocument(bookmark).toJson()), path("renamed"));
}

TEST(LinuxBookmarksGarbageTest, otherBytesAreMalformed) {
    LinuxBookmarks bookmarks;
    const QByteArrayList rows{
        "",
        "book\0mark",
        QByteArray(1'000'000, '['),
        "{}",
        "[1]",
        R"({"path":"/tmp"})",
        R"({"path":7,"inode":"1","device":"1"})",
        R"({"path":"relative","inode":"1","device":"1"})",
        R"({"path":"/tmp","inode":1,"device":1})",
        R"({"path":"/tmp","inode":"-1","device":"1"})",
        R"({"path":"/tmp\u0000/x","inode":"1","device":"1"})",
        R"({"path":"/tmp","inode":"99999999999999999999999","device":"1"})",
    };
    for (const QByteArray& row : rows) {
        const auto found = bookmarks.resolve(row);
        ASSERT_FALSE(found) << row.left(60).toStdString();
        EXPECT_EQ(found.failure().kind, Failure::Kind::malformed) << row.left(60).toStdString();
    }
}

} // namespace
} // namespace skipnest::linuxdesktop
