// SPDX-License-Identifier: Apache-2.0
// Must fail: requires a bridged cast
#import <CoreFoundation/CoreFoundation.h>
#import <Foundation/Foundation.h>

NSString* probe(CFStringRef text) { return (NSString*)text; }
