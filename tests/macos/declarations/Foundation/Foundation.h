#pragma once

// The part of Foundation that Velmora uses, written down from its public documentation.

#include "../Availability.h"

#import <CoreFoundation/CoreFoundation.h>
#import <CoreGraphics/CoreGraphics.h>

// The two kinds of Mac differ in it.
#if __OBJC_BOOL_IS_BOOL
using BOOL = bool;
#else
using BOOL = signed char;
#endif
#define YES (static_cast<BOOL>(1))
#define NO (static_cast<BOOL>(0))
#define nil nullptr

using NSInteger = long;
using NSUInteger = unsigned long;
using NSTimeInterval = double;
using NSPoint = CGPoint;
using NSSize = CGSize;
using NSRect = CGRect;

inline NSRect NSMakeRect(CGFloat x, CGFloat y, CGFloat width, CGFloat height)
{
    return {{x, y}, {width, height}};
}

@class NSAppleEventDescriptor, NSDictionary, NSError, NSString, NSURL;

@protocol NSObject
- (instancetype)retain;
- (oneway void)release;
- (instancetype)autorelease;
- (BOOL)isEqual:(id)object;
@end

__attribute__((objc_root_class))
@interface NSObject<NSObject>
+ (instancetype)alloc;
- (instancetype)init;
@end

/// What `for … in` asks of a collection.
struct NSFastEnumerationState {
    unsigned long state;
    id __unsafe_unretained* itemsPtr;
    unsigned long* mutationsPtr;
    unsigned long extra[5];
};

@interface NSArray<Object> : NSObject
- (NSUInteger)countByEnumeratingWithState:(NSFastEnumerationState*)state
                                  objects:(id __unsafe_unretained[])buffer
                                    count:(NSUInteger)length;
@end

@interface NSDictionary : NSObject
+ (instancetype)dictionaryWithObjectsAndKeys:(id)firstObject, ... __attribute__((sentinel));
- (id)objectForKey:(id)key;
@end

enum NSStringEncoding : NSUInteger { NSUTF8StringEncoding = 4 };

@interface NSString : NSObject
- (instancetype)initWithBytes:(void const*)bytes
                       length:(NSUInteger)length
                     encoding:(NSStringEncoding)encoding;
@property (readonly) char const* UTF8String;
@property (readonly) char const* fileSystemRepresentation;
@end

@interface NSNumber : NSObject
+ (NSNumber*)numberWithBool:(BOOL)value;
+ (NSNumber*)numberWithLongLong:(long long)value;
+ (NSNumber*)numberWithDouble:(double)value;
@end

@interface NSURL : NSObject
+ (NSURL*)fileURLWithPath:(NSString*)path;
@property (readonly) NSString* path;
@end

@interface NSBundle : NSObject
@property (class, readonly) NSBundle* mainBundle;
@property (readonly) NSString* bundlePath;
- (NSURL*)URLForResource:(NSString*)name withExtension:(NSString*)extension;
@end

enum NSActivityOptions : std::uint64_t {
    NSActivityUserInitiatedAllowingIdleSystemSleep = 0x00EFFFFF,
};

@interface NSProcessInfo : NSObject
@property (class, readonly) NSProcessInfo* processInfo;
- (id<NSObject>)beginActivityWithOptions:(NSActivityOptions)options reason:(NSString*)reason;
- (void)endActivity:(id<NSObject>)activity;
@end

@interface NSNotification : NSObject
@property (readonly) NSDictionary* userInfo;
@end

@interface NSNotificationCenter : NSObject
@property (class, readonly) NSNotificationCenter* defaultCenter;
- (void)addObserver:(id)observer selector:(SEL)selector name:(NSString*)name object:(id)object;
- (void)removeObserver:(id)observer;
@end

enum NSNotificationSuspensionBehavior : NSUInteger {
    NSNotificationSuspensionBehaviorDrop = 1,
    NSNotificationSuspensionBehaviorCoalesce = 2,
    NSNotificationSuspensionBehaviorHold = 3,
    NSNotificationSuspensionBehaviorDeliverImmediately = 4,
};

@interface NSDistributedNotificationCenter : NSNotificationCenter
+ (NSDistributedNotificationCenter*)defaultCenter;
- (void)addObserver:(id)observer
              selector:(SEL)selector
                  name:(NSString*)name
                object:(NSString*)object
    suspensionBehavior:(NSNotificationSuspensionBehavior)behavior;
- (void)postNotificationName:(NSString*)name
                      object:(NSString*)object
                    userInfo:(NSDictionary*)userInfo
          deliverImmediately:(BOOL)deliverImmediately;
@end

@interface NSTimer : NSObject
+ (NSTimer*)timerWithTimeInterval:(NSTimeInterval)interval
                           target:(id)target
                         selector:(SEL)selector
                         userInfo:(id)userInfo
                          repeats:(BOOL)repeats;
- (void)invalidate;
@end

extern "C" NSString* const NSRunLoopCommonModes;

@interface NSRunLoop : NSObject
@property (class, readonly) NSRunLoop* mainRunLoop;
- (void)addTimer:(NSTimer*)timer forMode:(NSString*)mode;
@end

using AEEventClass = std::uint32_t;
using AEEventID = std::uint32_t;
constexpr AEEventClass kCoreEventClass = 0x61657674; // "aevt"
constexpr AEEventID kAEReopenApplication = 0x72617070; // "rapp"

@interface NSAppleEventManager : NSObject
+ (NSAppleEventManager*)sharedAppleEventManager;
- (void)setEventHandler:(id)handler
            andSelector:(SEL)selector
          forEventClass:(AEEventClass)eventClass
             andEventID:(AEEventID)eventID;
- (void)removeEventHandlerForEventClass:(AEEventClass)eventClass andEventID:(AEEventID)eventID;
@end
