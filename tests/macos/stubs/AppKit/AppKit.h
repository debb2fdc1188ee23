// SPDX-License-Identifier: Apache-2.0
// Our own declarations of what platform/macos uses of AppKit. The release in a comment is the first
// that has the call; none means every release.
#pragma once

#import <Foundation/Foundation.h>

#include <sys/types.h>

typedef NSUInteger NSApplicationActivationOptions; // 10.6
enum : NSApplicationActivationOptions {
    NSApplicationActivateAllWindows = 1 << 0,
    NSApplicationActivateIgnoringOtherApps = 1 << 1, // without effect from 14.0 on
};

@interface NSRunningApplication : NSObject // 10.6
@property (class, readonly, strong) NSRunningApplication* currentApplication;
@property (readonly, getter=isTerminated) BOOL terminated;
@property (readonly, getter=isHidden) BOOL hidden;
@property (readonly, getter=isActive) BOOL active;
@property (readonly, copy) NSString* localizedName;
@property (readonly, copy) NSString* bundleIdentifier;
@property (readonly, copy) NSURL* bundleURL;
@property (readonly) pid_t processIdentifier;
+ (instancetype)runningApplicationWithProcessIdentifier:(pid_t)pid;
- (BOOL)activateWithOptions:(NSApplicationActivationOptions)options;
- (BOOL)hide;
- (BOOL)terminate;
- (BOOL)forceTerminate;
@end

@interface NSApplication : NSObject
@property (class, readonly, strong) __kindof NSApplication* sharedApplication;
- (void)activateIgnoringOtherApps:(BOOL)flag;                               // deprecated in 14.0
- (void)activate;                                                           // 14.0
- (void)yieldActivationToApplication:(NSRunningApplication*)application;    // 14.0
@end

@interface NSWorkspaceOpenConfiguration : NSObject // 10.15
@property BOOL activates;
+ (instancetype)configuration;
@end

@interface NSWorkspace : NSObject
@property (class, readonly, strong) NSWorkspace* sharedWorkspace;
@property (readonly, strong) NSNotificationCenter* notificationCenter;
@property (readonly, copy) NSArray<NSRunningApplication*>* runningApplications; // 10.6
@property (readonly, strong) NSRunningApplication* frontmostApplication;        // 10.7
- (NSURL*)URLForApplicationToOpenURL:(NSURL*)url;                               // 10.6
- (void)openApplicationAtURL:(NSURL*)applicationURL
               configuration:(NSWorkspaceOpenConfiguration*)configuration
           completionHandler:(void (^)(NSRunningApplication* application,
                                       NSError* error))completionHandler; // 10.15
- (void)openURL:(NSURL*)url
        configuration:(NSWorkspaceOpenConfiguration*)configuration
    completionHandler:(void (^)(NSRunningApplication* application,
                                NSError* error))completionHandler; // 10.15
@end

extern "C" {
extern NSNotificationName const NSWorkspaceDidActivateApplicationNotification; // 10.6
extern NSNotificationName const NSWorkspaceDidTerminateApplicationNotification;
extern NSString* const NSWorkspaceApplicationKey; // 10.6
} // extern "C"
