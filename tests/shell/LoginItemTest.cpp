// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/PosixFiles.h"
#include "platform/linux/shell/XdgLoginItem.h"
#include "tests/shell/Programs.h"

#include <QProcess>

namespace skipnest::tests {
namespace {

using linuxdesktop::PosixFiles;
using linuxdesktop::XdgLoginItem;

class LoginItemTest : public InstalledHome {
protected:
    PosixFiles files;
    const QString entry = config + QStringLiteral("/autostart/com.skipnest.Skipnest.desktop");
};

// GIO starts the entry, as a desktop would.
TEST_F(LoginItemTest, StartsTheProgramWhereverItLies) {
    for (const char* folder : {"plain", "with blanks", "quotes\"'", "Grüße", "$HOME `id`",
                               "back\\slash", "semi;colon&more"}) {
        const platform::AppInfo app = install(QString::fromUtf8(folder));
        XdgLoginItem item(files, app, config);
        EXPECT_TRUE(item.registerItem()) << folder;
        EXPECT_TRUE(item.isRegistered()) << folder;
        QProcess::execute(QStringLiteral("gio"), {QStringLiteral("launch"), entry});
        EXPECT_EQ(started(), "--background\n") << folder << contents(entry).toStdString();
    }
    // GIO finds no program with a percent sign; what the entry has to say is known.
    XdgLoginItem item(files, install(QStringLiteral("50%f")), config);
    EXPECT_TRUE(item.registerItem());
    EXPECT_TRUE(item.isRegistered());
    EXPECT_TRUE(contents(entry).contains("/50%%f/bin/skipnest\" \"--background\"\n"));
}

TEST_F(LoginItemTest, IsOffWhenSwitchedOffElsewhereOrMoved) {
    XdgLoginItem item(files, install(QStringLiteral("usr")), config);
    EXPECT_FALSE(item.isRegistered());
    EXPECT_TRUE(item.unregisterItem());
    ASSERT_TRUE(item.registerItem());
    const QByteArray own = contents(entry);
    const QString moved = place.path() + QStringLiteral("/usr");
    QByteArray stale = own;
    stale.replace(QFile::encodeName(moved), QFile::encodeName(moved) + "/gone");
    for (const QByteArray& text :
         {own + "Hidden=true\n", QByteArray(own).replace("enabled=true", "enabled=false"), stale,
          QByteArray("no entry"), QByteArray()}) {
        put(entry, text);
        EXPECT_FALSE(item.isRegistered()) << text.toStdString();
        EXPECT_TRUE(item.registerItem());
        EXPECT_TRUE(item.isRegistered());
        EXPECT_EQ(contents(entry), own);
    }
    // The person's own way of starting it stands for itself.
    put(entry, QByteArray(own).replace("Exec=", "Exec=env A=1 "));
    EXPECT_TRUE(item.isRegistered());
    EXPECT_TRUE(item.unregisterItem());
    EXPECT_FALSE(QFile::exists(entry));
}

} // namespace
} // namespace skipnest::tests
