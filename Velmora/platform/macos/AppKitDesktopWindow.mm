#include "Velmora/platform/macos/AppKitDesktopWindow.h"

#import <AppKit/AppKit.h>

namespace velmora {

namespace {

constexpr NSWindowStyleMask style
    = NSWindowStyleMaskTitled | NSWindowStyleMaskClosable | NSWindowStyleMaskFullSizeContentView;
static_assert(style == 32771);

} // namespace

void AppKitDesktopWindow::joinEveryDesktop(std::uintptr_t window)
{
    NSWindow* const settings = [reinterpret_cast<NSView*>(window) window];
    [settings setStyleMask:style];
    [settings setOpaque:NO];
    [settings setTitlebarAppearsTransparent:YES];
    [settings setTitleVisibility:NSWindowTitleHidden];
    [settings setTitlebarSeparatorStyle:NSTitlebarSeparatorStyleNone];
    [settings setBackgroundColor:[NSColor colorWithSRGBRed:0.93 green:0.94 blue:0.90 alpha:1.0]];
    [settings setAppearance:[NSAppearance appearanceNamed:NSAppearanceNameAqua]];
    [settings setLevel:NSFloatingWindowLevel];
    [settings setCollectionBehavior:NSWindowCollectionBehaviorCanJoinAllSpaces |
              NSWindowCollectionBehaviorFullScreenAuxiliary];
    [settings setHidesOnDeactivate:NO];
    [settings setRestorable:NO];
    [settings setAnimationBehavior:NSWindowAnimationBehaviorNone];
    // The toolkit was told not to do this of its own accord.
    [NSApp activateIgnoringOtherApps:YES];
}

} // namespace velmora
