// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/linux/X11Display.h"

#include <optional>
#include <vector>

namespace skipnest::linuxdesktop {

struct UnmanagedWindows {
    std::vector<xcb_window_t> windows; // bottom to top
    xcb_window_t focus = XCB_WINDOW_NONE;
};

// The desktop's windows where no window manager lists them: the root's children that one has
// managed before (`icccmState` is WM_STATE's atom), and those that show and have a class. Asks the
// server twice, however many windows there are. Nothing where it does not answer.
[[nodiscard]] std::optional<UnmanagedWindows> findUnmanagedWindows(const X11Display& display,
                                                                   xcb_atom_t icccmState);

} // namespace skipnest::linuxdesktop
