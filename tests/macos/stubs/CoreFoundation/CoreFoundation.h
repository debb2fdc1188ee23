// SPDX-License-Identifier: Apache-2.0
// Our own declarations of what platform/macos uses of CoreFoundation (every system release).
#pragma once

#include <stddef.h>
#include <stdint.h>

#define STUB_BRIDGED(type) __attribute__((objc_bridge(type)))

extern "C" {

typedef unsigned char Boolean;
typedef uint8_t UInt8;
typedef uint16_t UInt16;
typedef int32_t SInt32;
typedef uint32_t UInt32;
typedef UInt16 UniChar;
typedef unsigned long UniCharCount;
typedef unsigned long ItemCount;
typedef unsigned long ByteCount;
typedef UInt32 OptionBits;
typedef UInt32 FourCharCode;
typedef FourCharCode OSType;
typedef SInt32 OSStatus;
enum { noErr = 0 };

typedef long CFIndex;
typedef const void* CFTypeRef;
typedef const struct __CFAllocator* CFAllocatorRef;
typedef const struct STUB_BRIDGED(NSString) __CFString* CFStringRef;
typedef const struct STUB_BRIDGED(NSData) __CFData* CFDataRef;
typedef const struct STUB_BRIDGED(NSDictionary) __CFDictionary* CFDictionaryRef;
void CFRelease(CFTypeRef object);
const UInt8* CFDataGetBytePtr(CFDataRef data);

typedef struct __CFRunLoop* CFRunLoopRef;
typedef struct __CFRunLoopSource* CFRunLoopSourceRef;
typedef CFStringRef CFRunLoopMode;
extern const CFRunLoopMode kCFRunLoopCommonModes;
CFRunLoopRef CFRunLoopGetMain(void); // 10.5
void CFRunLoopAddSource(CFRunLoopRef loop, CFRunLoopSourceRef source, CFRunLoopMode mode);
void CFRunLoopRemoveSource(CFRunLoopRef loop, CFRunLoopSourceRef source, CFRunLoopMode mode);

typedef struct __CFMachPort* CFMachPortRef;
CFRunLoopSourceRef CFMachPortCreateRunLoopSource(CFAllocatorRef allocator, CFMachPortRef port,
                                                 CFIndex order);
void CFMachPortInvalidate(CFMachPortRef port);
Boolean CFMachPortIsValid(CFMachPortRef port);

typedef struct __CFNotificationCenter* CFNotificationCenterRef;
typedef CFStringRef CFNotificationName;
typedef void (*CFNotificationCallback)(CFNotificationCenterRef center, void* observer,
                                       CFNotificationName name, const void* object,
                                       CFDictionaryRef userInfo);
enum CFNotificationSuspensionBehavior : CFIndex {
    CFNotificationSuspensionBehaviorDeliverImmediately = 4,
};
CFNotificationCenterRef CFNotificationCenterGetDistributedCenter(void);
void CFNotificationCenterAddObserver(CFNotificationCenterRef center, const void* observer,
                                     CFNotificationCallback callback, CFStringRef name,
                                     const void* object,
                                     CFNotificationSuspensionBehavior suspension);
void CFNotificationCenterRemoveEveryObserver(CFNotificationCenterRef center, const void* observer);

} // extern "C"
