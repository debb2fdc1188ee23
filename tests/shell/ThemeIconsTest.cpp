// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/shell/ThemeIcons.h"
#include "platform/QtExecutor.h"
#include "platform/QtScheduler.h"

#include <QDir>
#include <QFile>

#include <gmock/gmock.h>

namespace skipnest::tests {
namespace {

class ThemeIconsTest : public testing::Test {
protected:
    [[nodiscard]] QString draw(const QString& file, QSize size, Qt::GlobalColor color) const {
        const QString path = home + u'/' + file;
        QDir().mkpath(path.left(path.lastIndexOf(u'/')));
        QImage image(size, QImage::Format_ARGB32);
        image.fill(color);
        EXPECT_TRUE(image.save(path));
        return path;
    }
    [[nodiscard]] QString application(const char* icon) const {
        const QString path =
            home + QStringLiteral("/applications/%1.desktop").arg(qHash(QByteArray(icon)));
        QDir().mkpath(home + QStringLiteral("/applications"));
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray("[Desktop Entry]\nType=Application\nName=x\nExec=true\nIcon=") +
                   icon + '\n');
        return path;
    }

    const QString home = QFile::decodeName(qgetenv("XDG_DATA_HOME"));
    platform::QtScheduler scheduler;
    platform::QtExecutor executor{scheduler};
};

TEST_F(ThemeIconsTest, FindsApplicationsIconsWithoutADesktopTheme) {
    (void)draw(QStringLiteral("icons/hicolor/48x48/apps/themed.png"), {48, 48}, Qt::red);
    (void)draw(QStringLiteral("pixmaps/loose1.png"), {64, 64}, Qt::green);
    const QByteArray absolute =
        QFile::encodeName(draw(QStringLiteral("far away/wide.png"), {80, 40}, Qt::blue));
    const QString missing = application("absent");
    linuxdesktop::DesktopEntries entries(scheduler, executor);
    linuxdesktop::ThemeIcons icons(entries);
    struct Row {
        QString path;
        Qt::GlobalColor color;
        bool wide;
    };
    for (const Row& row : {Row{application("themed"), Qt::red, false},
                           Row{application("loose1.png"), Qt::green, false},
                           Row{application(absolute.constData()), Qt::blue, true}}) {
        for (int asked = 0; asked < 2; ++asked) {
            QImage image;
            ASSERT_TRUE(icons.icon(row.path, 32, image)) << row.path.toStdString();
            EXPECT_EQ(image.size(), QSize(32, 32));
            EXPECT_EQ(image.pixelColor(16, 16), QColor(row.color)) << row.path.toStdString();
            EXPECT_EQ(image.pixelColor(16, 3).alpha() == 0, row.wide) << "aspect kept";
        }
    }
    QImage untouched(1, 1, QImage::Format_ARGB32);
    untouched.fill(Qt::yellow);
    EXPECT_FALSE(icons.icon(missing, 32, untouched));
    EXPECT_EQ(untouched.size(), QSize(1, 1));
}

} // namespace
} // namespace skipnest::tests
