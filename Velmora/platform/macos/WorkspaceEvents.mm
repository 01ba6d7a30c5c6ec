#import <AppKit/AppKit.h>

#include "Velmora/platform/macos/WorkspaceEvents.h"

@interface VelmoraWorkspaceListener : NSObject {
@public
    velmora::PlatformServices::Events const* events;
}
- (void)didWake:(NSNotification*)notification;
- (void)willSleep:(NSNotification*)notification;
- (void)sessionResigned:(NSNotification*)notification;
- (void)sessionBecameActive:(NSNotification*)notification;
- (void)displaysChanged:(NSNotification*)notification;
- (void)reopen:(NSAppleEventDescriptor*)event reply:(NSAppleEventDescriptor*)reply;
@end

@implementation VelmoraWorkspaceListener
- (void)didWake:(NSNotification*)notification
{
    events->didWake();
}
- (void)willSleep:(NSNotification*)notification
{
    events->willSleep();
}
- (void)sessionResigned:(NSNotification*)notification
{
    events->sessionLocked(true);
}
- (void)sessionBecameActive:(NSNotification*)notification
{
    events->sessionLocked(false);
}
- (void)displaysChanged:(NSNotification*)notification
{
    events->displaysChanged();
}
- (void)reopen:(NSAppleEventDescriptor*)event reply:(NSAppleEventDescriptor*)reply
{
    events->reopened();
}
@end

namespace velmora {

WorkspaceEvents::WorkspaceEvents(PlatformServices::Events const& events)
    : m_events(events)
    , m_listener([[VelmoraWorkspaceListener alloc] init])
{
    m_listener->events = &m_events;
    NSNotificationCenter* const workspace = [[NSWorkspace sharedWorkspace] notificationCenter];
    auto const hear
        = [listener = m_listener](NSNotificationCenter* from, NSString* name, SEL selector) {
              [from addObserver:listener selector:selector name:name object:nil];
          };
    hear(workspace, NSWorkspaceDidWakeNotification, @selector(didWake:));
    hear(workspace, NSWorkspaceWillSleepNotification, @selector(willSleep:));
    hear(workspace, NSWorkspaceSessionDidResignActiveNotification, @selector(sessionResigned:));
    hear(workspace, NSWorkspaceSessionDidBecomeActiveNotification, @selector(sessionBecameActive:));
    hear([NSNotificationCenter defaultCenter], NSApplicationDidChangeScreenParametersNotification,
        @selector(displaysChanged:));
    // The toolkit owns the application's delegate, so that the event behind its question is taken.
    [[NSAppleEventManager sharedAppleEventManager] setEventHandler:m_listener
                                                       andSelector:@selector(reopen:reply:)
                                                     forEventClass:kCoreEventClass
                                                        andEventID:kAEReopenApplication];
}

WorkspaceEvents::~WorkspaceEvents()
{
    [[NSAppleEventManager sharedAppleEventManager]
        removeEventHandlerForEventClass:kCoreEventClass
                             andEventID:kAEReopenApplication];
    [[[NSWorkspace sharedWorkspace] notificationCenter] removeObserver:m_listener];
    [[NSNotificationCenter defaultCenter] removeObserver:m_listener];
    [m_listener release];
}

} // namespace velmora
