// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/shell/FileManagerMenu.h"
#include "platform/linux/PosixFiles.h"
#include "tests/shell/Programs.h"

#include <QProcess>

namespace skipnest::tests {
namespace {

using linuxdesktop::FileManagerMenu;
using platform::Availability;

class FileManagerMenuTest : public InstalledHome {
protected:
    void SetUp() override {
        path_ = qgetenv("PATH");
        qputenv("PATH", QFile::encodeName(programs));
        qputenv("LC_ALL", "C");
    }
    void TearDown() override { qputenv("PATH", path_); }

    linuxdesktop::PosixFiles files;
    const QString programs = place.path() + QStringLiteral("/programs");
    const QString thunar = data + QStringLiteral("/Thunar/sendto/skipnest-give-key.desktop");
    const QString dolphin = data + QStringLiteral("/kio/servicemenus/skipnest-give-key.desktop");
    const QString nautilus = data + QStringLiteral("/nautilus/scripts/Give it a key");

private:
    QByteArray path_;
};

TEST_F(FileManagerMenuTest, WritesForInstalledOnesAndFollowsTheProgram) {
    FileManagerMenu before(files, install(QStringLiteral("old place")), data, config);
    EXPECT_EQ(before.availability().state, Availability::State::unavailable);
    put(programs + QStringLiteral("/thunar"), "");
    put(programs + QStringLiteral("/nautilus"), "");
    EXPECT_EQ(before.availability().state, Availability::State::available);
    ASSERT_TRUE(before.refresh());
    EXPECT_TRUE(contents(thunar).contains("old place"));
    EXPECT_FALSE(QFile::exists(dolphin));

    FileManagerMenu after(files, install(QStringLiteral("new 'place'")), data, config);
    put(programs + QStringLiteral("/dolphin"), "");
    ASSERT_TRUE(after.refresh());
    EXPECT_TRUE(contents(thunar).contains("new 'place'"));
    EXPECT_TRUE(QFile::permissions(dolphin).testFlag(QFile::ExeOwner)) << "or Dolphin ignores it";

    TearDown();
    QProcess script;
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("NAUTILUS_SCRIPT_SELECTED_FILE_PATHS"),
                       QStringLiteral("/a/it's \"$HOME\" ü.txt\n/second\n"));
    script.setProcessEnvironment(environment);
    script.start(nautilus, QStringList());
    ASSERT_TRUE(script.waitForFinished());
    EXPECT_EQ(started(), "run\n--add\n/a/it's \"$HOME\" ü.txt\n");
}

TEST_F(FileManagerMenuTest, LeavesForeignFilesAlone) {
    put(programs + QStringLiteral("/thunar"), "");
    FileManagerMenu menu(files, install(QStringLiteral("usr")), data, config);
    put(thunar, "[Desktop Entry]\nName=Mine\n");
    ASSERT_TRUE(menu.refresh());
    EXPECT_EQ(contents(thunar), "[Desktop Entry]\nName=Mine\n");
}

} // namespace
} // namespace skipnest::tests
