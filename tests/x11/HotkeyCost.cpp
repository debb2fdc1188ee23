// SPDX-License-Identifier: Apache-2.0
// Prints what registering many hotkeys and taking the keyboard over cost beside one round trip to
// the same X server.
#include "platform/EventFlags.h"
#include "platform/QtScheduler.h"
#include "platform/linux/X11Hotkeys.h"
#include "platform/linux/X11KeyEvents.h"
#include "tests/x11/XServer.h"

#include <QGuiApplication>

#include <algorithm>
#include <cstdio>

namespace {

using namespace skipnest;

double milliseconds(platform::QtScheduler& scheduler, const std::function<void()>& work) {
    const platform::Instant start = scheduler.now();
    work();
    return std::chrono::duration<double, std::milli>(scheduler.now() - start).count();
}

// The middle and the worst of many runs.
void print(const char* what, std::vector<double> runs) {
    std::ranges::sort(runs);
    std::printf("%-34s median %7.3f ms   worst %7.3f ms   n=%zu\n", what, runs[runs.size() / 2],
                runs.back(), runs.size());
}

// Distinct combos: every key of the table under each set of modifiers in turn.
std::vector<platform::HotkeyRequest> combos(const linuxdesktop::KeyboardMap& map,
                                            std::size_t count) {
    using platform::CarbonModifiers;
    std::vector<platform::HotkeyRequest> requests;
    for (std::uint32_t set = 1; set < 16; ++set) {
        const std::uint32_t modifiers = ((set & 1) != 0 ? CarbonModifiers::control : 0) |
                                        ((set & 2) != 0 ? CarbonModifiers::option : 0) |
                                        ((set & 4) != 0 ? CarbonModifiers::command : 0) |
                                        ((set & 8) != 0 ? CarbonModifiers::shift : 0);
        for (const linuxdesktop::PhysicalKey& key : linuxdesktop::physicalKeys()) {
            if (map.keycode(key.keyCode) && requests.size() < count)
                requests.push_back(
                    {{static_cast<std::uint32_t>(requests.size() + 1)}, key.keyCode, modifiers});
        }
    }
    return requests;
}

struct PassAll : platform::KeyInterceptor {
    Verdict keyPressed(const platform::KeyPress&) override { return Verdict::passed; }
    void tapWasDisabled(Disabled) override {}
};

} // namespace

int main(int argc, char** argv) {
    const auto server = tests::XServer::start();
    if (!server) {
        std::puts("no Xvfb here");
        return 1;
    }
    qputenv("DISPLAY", server->display());
    qputenv("QT_QPA_PLATFORM", "xcb");
    const QGuiApplication application(argc, argv);
    platform::QtScheduler scheduler;
    const auto display = linuxdesktop::X11Display::open(scheduler);
    if (!display)
        return 1;

    constexpr int runs = 30;
    std::vector<double> times;
    const auto series = [&](const char* what, const std::function<void()>& work) {
        times.clear();
        for (int run = 0; run < runs; ++run)
            times.push_back(milliseconds(scheduler, work));
        print(what, times);
    };
    series("one round trip", [&] {
        xcb_connection_t* connection = display->connection();
        std::free(xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
    });
    series("read the keyboard map", [&] { linuxdesktop::X11Keymap(*display, scheduler); });
    linuxdesktop::X11Keymap keymap(*display, scheduler);
    linuxdesktop::X11Hotkeys hotkeys(*display, keymap, scheduler);
    linuxdesktop::X11KeyEvents keyEvents(*display, keymap, scheduler);
    PassAll passAll;
    series("take keys over and let go", [&] { const auto tap = keyEvents.intercept(passAll); });
    for (const std::size_t count : {std::size_t{1}, std::size_t{100}, std::size_t{400}}) {
        const auto requests = combos(keymap.current(), count);
        std::vector<double> dropped;
        times.clear();
        std::size_t refused = 0;
        for (int run = 0; run < runs; ++run) {
            std::vector<platform::HotkeyRegistration> registrations;
            times.push_back(milliseconds(
                scheduler, [&] { registrations = hotkeys.registerHotkeys(requests); }));
            for (const auto& registration : registrations)
                refused += registration.status != 0 ? 1 : 0;
            dropped.push_back(milliseconds(scheduler, [&] { registrations.clear(); }));
        }
        char what[64];
        std::snprintf(what, sizeof what, "register %zu combos (%zu refused)", requests.size(),
                      refused);
        print(what, times);
        std::snprintf(what, sizeof what, "drop %zu combos", requests.size());
        print(what, dropped);
    }
    return 0;
}
