// SPDX-License-Identifier: Apache-2.0
// Takes the keyboard over, says so and never ends.
#include "platform/QtScheduler.h"
#include "platform/linux/X11KeyEvents.h"

#include <QGuiApplication>

#include <cstdio>

namespace {

struct Swallow : skipnest::platform::KeyInterceptor {
    Verdict keyPressed(const skipnest::platform::KeyPress&) override { return Verdict::consumed; }
    void tapWasDisabled(Disabled) override {}
};

} // namespace

int main(int argc, char** argv) {
    using namespace skipnest;
    const QGuiApplication application(argc, argv);
    platform::QtScheduler scheduler;
    const auto display = linuxdesktop::X11Display::open(scheduler);
    if (!display)
        return 1;
    linuxdesktop::X11Keymap keymap(*display, scheduler);
    linuxdesktop::X11KeyEvents events(*display, keymap, scheduler);
    Swallow swallow;
    const auto tap = events.intercept(swallow);
    std::puts(tap ? "intercepting" : "refused");
    std::fflush(stdout);
    return QGuiApplication::exec();
}
