// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/QtExecutor.h"
#include "platform/QtScheduler.h"
#include "platform/linux/X11ApplicationPorts.h"
#include "tests/x11/XSession.h"

#include <QProcess>

#include <gmock/gmock.h>

#include <map>
#include <memory>

namespace skipnest::tests {

// Windows of a second client, so that no real program is needed for what windows only say.
class ToyWindows {
public:
    ToyWindows();
    ~ToyWindows();
    ToyWindows(const ToyWindows&) = delete;
    ToyWindows& operator=(const ToyWindows&) = delete;

    struct Look {
        const char* windowClass;
        std::uint32_t pid = 0;
        const char* type = "_NET_WM_WINDOW_TYPE_NORMAL";
        const char* machine = nullptr;
        QByteArray title = {};      // _NET_WM_NAME
        QByteArray plainTitle = {}; // WM_NAME
        xcb_window_t leader = XCB_WINDOW_NONE;
        const char* state = nullptr;
    };
    // What is null, or empty, is not set.
    xcb_window_t show(const Look& look);

private:
    xcb_atom_t atom(const char* name);
    xcb_connection_t* connection_;
};

// The window manager of the test program, named at build time.
void startWindowManager();
void killWindowManager();
[[nodiscard]] bool windowManagerWorks();

// The applications side of the backend on the X server of this process, with three entries:
// FixtureOne and FixtureTwo are terminals, Missing has no program.
class Desk : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    [[nodiscard]] bool waitFor(const std::function<bool()>& condition) {
        return waitUntil(scheduler, condition);
    }
    [[nodiscard]] static QString path(const char* name);
    // Opens it and waits until it is in front.
    [[nodiscard]] bool openAndWait(const char* name);
    void spawn(const char* commandLine);
    [[nodiscard]] std::string front() const;
    [[nodiscard]] const linuxdesktop::X11Application* application(const char* name);
    [[nodiscard]] std::size_t windowCount(const char* name);
    [[nodiscard]] platform::ProcessIdentifier pid(const char* name);
    void moveToDesktop(xcb_window_t window, int desktop);

    platform::QtScheduler scheduler;
    platform::QtExecutor executor{scheduler};
    std::unique_ptr<linuxdesktop::X11Display> display = linuxdesktop::X11Display::open(scheduler);
    std::unique_ptr<linuxdesktop::X11ApplicationPorts> ports;
    std::vector<std::unique_ptr<QProcess>> spawned;
};

} // namespace skipnest::tests
