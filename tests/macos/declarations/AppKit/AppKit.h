#pragma once

// The part of AppKit that Velmora uses, written down from its public documentation.

#import <Foundation/Foundation.h>

@class NSMenu, NSWindow;

enum NSApplicationActivationPolicy : NSInteger { NSApplicationActivationPolicyAccessory = 1 };
enum NSApplicationActivationOptions : NSUInteger { NSApplicationActivateAllWindows = 1 };

@interface NSApplication : NSObject
- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)policy;
- (void)activateIgnoringOtherApps:(BOOL)ignoring;
- (void)setMainMenu:(NSMenu*)menu;
@end

extern "C" NSApplication* NSApp;
extern "C" NSString* const NSApplicationDidChangeScreenParametersNotification;

@interface NSRunningApplication : NSObject
+ (NSArray<NSRunningApplication*>*)runningApplicationsWithBundleIdentifier:(NSString*)identifier;
+ (instancetype)runningApplicationWithProcessIdentifier:(int)process;
@property (readonly) int processIdentifier;
- (BOOL)activateWithOptions:(NSApplicationActivationOptions)options;
@end

@interface NSWorkspace : NSObject
@property (class, readonly) NSWorkspace* sharedWorkspace;
@property (readonly) NSNotificationCenter* notificationCenter;
@property (readonly) BOOL accessibilityDisplayShouldReduceMotion VELMORA_SINCE(10.12);
@end

extern "C" NSString* const NSWorkspaceDidWakeNotification;
extern "C" NSString* const NSWorkspaceWillSleepNotification;
extern "C" NSString* const NSWorkspaceSessionDidBecomeActiveNotification;
extern "C" NSString* const NSWorkspaceSessionDidResignActiveNotification;

@interface NSEvent : NSObject
@property (class, readonly) NSPoint mouseLocation;
@end

@interface NSColor : NSObject
@property (class, readonly) NSColor* clearColor;
+ (NSColor*)colorWithSRGBRed:(CGFloat)red
                       green:(CGFloat)green
                        blue:(CGFloat)blue
                       alpha:(CGFloat)alpha;
@end

extern "C" NSString* const NSAppearanceNameAqua;

@interface NSAppearance : NSObject
+ (NSAppearance*)appearanceNamed:(NSString*)name;
@end

@interface NSView : NSObject
@property (readonly) NSWindow* window;
@end

// Sets of bits are plain numbers there, so that they can be joined.
using NSWindowStyleMask = NSUInteger;
constexpr NSWindowStyleMask NSWindowStyleMaskTitled = 1U << 0U;
constexpr NSWindowStyleMask NSWindowStyleMaskClosable = 1U << 1U;
constexpr NSWindowStyleMask NSWindowStyleMaskFullSizeContentView = 1U << 15U;
constexpr NSWindowStyleMask NSWindowStyleMaskNonactivatingPanel = 1U << 7U;
using NSWindowCollectionBehavior = NSUInteger;
constexpr NSWindowCollectionBehavior NSWindowCollectionBehaviorCanJoinAllSpaces = 1U << 0U;
constexpr NSWindowCollectionBehavior NSWindowCollectionBehaviorFullScreenAuxiliary = 1U << 8U;
using NSWindowLevel = NSInteger;
constexpr NSWindowLevel NSFloatingWindowLevel = 3;
enum NSWindowAnimationBehavior : NSInteger { NSWindowAnimationBehaviorNone = 2 };
enum NSWindowTitleVisibility : NSInteger { NSWindowTitleHidden = 1 };
enum NSTitlebarSeparatorStyle : NSInteger { NSTitlebarSeparatorStyleNone = 1 };

@interface NSWindow : NSObject
- (void)setStyleMask:(NSWindowStyleMask)mask;
- (void)setOpaque:(BOOL)opaque;
- (void)setBackgroundColor:(NSColor*)colour;
- (void)setHasShadow:(BOOL)shadow;
- (void)setLevel:(NSWindowLevel)level;
- (void)setCollectionBehavior:(NSWindowCollectionBehavior)behavior;
- (void)setMovableByWindowBackground:(BOOL)movable;
- (void)setHidesOnDeactivate:(BOOL)hides;
- (void)setAcceptsMouseMovedEvents:(BOOL)accepts;
- (void)setIgnoresMouseEvents:(BOOL)ignores;
- (void)setRestorable:(BOOL)restorable;
- (void)setAnimationBehavior:(NSWindowAnimationBehavior)behavior;
- (void)setTitlebarAppearsTransparent:(BOOL)transparent VELMORA_SINCE(10.10);
- (void)setTitleVisibility:(NSWindowTitleVisibility)visibility VELMORA_SINCE(10.10);
- (void)setTitlebarSeparatorStyle:(NSTitlebarSeparatorStyle)style VELMORA_SINCE(11.0);
- (void)setAppearance:(NSAppearance*)appearance;
- (void)orderFrontRegardless;
- (void)performClose:(id)sender;
@end

@interface NSPanel : NSWindow
- (void)setFloatingPanel:(BOOL)floating;
- (void)setBecomesKeyOnlyIfNeeded:(BOOL)onlyIfNeeded;
@end

enum NSCursorFrameResizePosition : NSUInteger { NSCursorFrameResizePositionBottomRight = 10 };
enum NSCursorFrameResizeDirections : NSUInteger { NSCursorFrameResizeDirectionsAll = 3 };

@interface NSCursor : NSObject
+ (NSCursor*)frameResizeCursorFromPosition:(NSCursorFrameResizePosition)position
                              inDirections:(NSCursorFrameResizeDirections)directions
    VELMORA_SINCE(15.0);
- (void)set;
@end

@interface NSImage : NSObject
+ (instancetype)imageWithSystemSymbolName:(NSString*)name
                 accessibilityDescription:(NSString*)description VELMORA_SINCE(11.0);
@property (readonly) NSSize size;
- (void)drawInRect:(NSRect)rect;
@end

@interface NSGraphicsContext : NSObject
+ (NSGraphicsContext*)graphicsContextWithCGContext:(CGContextRef)context flipped:(BOOL)flipped;
+ (void)setCurrentContext:(NSGraphicsContext*)context;
+ (void)saveGraphicsState;
+ (void)restoreGraphicsState;
@end

@interface NSMenuItem : NSObject
+ (NSMenuItem*)separatorItem;
- (void)setTarget:(id)target;
- (void)setSubmenu:(NSMenu*)menu;
@end

@interface NSMenu : NSObject
- (instancetype)initWithTitle:(NSString*)title;
- (void)addItem:(NSMenuItem*)item;
- (NSMenuItem*)addItemWithTitle:(NSString*)title action:(SEL)action keyEquivalent:(NSString*)key;
@end
