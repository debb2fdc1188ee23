// SPDX-License-Identifier: Apache-2.0
#pragma once

#import <Foundation/Foundation.h>

#include <string>

namespace skipnest::macos {

// UTF-8 on our side; nil is empty.
inline std::string plainText(NSString* text) {
    const char* bytes = text.UTF8String;
    return bytes == nullptr ? std::string() : std::string(bytes);
}

// Text that is no UTF-8 becomes empty rather than nil, which Cocoa answers with an exception.
inline NSString* cocoaText(const std::string& text) {
    NSString* converted = [[NSString alloc] initWithBytes:text.data()
                                                   length:text.size()
                                                 encoding:NSUTF8StringEncoding];
    return converted == nil ? @"" : converted;
}

inline NSURL* fileUrl(const std::string& path) {
    return [NSURL fileURLWithPath:cocoaText(path)];
}

} // namespace skipnest::macos
