// SPDX-License-Identifier: Apache-2.0
#pragma once

#import <CoreFoundation/CoreFoundation.h>

#include <memory>
#include <type_traits>

namespace skipnest::macos {

struct CoreFoundationRelease {
    void operator()(CFTypeRef object) const { CFRelease(object); }
};
// Owns what a Create or Copy function returned; never what a Get function did.
template <typename Reference>
using CoreFoundationOwner =
    std::unique_ptr<std::remove_pointer_t<Reference>, CoreFoundationRelease>;

} // namespace skipnest::macos
