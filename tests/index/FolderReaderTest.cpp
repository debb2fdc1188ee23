// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/index/FolderReader.h"
#include "platform/linux/index/IndexFolders.h"
#include "platform/linux/index/Titles.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace skipnest::linuxdesktop {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using Kind = NameTableBuilder::Kind;

struct NameRow {
    const char* name;
    bool isListed;
};

class FolderReaderTest : public testing::Test {
protected:
    QString file(const char* name) const { return folder.filePath(QString::fromUtf8(name)); }
    void write(const char* name, const QByteArray& bytes = {}) {
        ASSERT_TRUE(QDir().mkpath(QFileInfo(file(name)).path()));
        QFile made(file(name));
        ASSERT_TRUE(made.open(QIODevice::WriteOnly));
        made.write(bytes);
    }
    std::vector<std::string> listed(std::set<std::string> leftOut = {}, const char* below = "") {
        std::vector<std::string> names;
        FolderReader reader(std::move(leftOut));
        if (const auto contents = reader.read(file(below).toStdString())) {
            for (const FolderEntry& entry : contents->entries)
                names.push_back(entry.name + (entry.isEntered              ? "/"
                                              : entry.kind == Kind::folder ? "/ not entered"
                                                                           : ""));
        }
        std::ranges::sort(names);
        return names;
    }

    QTemporaryDir folder;
};

TEST_F(FolderReaderTest, ListsWhatPeopleOpen) {
    constexpr NameRow rows[] = {
        {"report.pdf", true},     {"photo.JPG", true},      {"song.flac", true},
        {"main.cpp", true},       {"all.tar.gz", true},     {"font.ttf", true},
        {"README", true},         {"Angebot Nr. 12", true}, {"a\nb.txt", true},
        {"\u202Egnp.txt", true},  {"🎉.png", true},          {"main.o", false},
        {"lib.so", false},        {"x.pyc", false},         {"draft.txt~", false},
        {".hidden.pdf", false},   {"run.desktop", false},   {"X.class", false},
        {"half.pdf.part", false}, {"\xff\xfe.pdf", false},
    };
    std::vector<std::string> expected;
    for (const NameRow& row : rows) {
        const int made = ::open((folder.path().toStdString() + '/' + row.name).c_str(),
                                O_CREAT | O_WRONLY | O_CLOEXEC, 0600);
        ASSERT_GE(made, 0) << row.name;
        ::close(made);
        if (row.isListed)
            expected.emplace_back(row.name);
    }
    write("program");
    ASSERT_EQ(::chmod(file("program").toStdString().c_str(), 0700), 0);
    ASSERT_EQ(::mkfifo(file("pipe.txt").toStdString().c_str(), 0600), 0);
    std::ranges::sort(expected);
    EXPECT_EQ(listed(), expected);
    // Qt cannot name it, and so not remove it with the folder.
    EXPECT_EQ(::unlink((folder.path().toStdString() + "/\xff\xfe.pdf").c_str()), 0);
}

TEST_F(FolderReaderTest, LinksAreListedAsWhatTheyLeadToAndNotEntered) {
    write("real/inner.txt");
    for (const auto& [target, name] : {std::pair{".", "loop"},
                                       {"real", "also real"},
                                       {"real/inner.txt", "note.txt"},
                                       {"nowhere", "broken.txt"},
                                       {"itself.txt", "itself.txt"}})
        ASSERT_EQ(::symlink(target, file(name).toStdString().c_str()), 0);
    EXPECT_THAT(listed(),
                ElementsAre("also real/ not entered", "loop/ not entered", "note.txt", "real/"));
}

TEST_F(FolderReaderTest, CachesAndWhatIsLeftOutAreNotEntered) {
    write("project/node_modules/x.js");
    write("project/.git/HEAD");
    write("project/target/CACHEDIR.TAG");
    write("project/target/made.txt");
    write("elsewhere/x.txt");
    EXPECT_THAT(listed({file("elsewhere").toStdString()}),
                ElementsAre("elsewhere/ not entered", "project/"));
    EXPECT_THAT(listed({}, "project"), ElementsAre("target/"));
    EXPECT_THAT(listed({}, "project/target"), IsEmpty());
}

TEST_F(FolderReaderTest, WhatCannotBeReadIsNothing) {
    FolderReader reader({});
    EXPECT_FALSE(reader.read(file("none").toStdString()));
    write("plain.txt");
    EXPECT_FALSE(reader.read(file("plain.txt").toStdString()));
    ASSERT_TRUE(QDir().mkpath(file("closed")));
    ASSERT_EQ(::chmod(file("closed").toStdString().c_str(), 0), 0);
    if (::geteuid() != 0) {
        EXPECT_FALSE(reader.read(file("closed").toStdString()));
    }
    ASSERT_EQ(::chmod(file("closed").toStdString().c_str(), 0700), 0);
}

TEST_F(FolderReaderTest, ApplicationsHaveTheirNamesInBothLanguages) {
    write("a/settings.desktop", "[Desktop Entry]\nType=Application\nName=Settings\nName[de]="
                                "Einstellungen\nExec=true\n");
    write("a/quiet.desktop", "[Desktop Entry]\nType=Application\nName=Quiet\nNoDisplay=true\n"
                             "Exec=true\n");
    write("a/gone.desktop",
          "[Desktop Entry]\nType=Application\nName=Gone\nHidden=true\nExec=true\n");
    write("b/gone.desktop", "[Desktop Entry]\nType=Application\nName=Gone\nExec=true\n");
    qputenv("LANGUAGE", "de");
    const auto titles = applicationTitles({file("a"), file("b")});
    qunsetenv("LANGUAGE");
    ASSERT_EQ(titles.size(), 1U);
    EXPECT_EQ(titles[0].item.displayName, QStringLiteral("Einstellungen"));
    EXPECT_THAT(titles[0].folded, ElementsAre("einstellungen", "settings"));
}

TEST_F(FolderReaderTest, DrivesAreDisksBelowTheirFoldersAndForeignMountsAreKnown) {
    write("mounts", "22 1 8:1 / / rw - ext4 /dev/sda1 rw\n"
                    "23 22 0:5 / /proc rw - proc proc rw\n"
                    "40 22 8:17 / /media/anna/My\\040Stick rw,nosuid shared:3 - vfat /dev/sdb1 rw\n"
                    "41 22 0:44 / /media/anna/share rw - cifs //server/share rw\n"
                    "42 22 0:45 / /home/anna/remote rw - fuse.sshfs server: rw\n"
                    "43 22 8:18 / /mediatheque rw - ext4 /dev/sdb2 rw\n"
                    "broken line\n\n - \n44 22 8:19 / /media/anna/\\9z rw - ext4 x rw\n");
    const auto mounted = MountedFolders::read(file("mounts"), {QStringLiteral("/media")});
    EXPECT_THAT(mounted.drives, ElementsAre(QStringLiteral("/media/anna/My Stick"),
                                            QStringLiteral("/media/anna/\\9z")));
    EXPECT_THAT(mounted.foreign, Contains(QStringLiteral("/media/anna/share")));
    EXPECT_THAT(mounted.foreign, Contains(QStringLiteral("/home/anna/remote")));
}

} // namespace
} // namespace skipnest::linuxdesktop
