// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/previews/X11ScreenCapture.h"
#include "tests/x11previews/PaintedWindows.h"
#include "tests/x11workspace/Desk.h"

#include <QColor>
#include <QImage>

#include <algorithm>
#include <cstdio>
#include <optional>
#include <utility>

namespace skipnest::tests {
namespace {

using platform::CapturableWindow;
using platform::ScreenCaptureRun;

constexpr std::uint32_t red = 0xff2010, green = 0x10d020, blue = 0x2030f0, grey = 0x808080;

class PreviewsTest : public Desk {
protected:
    void SetUp() override {
        Desk::SetUp();
        capture = std::make_unique<linuxdesktop::X11ScreenCapture>(
            *display, scheduler, executor, ports->windows, ports->applications);
        ASSERT_EQ(capture->availability(), platform::Availability{});
    }
    void TearDown() override {
        for (const xcb_window_t window : opened)
            painted.close(window);
        capture.reset();
        Desk::TearDown();
    }
    xcb_window_t open(std::uint32_t colour, std::uint16_t width = 600, std::uint16_t height = 400,
                      PaintedWindows::Depth depth = PaintedWindows::Depth::ofScreen) {
        const xcb_window_t window = painted.open(colour, width, height, depth);
        opened.push_back(window);
        // openbox announces a window before it maps it.
        EXPECT_TRUE(waitFor([&] {
            const auto found = listed(window);
            return found && found->isOnScreen;
        }));
        return window;
    }
    [[nodiscard]] std::optional<CapturableWindow> listed(xcb_window_t window) {
        std::optional<std::vector<CapturableWindow>> windows;
        const auto run = capture->listWindows([&windows](const auto& answer) {
            windows = answer ? *answer : std::vector<CapturableWindow>();
        });
        EXPECT_TRUE(waitFor([&windows] { return windows.has_value(); }));
        for (const CapturableWindow& found : *windows) {
            if (found.identifier == QStringLiteral("0x") + QString::number(window, 16))
                return found;
        }
        return std::nullopt;
    }
    // Null where there is none.
    [[nodiscard]] QImage picture(const CapturableWindow& window, const QSize& size) {
        std::optional<QImage> taken;
        const ScreenCaptureRun run = capture->capture(window, size, [&taken](const QImage* image) {
            taken = image != nullptr ? *image : QImage();
        });
        EXPECT_TRUE(waitFor([&taken] { return taken.has_value(); }));
        return taken.value_or(QImage());
    }
    [[nodiscard]] bool shows(xcb_window_t window, std::uint32_t colour) {
        const auto found = listed(window);
        const QImage image = found ? picture(*found, {240, 150}) : QImage();
        return image.size() == QSize(240, 150) && (image.pixel(120, 90) & 0xffffff) == colour;
    }

