// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/LinuxInstalledApplications.h"

#include "platform/QtExecutor.h"
#include "platform/QtScheduler.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>

namespace skipnest::linuxdesktop {
namespace {

class InstalledApplicationsTest : public testing::Test {
protected:
    // Written, and known to the index as if it lay in a folder of applications.
    void install(const char* name, const QByteArray& keys) {
        const QString path = folder.filePath(QString::fromLatin1(name));
        ASSERT_TRUE(QDir().mkpath(path.left(path.lastIndexOf(u'/'))));
        QFile file(path);
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write("[Desktop Entry]\nType=Application\nExec=true\n" + keys);
        file.close();
        (void)entries.entry(path);
    }
    std::vector<std::string> listed() {
        std::vector<std::string> lines;
        for (const platform::InstalledApplication& app : installed.list())
            lines.push_back(
                (app.path.mid(folder.path().size() + 1) + u' ' + app.name).toStdString());
        return lines;
    }

    int argc = 0;
    QCoreApplication application{argc, nullptr};
    QTemporaryDir folder;
    platform::QtScheduler scheduler;
    platform::QtExecutor executor{scheduler};
    DesktopEntries entries{scheduler, executor};
    LinuxInstalledApplications installed{
        entries, {folder.filePath(QStringLiteral("near")), folder.filePath(QStringLiteral("far"))}};
};

TEST_F(InstalledApplicationsTest, AreWhatMenusShowTheNearerEntryOfEachId) {
    install("near/a.desktop", "Name=Near\n");
    install("far/a.desktop", "Name=Far\n");
    install("far/vendor/deep.desktop", "Name=Deep\n");
    install("far/nameless.desktop", "");
    install("near/helper.desktop", "Name=Helper\nNoDisplay=true\n");
    install("far/helper.desktop", "Name=Shown\n");
    install("near/gone.desktop", "Name=Gone\nHidden=true\n");
    install("far/gone.desktop", "Name=Gone\n");
    EXPECT_THAT(listed(),
                testing::ElementsAre("far/vendor/deep.desktop Deep", "near/a.desktop Near"));
    install("near/new.desktop", "Name=New\n");
    EXPECT_THAT(listed(), testing::Contains("near/new.desktop New"));
}

} // namespace
} // namespace skipnest::linuxdesktop
