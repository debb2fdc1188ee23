// SPDX-License-Identifier: Apache-2.0
#include "platform/macos/SystemBridges.h"

#include "platform/macos/CocoaText.h"

namespace skipnest::macos {
namespace {

std::string information(NSBundle* bundle, NSString* key) {
    id value = [bundle objectForInfoDictionaryKey:key];
    return [value isKindOfClass:[NSString class]] ? plainText(value) : std::string();
}

// Standardizing also takes away the slash that the temporary folder ends with.
std::string folder(NSString* path) {
    return plainText(path.stringByStandardizingPath);
}

BundleRecord mainBundle() {
    NSBundle* bundle = NSBundle.mainBundle;
    NSArray<NSString*>* support =
        NSSearchPathForDirectoriesInDomains(NSApplicationSupportDirectory, NSUserDomainMask, YES);
    return {.pid = NSProcessInfo.processInfo.processIdentifier,
            .path = folder(bundle.bundlePath),
            .identifier = plainText(bundle.bundleIdentifier),
            .version = information(bundle, @"CFBundleShortVersionString"),
            .build = information(bundle, @"CFBundleVersion"),
            .home = folder(NSHomeDirectory()),
            .applicationSupport = folder(support.firstObject),
            .temporary = folder(NSTemporaryDirectory())};
}

} // namespace

SystemBridges systemBridges() {
    return {.bundle = mainBundle(),
            .hotkeys = carbonHotkeys(),
            .keyboard = quartzKeyboardEvents(),
            .layout = keyboardLayoutSource(),
            .workspace = appKitWorkspace(),
            .applications = appKitApplications()};
}

} // namespace skipnest::macos
