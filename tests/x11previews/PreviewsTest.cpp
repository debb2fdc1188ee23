// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/previews/X11ScreenCapture.h"
#include "tests/x11workspace/Desk.h"

#include <QColor>
#include <QFile>

#include <sys/socket.h>
#include <xcb/composite.h>

#include <algorithm>
#include <cstdio>
#include <optional>
#include <utility>

namespace skipnest::tests {
namespace {

using linuxdesktop::XcbPtr;
using platform::CapturableWindow;
using platform::ScreenCaptureRun;

constexpr std::uint32_t red = 0xff2010, green = 0x10d020, blue = 0x2030f0, grey = 0x808080;

// Windows of a second client, each of one colour.
class PaintedWindows {
public:
    PaintedWindows() : connection_(xcb_connect(nullptr, nullptr)) {}
    ~PaintedWindows() { xcb_disconnect(connection_); }
    PaintedWindows(const PaintedWindows&) = delete;
    PaintedWindows& operator=(const PaintedWindows&) = delete;

    enum class Depth : std::uint8_t { ofScreen = 24, withAlpha = 32 };

    xcb_window_t open(std::uint32_t colour, std::uint16_t width = 600, std::uint16_t height = 400,
                      Depth depth = Depth::ofScreen) {
        const xcb_window_t window = xcb_generate_id(connection_);
        const xcb_visualid_t visual = visualOf(depth);
        const xcb_colormap_t colours = xcb_generate_id(connection_);
        xcb_create_colormap(connection_, XCB_COLORMAP_ALLOC_NONE, colours, root(), visual);
        const std::uint32_t values[] = {colour, 0, colours};
        xcb_create_window(connection_, static_cast<std::uint8_t>(depth), window, root(), 50, 50,
                          width, height, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, visual,
                          XCB_CW_BACK_PIXEL | XCB_CW_BORDER_PIXEL | XCB_CW_COLORMAP, values);
        constexpr char name[] = "painted\0Painted";
        xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_CLASS,
                            XCB_ATOM_STRING, 8, sizeof name, name);
        xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_NAME,
                            XCB_ATOM_STRING, 8, 7, name);
        xcb_map_window(connection_, window);
        xcb_flush(connection_);
        return window;
    }
    // What the server takes of the machine's memory, in kilobytes.
    [[nodiscard]] long serverMemory() const {
        ucred server{};
        socklen_t size = sizeof server;
        EXPECT_EQ(getsockopt(xcb_get_file_descriptor(connection_), SOL_SOCKET, SO_PEERCRED, &server,
                             &size),
                  0);
        QFile status(QStringLiteral("/proc/%1/status").arg(server.pid));
        EXPECT_TRUE(status.open(QIODevice::ReadOnly));
        const QByteArray text = status.readAll();
        const auto at = text.indexOf("VmRSS:");
        return text.mid(at + 6, text.indexOf("kB", at) - at - 6).trimmed().toLong();
    }
    // Until this object ends. What it would have to draw nobody looks at.
    void becomeCompositor(xcb_atom_t selection) {
        xcb_composite_redirect_subwindows(connection_, root(), XCB_COMPOSITE_REDIRECT_MANUAL);
        const xcb_window_t owner = xcb_generate_id(connection_);
        xcb_create_window(connection_, 0, owner, root(), 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                          XCB_COPY_FROM_PARENT, 0, nullptr);
        xcb_set_selection_owner(connection_, owner, selection, XCB_CURRENT_TIME);
        sync();
    }
    void close(xcb_window_t window) {
        xcb_destroy_window(connection_, window);
        sync();
    }
    void minimise(xcb_window_t window, xcb_atom_t changeState) {
        constexpr std::uint32_t iconic = 3;
        xcb_client_message_event_t message{};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = 32;
        message.window = window;
        message.type = changeState;
        message.data.data32[0] = iconic;
        xcb_send_event(connection_, 0, root(),
                       XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                       reinterpret_cast<const char*>(&message));
        sync();
    }
    void paint(xcb_window_t window, std::uint32_t colour) {
        xcb_change_window_attributes(connection_, window, XCB_CW_BACK_PIXEL, &colour);
        xcb_clear_area(connection_, 1, window, 0, 0, 0, 0);
        sync();
    }
    [[nodiscard]] int frameHeight(xcb_window_t window) const {
        const XcbPtr<xcb_get_geometry_reply_t> geometry(xcb_get_geometry_reply(
            connection_, xcb_get_geometry(connection_, frame(window)), nullptr));
        return geometry->height;
    }
    [[nodiscard]] bool isViewable(xcb_window_t window) const {
        const XcbPtr<xcb_get_window_attributes_reply_t> attributes(xcb_get_window_attributes_reply(
            connection_, xcb_get_window_attributes(connection_, window), nullptr));
        return attributes->map_state == XCB_MAP_STATE_VIEWABLE;
    }
    // Whether somebody redirects the root's child that has the window in it.
    [[nodiscard]] bool isRedirected(xcb_window_t window) const {
        const xcb_pixmap_t pixmap = xcb_generate_id(connection_);
        const XcbPtr<xcb_generic_error_t> error(xcb_request_check(
            connection_,
            xcb_composite_name_window_pixmap_checked(connection_, frame(window), pixmap)));
        if (!error)
            xcb_free_pixmap(connection_, pixmap);
        return !error;
    }

private:
    [[nodiscard]] xcb_visualid_t visualOf(Depth depth) const {
        const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data;
        for (auto depths = xcb_screen_allowed_depths_iterator(screen); depths.rem > 0;
             xcb_depth_next(&depths)) {
            if (depths.data->depth == static_cast<std::uint8_t>(depth))
                return xcb_depth_visuals(depths.data)->visual_id;
        }
        return screen->root_visual;
    }
    [[nodiscard]] xcb_window_t root() const {
        return xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
    }
    [[nodiscard]] xcb_window_t frame(xcb_window_t window) const {
        for (xcb_window_t parent = window; parent != root();) {
            const XcbPtr<xcb_query_tree_reply_t> tree(
                xcb_query_tree_reply(connection_, xcb_query_tree(connection_, parent), nullptr));
            window = parent;
            parent = tree->parent;
        }
        return window;
    }
    void sync() const {
        std::free(
            xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr));
    }
    xcb_connection_t* connection_;
};

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
    const QRectF before = listed(window)->frame;
    ASSERT_TRUE(runTool(
        QStringLiteral("wmctrl -i -r %1 -e 0,20,20,800,500").arg(window).toLatin1().constData()));
    ASSERT_TRUE(waitFor([&] { return listed(window)->frame.width() > before.width(); }));
    ASSERT_TRUE(waitFor([&] { return shows(window, red); }));
    // The far corner was not part of the first pixmap.
    const QImage whole = picture(*listed(window), {400, 250});
    EXPECT_EQ(whole.pixel(385, 235) & 0xffffff, red);
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
    const int alpha = qAlpha(picture(*listed(clear), {240, 150}).pixel(120, 90));
    EXPECT_TRUE(alpha == 0x80 || alpha == 255) << "a frame without alpha is opaque: " << alpha;
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
