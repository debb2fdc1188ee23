// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/e2e/XConnection.h"

namespace skipnest::bench {

// How many pixmaps the server keeps for the client that this window belongs to; -1 where it does
// not say.
[[nodiscard]] int pixmapsOf(e2e::XConnection& connection, xcb_window_t window);

} // namespace skipnest::bench
