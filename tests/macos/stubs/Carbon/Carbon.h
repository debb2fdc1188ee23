// SPDX-License-Identifier: Apache-2.0
// Our own declarations of what platform/macos uses of Carbon: the event manager's hotkeys, text input
// sources and key translation. The release in a comment is the first that has the call; none means
// every release.
#pragma once

#import <CoreFoundation/CoreFoundation.h>

extern "C" {

typedef struct OpaqueEventRef* EventRef;
typedef struct OpaqueEventTargetRef* EventTargetRef;
typedef struct OpaqueEventHandlerRef* EventHandlerRef;
typedef struct OpaqueEventHandlerCallRef* EventHandlerCallRef;
typedef struct OpaqueEventHotKeyRef* EventHotKeyRef;
typedef double EventTime; // seconds of uptime
typedef OSType EventParamName;
typedef OSType EventParamType;
typedef OSStatus (*EventHandlerUPP)(EventHandlerCallRef next, EventRef event, void* userData);

struct EventTypeSpec {
    OSType eventClass;
    UInt32 eventKind;
};
struct EventHotKeyID {
    OSType signature;
    UInt32 id;
};

enum { eventNotHandledErr = -9874 };
enum : OSType {
    kEventClassKeyboard = 0x6B657962,     // 'keyb'
    kEventParamDirectObject = 0x2D2D2D2D, // '----'
    typeEventHotKeyID = 0x686B6964,       // 'hkid'
};
enum : UInt32 { kEventHotKeyPressed = 5 };

EventTargetRef GetApplicationEventTarget(void);
OSStatus InstallEventHandler(EventTargetRef target, EventHandlerUPP handler, ItemCount typeCount,
                             const EventTypeSpec* types, void* userData,
                             EventHandlerRef* handlerRef);
OSStatus RemoveEventHandler(EventHandlerRef handler);
OSStatus GetEventParameter(EventRef event, EventParamName name, EventParamType desiredType,
                           EventParamType* actualType, ByteCount size, ByteCount* actualSize,
                           void* data);
EventTime GetEventTime(EventRef event);
EventTime GetCurrentEventTime(void);
OSStatus RegisterEventHotKey(UInt32 keyCode, UInt32 modifiers, EventHotKeyID id,
                             EventTargetRef target, OptionBits options, EventHotKeyRef* hotKey);
OSStatus UnregisterEventHotKey(EventHotKeyRef hotKey);

typedef struct __TISInputSource* TISInputSourceRef; // 10.5, as all that begins with TIS
extern const CFStringRef kTISPropertyUnicodeKeyLayoutData;
extern const CFStringRef kTISNotifySelectedKeyboardInputSourceChanged;
TISInputSourceRef TISCopyCurrentKeyboardInputSource(void);
TISInputSourceRef TISCopyCurrentKeyboardLayoutInputSource(void);
void* TISGetInputSourceProperty(TISInputSourceRef source, CFStringRef key);

struct UCKeyboardLayout;
enum { kUCKeyActionDisplay = 3 };
UInt8 LMGetKbdType(void);
OSStatus UCKeyTranslate(const UCKeyboardLayout* layout, UInt16 virtualKeyCode, UInt16 action,
                        UInt32 modifiers, UInt32 keyboardType, OptionBits options,
                        UInt32* deadKeyState, UniCharCount maximum, UniCharCount* length,
                        UniChar characters[]);

} // extern "C"
