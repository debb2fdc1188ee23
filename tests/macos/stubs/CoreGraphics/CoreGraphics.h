// SPDX-License-Identifier: Apache-2.0
// Our own declarations of what platform/macos uses of CoreGraphics (Quartz Event Services, 10.4 unless
// a comment says otherwise). Option sets are plain integers and enumerations real ones, as C++ sees
// them in the system's own headers.
#pragma once

#import <CoreFoundation/CoreFoundation.h>

extern "C" {

typedef struct __CGEvent* CGEventRef;
typedef struct __CGEventSource* CGEventSourceRef;
typedef struct __CGEventTapProxy* CGEventTapProxy;
typedef uint16_t CGKeyCode;
typedef uint64_t CGEventMask;
typedef uint64_t CGEventTimestamp; // nanoseconds of uptime
typedef uint64_t CGEventFlags;

enum CGEventType : uint32_t {
    kCGEventKeyDown = 10,
    kCGEventFlagsChanged = 12,
    kCGEventTapDisabledByTimeout = 0xFFFFFFFE,
    kCGEventTapDisabledByUserInput = 0xFFFFFFFF,
};
enum CGEventField : uint32_t { kCGKeyboardEventKeycode = 9 };
enum CGEventTapLocation : uint32_t { kCGHIDEventTap = 0, kCGSessionEventTap = 1 };
enum CGEventTapPlacement : uint32_t { kCGHeadInsertEventTap = 0 };
enum CGEventTapOptions : uint32_t { kCGEventTapOptionListenOnly = 1 };
enum CGEventSourceStateID : int32_t {
    kCGEventSourceStateCombinedSessionState = 0,
    kCGEventSourceStateHIDSystemState = 1,
};
#define CGEventMaskBit(eventType) ((CGEventMask)1 << (eventType))

typedef CGEventRef (*CGEventTapCallBack)(CGEventTapProxy proxy, CGEventType type, CGEventRef event,
                                         void* userInfo);
CFMachPortRef CGEventTapCreate(CGEventTapLocation tap, CGEventTapPlacement place,
                               CGEventTapOptions options, CGEventMask eventsOfInterest,
                               CGEventTapCallBack callback, void* userInfo);
void CGEventTapEnable(CFMachPortRef tap, bool enable);
bool CGEventTapIsEnabled(CFMachPortRef tap);
bool CGPreflightListenEventAccess(void); // 10.15
bool CGPreflightPostEventAccess(void);   // 10.15

CGEventFlags CGEventGetFlags(CGEventRef event);
void CGEventSetFlags(CGEventRef event, CGEventFlags flags);
int64_t CGEventGetIntegerValueField(CGEventRef event, CGEventField field);
CGEventTimestamp CGEventGetTimestamp(CGEventRef event);

CGEventFlags CGEventSourceFlagsState(CGEventSourceStateID state);
CGEventSourceRef CGEventSourceCreate(CGEventSourceStateID state);
CGEventRef CGEventCreateKeyboardEvent(CGEventSourceRef source, CGKeyCode key, bool keyDown);
void CGEventPost(CGEventTapLocation tap, CGEventRef event);

} // extern "C"
