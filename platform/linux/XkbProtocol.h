// SPDX-License-Identifier: Apache-2.0
#pragma once

// <xcb/xkb.h> is C and names a field with a C++ keyword. As a system header this one may rename it
// without a warning.
#pragma GCC system_header
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit
