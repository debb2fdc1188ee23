// SPDX-License-Identifier: Apache-2.0
// Our own declarations of what platform/macos uses of Foundation. The release in a comment is the
// first that has the call; none means every release.
#pragma once

#import <CoreFoundation/CoreFoundation.h>
#import <dispatch/dispatch.h>

typedef signed char BOOL;
#define YES __objc_yes
#define NO __objc_no
#define nil nullptr
typedef long NSInteger;
typedef unsigned long NSUInteger;
typedef double NSTimeInterval;

@class NSString;

@protocol NSObject
- (BOOL)isEqual:(id)object;
- (BOOL)isKindOfClass:(Class)type;
@end

__attribute__((objc_root_class)) @interface NSObject <NSObject>
+ (instancetype)alloc;
+ (Class)class;
@end

typedef NSUInteger NSStringEncoding;
enum : NSStringEncoding { NSUTF8StringEncoding = 4 };

@interface NSString : NSObject
@property (readonly) const char* UTF8String;
@property (readonly, copy) NSString* stringByStandardizingPath;
- (instancetype)initWithBytes:(const void*)bytes
                       length:(NSUInteger)length
                     encoding:(NSStringEncoding)encoding;
@end

@interface NSConstantString : NSString
@end

typedef struct {
    unsigned long state;
    id __unsafe_unretained* itemsPtr;
    unsigned long* mutationsPtr;
    unsigned long extra[5];
} NSFastEnumerationState;

@interface NSArray<ObjectType> : NSObject
@property (readonly) NSUInteger count;
@property (readonly) ObjectType firstObject; // 10.6
- (NSUInteger)countByEnumeratingWithState:(NSFastEnumerationState*)state
                                  objects:(id __unsafe_unretained[])buffer
                                    count:(NSUInteger)length; // 10.5
@end

@interface NSDictionary<KeyType, ObjectType> : NSObject
- (ObjectType)objectForKeyedSubscript:(KeyType)key; // 10.8
@end

@interface NSURL : NSObject
@property (readonly, copy) NSString* path;
+ (NSURL*)fileURLWithPath:(NSString*)path;
+ (instancetype)URLWithString:(NSString*)text;
@end

@interface NSError : NSObject
@property (readonly, copy) NSString* domain;
@property (readonly) NSInteger code;
@property (readonly, copy) NSString* localizedDescription;
@end

@interface NSBundle : NSObject
@property (class, readonly, strong) NSBundle* mainBundle;
@property (readonly, copy) NSString* bundleIdentifier;
@property (readonly, copy) NSString* bundlePath;
+ (instancetype)bundleWithURL:(NSURL*)url; // 10.6
- (id)objectForInfoDictionaryKey:(NSString*)key;
@end

typedef uint64_t NSActivityOptions;
enum : NSActivityOptions { NSActivityUserInitiated = 0x00FFFFFFULL | 1ULL << 20 }; // 10.9

@interface NSProcessInfo : NSObject
@property (class, readonly, strong) NSProcessInfo* processInfo;
@property (readonly) int processIdentifier;
@property (readonly) NSTimeInterval systemUptime; // 10.6
- (id<NSObject>)beginActivityWithOptions:(NSActivityOptions)options
                                  reason:(NSString*)reason; // 10.9
- (void)endActivity:(id<NSObject>)activity;                 // 10.9
@end

typedef NSString* NSNotificationName;

@interface NSNotification : NSObject
@property (readonly, copy) NSDictionary* userInfo;
@end

@interface NSOperationQueue : NSObject
@property (class, readonly, strong) NSOperationQueue* mainQueue; // 10.6
@end

@interface NSNotificationCenter : NSObject
- (id<NSObject>)addObserverForName:(NSNotificationName)name
                            object:(id)object
                             queue:(NSOperationQueue*)queue
                        usingBlock:(void (^)(NSNotification* notification))block; // 10.6
- (void)removeObserver:(id)observer;
@end

enum NSSearchPathDirectory : NSUInteger { NSApplicationSupportDirectory = 14 };
typedef NSUInteger NSSearchPathDomainMask;
enum : NSSearchPathDomainMask { NSUserDomainMask = 1 };

extern "C" {
NSArray<NSString*>* NSSearchPathForDirectoriesInDomains(NSSearchPathDirectory directory,
                                                        NSSearchPathDomainMask domains,
                                                        BOOL expandTilde);
NSString* NSHomeDirectory(void);
NSString* NSTemporaryDirectory(void);
} // extern "C"
