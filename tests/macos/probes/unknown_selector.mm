// SPDX-License-Identifier: Apache-2.0
// Must fail: declares the selector 'openApplicationAtPath:'
#import <AppKit/AppKit.h>

void probe() { [NSWorkspace.sharedWorkspace openApplicationAtPath:@"/Applications/Notes.app"]; }
