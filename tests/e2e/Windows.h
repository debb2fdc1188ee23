// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/e2e/XConnection.h"

#include <QStringList>

#include <sys/types.h>

#include <vector>

namespace skipnest::e2e {

// What the window manager says about the windows of the session, and what a person would do to
// them. A class is the second half of WM_CLASS, compared as it stands.
class Windows {
public:
    explicit Windows(XConnection& connection) : connection_(connection) {}

    [[nodiscard]] std::vector<xcb_window_t> ofClass(const QString& name) const;
    [[nodiscard]] std::vector<xcb_window_t> ofProcess(pid_t pid) const;
    [[nodiscard]] xcb_window_t active() const;
    [[nodiscard]] QString className(xcb_window_t window) const;
    [[nodiscard]] QString title(xcb_window_t window) const;
    [[nodiscard]] QStringList states(xcb_window_t window) const; // "_NET_WM_STATE_HIDDEN" …
    [[nodiscard]] bool minimised(xcb_window_t window) const;
    [[nodiscard]] std::uint32_t currentDesktop() const;
    [[nodiscard]] std::uint32_t desktopOf(xcb_window_t window) const;

    // Each waits until the window manager reports it done; false after the usual patience.
    bool activate(xcb_window_t window);
    bool minimise(xcb_window_t window);
    bool moveToDesktop(xcb_window_t window, std::uint32_t desktop);
    bool close(xcb_window_t window);

    [[nodiscard]] bool becomesActive(const QString& className) const;
    [[nodiscard]] bool becomesActive(xcb_window_t window) const;
    // The class's first window that the window manager has taken on; none after the patience.
    [[nodiscard]] xcb_window_t appears(const QString& className) const;

private:
    [[nodiscard]] std::vector<xcb_window_t> managed() const;

    XConnection& connection_;
};

} // namespace skipnest::e2e
