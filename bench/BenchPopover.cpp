// SPDX-License-Identifier: Apache-2.0
// From the request on the control socket until the popover's first painted pixel is on the screen,
// with 50 shortcuts. Beside it, in turn, the least that a window system allows: a bare window of
// the same size that is filled with one colour.
#include "bench/Bench.h"
#include "bench/ControlConnection.h"
#include "bench/ProcessFigures.h"
#include "tests/e2e/Chord.h"
#include "tests/e2e/Fixtures.h"
#include "tests/e2e/Waiting.h"

#include <QCoreApplication>

#include <cstdio>
#include <optional>

namespace skipnest::bench {
namespace {

using namespace std::chrono_literals;

constexpr int shortcuts = 50;
constexpr auto limit = 2s;

struct Place {
    std::int16_t x = 0;
    std::int16_t y = 0;
    std::uint16_t width = 440;
    std::uint16_t height = 620;
};

class PopoverRace {
public:
    int run(int rounds) {
        requirePrograms(session_);
        QStringList chords;
        for (const char* modifiers : {"ctrl+alt+", "cmd+alt+"})
            for (const QChar key : e2e::alphanumericKeys())
                chords.append(QString::fromLatin1(modifiers) + key);
        for (const QString& chord : chords.mid(0, shortcuts)) {
            const QString name = QStringLiteral("Fixture ") + chord;
            agent_.bind({name, e2e::installTerminal(session_, name), chord});
        }
        if (!agent_.start())
            giveUp(QStringLiteral("the agent does not answer"));
        control_.emplace(session_.runtimeFolder() + QStringLiteral("/Skipnest/control.sock"));
        toggle();
        if (!e2e::eventually([this] { return findPopover(); }))
            giveUp(QStringLiteral("the popover does not appear"));
        toggle();
        (void)e2e::eventually([this] { return pixel() == background_; });

        Series bare{QStringLiteral("a bare window"), {}, 0};
        Series ours{QStringLiteral("skipnest popover"), {}, 0};
        for (int round = 0; round < rounds; ++round) {
            measureBareWindow(bare);
            measurePopover(ours);
        }
        printTable({bare, ours});
        const pid_t pid = agent_.process().pid();
        const qint64 resident = memory(pid, "Rss");
        const qint64 dirty = memory(pid, "Private_Dirty");
        if (!wantsJson())
            std::printf("with the popover built and hidden: resident %.1f MB, private dirty %.1f "
                        "MB; load average %.2f\n",
                        static_cast<double>(resident) / 1024, static_cast<double>(dirty) / 1024,
                        loadAverage());
        QJsonObject result = toJson({bare, ours});
        result.insert(QStringLiteral("rssKb"), resident);
        result.insert(QStringLiteral("privateDirtyKb"), dirty);
        printJson(result);
        return 0;
    }

private:
    [[nodiscard]] xcb_connection_t* raw() { return session_.connection().raw(); }

    void toggle() { (void)control_->ask({{QStringLiteral("verb"), QStringLiteral("popover")}}); }

    // The colour on the screen a little inside the popover's upper left corner.
    [[nodiscard]] std::optional<std::uint32_t> pixel() {
        const auto cookie =
            xcb_get_image(raw(), XCB_IMAGE_FORMAT_Z_PIXMAP, session_.connection().root(),
                          static_cast<std::int16_t>(place_.x + 4),
                          static_cast<std::int16_t>(place_.y + 4), 1, 1, ~0U);
        const e2e::XReply<xcb_get_image_reply_t> image(xcb_get_image_reply(raw(), cookie, nullptr));
        if (!image || xcb_get_image_data_length(image.get()) < 3)
            return std::nullopt;
        const std::uint8_t* data = xcb_get_image_data(image.get());
        return data[0] | data[1] << 8 | data[2] << 16;
    }

    bool findPopover() {
        for (const xcb_window_t window : session_.windows().ofProcess(agent_.process().pid())) {
            const auto size = xcb_get_geometry(raw(), window);
            const auto corner =
                xcb_translate_coordinates(raw(), window, session_.connection().root(), 0, 0);
            const e2e::XReply<xcb_get_geometry_reply_t> geometry(
                xcb_get_geometry_reply(raw(), size, nullptr));
            const e2e::XReply<xcb_translate_coordinates_reply_t> origin(
                xcb_translate_coordinates_reply(raw(), corner, nullptr));
            if (!geometry || !origin || geometry->height < 300)
                continue;
            background_ = 0;
            place_ = {origin->dst_x, origin->dst_y, geometry->width, geometry->height};
            return pixel() != background_;
        }
        return false;
    }

    // True when the pixel is no longer (or again) that of the empty screen.
    [[nodiscard]] bool pixelChanges(bool toPanel) {
        const auto until = e2e::Clock::now() + limit;
        while (e2e::Clock::now() < until)
            if ((pixel() != background_) == toPanel)
                return true;
        return false;
    }

    void measurePopover(Series& series) {
        const auto started = e2e::Clock::now();
        control_->send({{QStringLiteral("verb"), QStringLiteral("popover")}});
        if (pixelChanges(true))
            series.add(e2e::Clock::now() - started);
        else
            ++series.misfires;
        (void)control_->receive();
        toggle();
        (void)pixelChanges(false);
    }

    void measureBareWindow(Series& series) {
        const xcb_window_t window = xcb_generate_id(raw());
        const std::uint32_t values[] = {0x336699, 1};
        xcb_create_window(raw(), XCB_COPY_FROM_PARENT, window, session_.connection().root(),
                          place_.x, place_.y, place_.width, place_.height, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                          XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT, values);
        session_.connection().sync();
        const auto started = e2e::Clock::now();
        xcb_map_window(raw(), window);
        xcb_flush(raw());
        if (pixelChanges(true))
            series.add(e2e::Clock::now() - started);
        else
            ++series.misfires;
        xcb_destroy_window(raw(), window);
        (void)pixelChanges(false);
    }

    e2e::DesktopSession session_{e2e::WindowManager::openbox};
    e2e::Agent agent_{session_};
    std::optional<ControlConnection> control_;
    Place place_;
    std::optional<std::uint32_t> background_;
};

} // namespace
} // namespace skipnest::bench

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    return skipnest::bench::PopoverRace().run(skipnest::bench::numberOption("rounds", 100));
}
