// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/shell/QtStatusItem.h"
#include "tests/shell/Events.h"

#include <QColor>
#include <QGuiApplication>
#include <QImage>
#include <QPixmap>
#include <QProcess>
#include <QScreen>

#include <gmock/gmock.h>

namespace skipnest::tests {
namespace {

using linuxdesktop::QtStatusItem;
using platform::Availability;

class EmbeddingTest : public testing::Test {
protected:
    [[nodiscard]] bool waitFor(const std::function<bool()>& condition) {
        return waitUntil(scheduler, condition);
    }
    void startTray() {
        tray = std::make_unique<QProcess>();
        tray->setStandardErrorFile(QProcess::nullDevice());
        tray->start(QStringLiteral("trayer"),
                    {QStringLiteral("--edge"), QStringLiteral("top"), QStringLiteral("--align"),
                     QStringLiteral("right"), QStringLiteral("--height"), QStringLiteral("26"),
                     QStringLiteral("--widthtype"), QStringLiteral("request")});
    }
    void stopTray() {
        tray->kill();
        tray->waitForFinished();
    }
    // Whether the icon is drawn there, in the colour that is ours alone.
    [[nodiscard]] static bool isDrawn(const QRect& place) {
        const QImage screen =
            QGuiApplication::primaryScreen()
                ->grabWindow(0, place.x(), place.y(), place.width(), place.height())
                .toImage();
        int coloured = 0;
        for (int y = 0; y < screen.height(); ++y)
            for (int x = 0; x < screen.width(); ++x)
                coloured += screen.pixelColor(x, y) == QColor(0xd0, 0x6c, 0x0c);
        return coloured > 20;
    }
    [[nodiscard]] static bool doubleClick(QPoint at) {
        return runTool(QStringLiteral("xdotool mousemove %1 %2 click --repeat 2 --delay 50 1")
                           .arg(at.x())
                           .arg(at.y())
                           .toLatin1()
                           .constData());
    }
    [[nodiscard]] bool comesUp(const QtStatusItem& status) {
        return waitFor([&] {
            const auto place = status.geometry();
            // On its way it hangs over the edge.
            const QRect screen = QGuiApplication::primaryScreen()->geometry();
            return place && screen.contains(*place) && place->x() > 640 && isDrawn(*place);
        });
    }

    platform::QtScheduler scheduler;
    std::unique_ptr<linuxdesktop::X11Display> display = linuxdesktop::X11Display::open(scheduler);
    std::unique_ptr<QProcess> tray;
    Events events;
};

TEST_F(EmbeddingTest, ComesUpWithTheTrayAndAgainWhenItRestarts) {
    QtStatusItem status(scheduler, display.get());
    status.show(QStringLiteral("no such icon"), events);
    ASSERT_TRUE(runTool("xdotool mousemove 10 700"));
    EXPECT_EQ(status.availability().state, Availability::State::unavailable);
    EXPECT_FALSE(status.geometry());
    for (int start = 1; start <= 2; ++start) {
        startTray();
        ASSERT_TRUE(comesUp(status)) << "start " << start;
        EXPECT_EQ(status.availability().state, Availability::State::available);
        // A tray goes on moving its icons for a moment: a click that met nothing is made again
        // where the icon is now.
        QPoint clicked;
        EXPECT_TRUE(waitFor([&] {
            const auto place = status.geometry();
            if (events.clicks == start || !place || place->center() == clicked)
                return events.clicks == start;
            clicked = place->center();
            EXPECT_TRUE(doubleClick(clicked));
            return false;
        })) << "start "
            << start << ", at " << clicked.x() << ' ' << clicked.y();
        EXPECT_TRUE(doubleClickPasses(scheduler));
        stopTray();
        EXPECT_TRUE(waitFor(
            [&] { return status.availability().state == Availability::State::unavailable; }));
    }
    EXPECT_EQ(events.clicks, 2) << "a double click is one click";
}

} // namespace
} // namespace skipnest::tests
