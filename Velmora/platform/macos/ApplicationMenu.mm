#import <AppKit/AppKit.h>

#include "Velmora/platform/macos/ApplicationMenu.h"

#include <utility>

@interface VelmoraMenuTarget : NSObject {
@public
    velmora::ApplicationMenu::Actions const* actions;
}
- (void)openSettings:(id)sender;
- (void)quit:(id)sender;
@end

@implementation VelmoraMenuTarget
- (void)openSettings:(id)sender
{
    actions->openSettings();
}
- (void)quit:(id)sender
{
    actions->quit();
}
@end

namespace velmora {

ApplicationMenu::ApplicationMenu(Actions actions)
    : m_actions(std::move(actions))
    , m_target([[VelmoraMenuTarget alloc] init])
{
    m_target->actions = &m_actions;
    NSMenu* const menu = [[[NSMenu alloc] initWithTitle:@"Velmora"] autorelease];
    auto const add = [menu](NSString* title, SEL action, NSString* key, id target) {
        [[menu addItemWithTitle:title action:action keyEquivalent:key] setTarget:target];
    };
    add(@"Settings…", @selector(openSettings:), @",", m_target);
    // Without a target it goes to whatever window has the keyboard.
    add(@"Close", @selector(performClose:), @"w", nil);
    [menu addItem:[NSMenuItem separatorItem]];
    add(@"Quit Velmora", @selector(quit:), @"q", m_target);

    NSMenu* const bar = [[[NSMenu alloc] initWithTitle:@""] autorelease];
    [[bar addItemWithTitle:@"Velmora" action:nullptr keyEquivalent:@""] setSubmenu:menu];
    [NSApp setMainMenu:bar];
}

ApplicationMenu::~ApplicationMenu()
{
    [NSApp setMainMenu:nil];
    [m_target release];
}

} // namespace velmora
