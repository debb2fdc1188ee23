// SPDX-License-Identifier: Apache-2.0
// Must fail: no matching function for call to 'RegisterEventHotKey'
#import <Carbon/Carbon.h>

OSStatus probe(EventHotKeyRef* hotKey) {
    return RegisterEventHotKey(49, 0x100, 7, GetApplicationEventTarget(), 0, hotKey);
}
