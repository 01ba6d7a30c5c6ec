#import <AppKit/AppKit.h>

#include "Velmora/platform/macos/AppKitDesktopPanel.h"

@interface VelmoraPointerWatch : NSObject {
@public
    velmora::DesktopPanel* panel;
}
- (void)tick:(NSTimer*)timer;
@end

@implementation VelmoraPointerWatch
- (void)tick:(NSTimer*)timer
{
    NSPoint const place = [NSEvent mouseLocation];
    if (panel->onPointer)
        panel->onPointer({.x = place.x, .y = place.y});
}
@end

namespace velmora {

namespace {

constexpr double pointerInterval = 1.0 / 30.0;

static_assert(NSWindowStyleMaskNonactivatingPanel == 128);
static_assert(NSWindowAnimationBehaviorNone == 2);
constexpr NSWindowCollectionBehavior everywhere
    = NSWindowCollectionBehaviorCanJoinAllSpaces | NSWindowCollectionBehaviorFullScreenAuxiliary;
static_assert(everywhere == 257);

/// The toolkit makes panels of its windows for tools, and this is one.
NSPanel* panelOf(NSView* view)
{
    return static_cast<NSPanel*>([view window]);
}

/// Whole values are assigned, never joined with the toolkit's: its own hints for a window on top
/// would lift this one above the level of floating panels and bind it to one Space.
void applyTraits(NSPanel* panel)
{
    [panel setStyleMask:NSWindowStyleMaskNonactivatingPanel];
    [panel setOpaque:NO];
    [panel setBackgroundColor:[NSColor clearColor]];
    [panel setHasShadow:NO];
    [panel setFloatingPanel:YES];
    [panel setLevel:NSFloatingWindowLevel];
    [panel setCollectionBehavior:everywhere];
    [panel setMovableByWindowBackground:NO];
    [panel setHidesOnDeactivate:NO];
    [panel setBecomesKeyOnlyIfNeeded:YES];
    [panel setAcceptsMouseMovedEvents:YES];
    [panel setRestorable:NO];
    [panel setAnimationBehavior:NSWindowAnimationBehaviorNone];
}

NSTimer* startPointerTracking(DesktopPanel& panel)
{
    VelmoraPointerWatch* const watch = [[[VelmoraPointerWatch alloc] init] autorelease];
    watch->panel = &panel;
    // The timer keeps the watch alive until it is invalidated.
    NSTimer* const timer = [NSTimer timerWithTimeInterval:pointerInterval
                                                   target:watch
                                                 selector:@selector(tick:)
                                                 userInfo:nil
                                                  repeats:YES];
    [[NSRunLoop mainRunLoop] addTimer:timer forMode:NSRunLoopCommonModes];
    return [timer retain];
}

} // namespace

AppKitDesktopPanel::~AppKitDesktopPanel()
{
    [m_pointerTimer invalidate];
    [m_pointerTimer release];
}

void AppKitDesktopPanel::adopt(std::uintptr_t window)
{
    m_view = reinterpret_cast<NSView*>(window);
    applyTraits(panelOf(m_view));
    setIgnoresPointer(true);
    m_pointerTimer = startPointerTracking(*this);
}

void AppKitDesktopPanel::shown()
{
    applyTraits(panelOf(m_view));
    [panelOf(m_view) orderFrontRegardless];
}

void AppKitDesktopPanel::setIgnoresPointer(bool ignores)
{
    [panelOf(m_view) setIgnoresMouseEvents:ignores];
}

void AppKitDesktopPanel::showResizeCursor()
{
    if (@available(macOS 15.0, *))
        [[NSCursor frameResizeCursorFromPosition:NSCursorFrameResizePositionBottomRight
                                    inDirections:NSCursorFrameResizeDirectionsAll] set];
}

} // namespace velmora