    PaintedWindows painted;
    std::vector<xcb_window_t> opened;
    std::unique_ptr<linuxdesktop::X11ScreenCapture> capture;
};

TEST_F(PreviewsTest, CoveredMinimisedAndOtherDesktopsWindowsShowTheirOwnColours) {
    capture->setEnabled(true);
    const xcb_window_t covered = open(red), minimised = open(green), elsewhere = open(blue);
    open(grey);
    EXPECT_TRUE(waitFor([&] { return shows(covered, red) && shows(elsewhere, blue); }));
    painted.minimise(minimised, display->atom("WM_CHANGE_STATE"));
    moveToDesktop(elsewhere, 2);
    ASSERT_TRUE(waitFor([&] {
        const auto one = listed(minimised), other = listed(elsewhere);
        return one && !one->isOnScreen && other && !other->isOnScreen;
    }));
    EXPECT_TRUE(shows(covered, red));
    EXPECT_TRUE(shows(minimised, green));
    EXPECT_TRUE(shows(elsewhere, blue));

    const auto found = listed(covered);
    EXPECT_EQ(found->title, QStringLiteral("painted"));
    EXPECT_TRUE(found->isOnScreen);
    EXPECT_GE(found->frame.width(), 600);
    EXPECT_GT(found->frame.height(), 400) << "with its title bar";
    ports->applications.update();
    EXPECT_EQ(found->owner, application("Painted")->pid);
}

TEST_F(PreviewsTest, ARolledUpWindowShowsWhatItShowedAndIsReadAnewOnceItIsRolledDown) {
    capture->setEnabled(true);
    const xcb_window_t window = open(red);
    const QSizeF whole = listed(window)->frame.size();
    const auto roll = [&](const char* how) {
        const QString command = QStringLiteral("wmctrl -i -r %1 -b %2,shaded");
        return runTool(command.arg(window).arg(QLatin1String(how)).toLatin1().constData());
    };
    ASSERT_TRUE(roll("add"));
    ASSERT_TRUE(waitFor([&] { return painted.frameHeight(window) < 100; }));
    EXPECT_TRUE(shows(window, red));
    EXPECT_EQ(listed(window)->frame.size(), whole);
    EXPECT_TRUE(listed(window)->isOnScreen);
    painted.paint(window, blue);
    ASSERT_TRUE(roll("remove"));
    EXPECT_TRUE(waitFor([&] { return shows(window, blue); }));
}

TEST_F(PreviewsTest, AResizedWindowIsReadAnew) {
    capture->setEnabled(true);
    const xcb_window_t window = open(red);
    const auto asListed = listed(window);
    const QRectF before = asListed->frame;
    ASSERT_TRUE(runTool(
        QStringLiteral("wmctrl -i -r %1 -e 0,20,20,800,500").arg(window).toLatin1().constData()));
    ASSERT_TRUE(waitFor([&] { return listed(window)->frame.width() > before.width(); }));
    ASSERT_TRUE(waitFor([&] { return shows(window, red); }));
    // The far corner was not part of the first pixmap.
    const QImage whole = picture(*listed(window), {400, 250});
    EXPECT_EQ(whole.pixel(385, 235) & 0xffffff, red);
    EXPECT_EQ(picture(*asListed, {400, 250}), whole) << "as it is, not as it was listed";
}

TEST_F(PreviewsTest, AWindowThatClosesHasNoPictureAndADroppedRunTellsNothing) {
    capture->setEnabled(true);
    const xcb_window_t window = open(red);
    const auto found = listed(window);
    int told = 0;
    auto dropped = capture->capture(*found, {10, 10}, [&told](const QImage*) { ++told; });
    dropped.reset();
    painted.close(window);
    opened.clear();
    ASSERT_TRUE(waitFor([&] { return !listed(window).has_value(); }));
    EXPECT_TRUE(picture(*found, {240, 150}).isNull());
    EXPECT_EQ(told, 0);
}

TEST_F(PreviewsTest, WindowsThatCloseWhileTheirPicturesAreTakenAreAllAnswered) {
    capture->setEnabled(true);
    std::vector<CapturableWindow> windows;
    for (int i = 0; i < 20; ++i)
        windows.push_back(*listed(open(red)));
    int told = 0;
    std::vector<ScreenCaptureRun> runs;
    for (const CapturableWindow& window : windows)
        runs.push_back(capture->capture(window, {240, 150}, [&told](const QImage*) { ++told; }));
    for (const xcb_window_t window : std::exchange(opened, {}))
        painted.close(window);
    EXPECT_TRUE(waitFor([&told] { return told == 20; }));
    // A picture that is still on its way finds previews off.
    const auto found = listed(open(red));
    const auto run = capture->capture(*found, {240, 150}, [&told](const QImage*) { ++told; });
    capture->setEnabled(false);
    EXPECT_TRUE(waitFor([&told] { return told == 21; }));
}

TEST_F(PreviewsTest, WindowsOfOddSizesAndDepthsHavePicturesOfTheSizeAskedFor) {
    using Depth = PaintedWindows::Depth;
    capture->setEnabled(true);
    const xcb_window_t tiny = open(red, 1, 1), wide = open(green, 10'000, 30),
                       clear = open(0x802030f0, 600, 400, Depth::withAlpha);
    EXPECT_EQ(picture(*listed(tiny), {240, 150}).size(), QSize(240, 150));
    EXPECT_EQ(picture(*listed(wide), {3500, 150}).size(), QSize(3500, 150));
    EXPECT_TRUE(waitFor([&] { return shows(clear, blue); }));
    EXPECT_EQ(qAlpha(picture(*listed(clear), {240, 150}).pixel(120, 90)), 255)
        << "nobody gives it a meaning";
}

TEST_F(PreviewsTest, OfManyLargeWindowsAFewAreLiveAndTheOthersWereSeenOnce) {
    constexpr int many = 24;
    for (int i = 0; i < many; ++i)
        opened.push_back(painted.open(i % 2 == 0 ? red : green, 1280, 800));
    ASSERT_TRUE(waitFor([&] {
        return std::ranges::all_of(opened, [this](auto one) { return painted.isViewable(one); });
    }));
    const long before = painted.serverMemory();
    capture->setEnabled(true);
    for (int i = 0; i < many; ++i)
        EXPECT_TRUE(waitFor([&] {
            return shows(opened[std::size_t(i)], i % 2 == 0 ? red : green);
        })) << i;
    const auto live = [this] {
        return std::ranges::count_if(opened,
                                     [this](auto one) { return painted.isRedirected(one); });
    };
    EXPECT_TRUE(waitFor([&] { return live() <= 10; }));
    EXPECT_GE(live(), 8);
    EXPECT_TRUE(waitFor([&] { return painted.serverMemory() - before < 64'000; }))
        << painted.serverMemory() - before;
    // What comes to the top is live again.
    ASSERT_FALSE(painted.isRedirected(opened[0]));
    painted.paint(opened[0], blue);
    ASSERT_TRUE(runTool(QStringLiteral("wmctrl -i -a %1").arg(opened[0]).toLatin1().constData()));
    EXPECT_TRUE(waitFor([&] { return shows(opened[0], blue); }));
    EXPECT_LE(live(), 10);
}

TEST_F(PreviewsTest, BesideACompositorAllAreLiveAndAlphaHasAMeaning) {
    PaintedWindows compositor;
    compositor.becomeCompositor(display->atom("_NET_WM_CM_S0"));
    capture->setEnabled(true);
    std::vector<xcb_window_t> windows;
    for (int i = 0; i < 16; ++i)
        windows.push_back(open(i % 2 == 0 ? red : green, 1280, 800));
    const xcb_window_t clear =
        open(0x80000000 | (blue / 2 & 0x7f7f7f), 600, 400, PaintedWindows::Depth::withAlpha);
    for (int i = 0; i < 16; ++i) {
        painted.paint(windows[std::size_t(i)], grey);
        EXPECT_TRUE(waitFor([&] { return shows(windows[std::size_t(i)], grey); })) << i;
    }
    EXPECT_EQ(qAlpha(picture(*listed(clear), {240, 150}).pixel(120, 90)), 0x80);
    capture->setEnabled(false);
    EXPECT_TRUE(painted.isRedirected(windows[0])) << "still the compositor's";
}

TEST_F(PreviewsTest, NothingIsRedirectedWhileItIsOff) {
    const xcb_window_t window = painted.open(red);
    opened.push_back(window);
    ASSERT_TRUE(waitFor([&] {
        ports->windows.settle();
        return ports->windows.find(window) != nullptr;
    }));
    EXPECT_FALSE(painted.isRedirected(window));
    EXPECT_FALSE(listed(window));
    capture->setEnabled(true);
    EXPECT_TRUE(waitFor([&] { return shows(window, red); }));
    EXPECT_TRUE(painted.isRedirected(window));
    const auto found = listed(window);
    capture->setEnabled(false);
    EXPECT_TRUE(waitFor([&] { return !painted.isRedirected(window); }));
    EXPECT_TRUE(picture(*found, {240, 150}).isNull());
}

TEST_F(PreviewsTest, AThousandWindowsThatCameAndWentLeaveNothingInTheServer) {
    capture->setEnabled(true);
    const auto comeAndGo = [this](int windows) {
        std::vector<xcb_window_t> some;
        for (int i = 0; i < windows; ++i)
            some.push_back(painted.open(red, 300, 200));
        EXPECT_TRUE(waitFor([&] {
            ports->windows.settle();
            return ports->windows.stacking().size() == some.size();
        }));
        for (const xcb_window_t window : some)
            painted.close(window);
        EXPECT_TRUE(waitFor([&] {
            ports->windows.settle();
            return ports->windows.stacking().empty();
        }));
    };
    comeAndGo(20);
    const long before = painted.serverMemory();
    ASSERT_GT(before, 0);
    for (int round = 0; round < 50; ++round)
        comeAndGo(20);
    // Their pixmaps alone would be 230 MB.
    EXPECT_LT(painted.serverMemory() - before, 40'000);
}

TEST_F(PreviewsTest, TwentyAskedForAtOnceAreAllAnswered) {
    capture->setEnabled(true);
    std::vector<CapturableWindow> windows;
    for (int i = 0; i < 20; ++i)
        windows.push_back(*listed(open(red)));
    for (int round = 0; round < 5; ++round) {
        int told = 0;
        std::vector<ScreenCaptureRun> runs;
        const platform::Instant start = scheduler.now();
        for (const CapturableWindow& window : windows)
            runs.push_back(capture->capture(window, {240, 150}, [&told](const QImage* image) {
                told += image != nullptr ? 1 : 0;
            }));
        const auto asked = scheduler.now();
        ASSERT_TRUE(waitFor([&told] { return told == 20; }));
        using Milliseconds = std::chrono::duration<double, std::milli>;
        std::printf("20 windows of 600x400: asked in %.2f ms, all there after %.1f ms\n",
                    Milliseconds(asked - start).count(),
                    Milliseconds(scheduler.now() - start).count());
    }
}

} // namespace
} // namespace skipnest::tests
