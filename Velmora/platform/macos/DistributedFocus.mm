#import <Foundation/Foundation.h>

#include "Velmora/platform/macos/DistributedFocus.h"

#include "Velmora/platform/macos/CoreObject.h"
#include "Velmora/platform/macos/FocusUserInfo.h"
#include "Velmora/platform/macos/FoundationText.h"

#include <utility>

namespace {

using velmora::FocusUserInfo;

std::optional<velmora::DefaultsValue> value(NSDictionary* info, char const* key)
{
    id const object = [[info objectForKey:velmora::text(key)] retain];
    return velmora::defaultsValue(velmora::CoreObject(object));
}

} // namespace

@interface VelmoraFocusListener : NSObject {
@public
    std::function<void(velmora::FocusRequest const&)> const* requested;
}
- (void)receive:(NSNotification*)notification;
@end

@implementation VelmoraFocusListener
- (void)receive:(NSNotification*)notification
{
    NSDictionary* const info = [notification userInfo];
    (*requested)(
        velmora::focusRequest(FocusUserInfo{.settings = value(info, FocusUserInfo::settingsKey),
            .preview = value(info, FocusUserInfo::previewKey)}));
}
@end

namespace velmora {

void postFocusRequest(FocusRequest const& request)
{
    @autoreleasepool {
        NSDictionary* const info = [NSDictionary
            dictionaryWithObjectsAndKeys:[NSNumber numberWithBool:request.settings],
            text(FocusUserInfo::settingsKey), [NSNumber numberWithBool:request.preview],
            text(FocusUserInfo::previewKey), nil];
        [[NSDistributedNotificationCenter defaultCenter]
            postNotificationName:text(FocusUserInfo::name)
                          object:nil
                        userInfo:info
              deliverImmediately:YES];
    }
}

DistributedFocus::DistributedFocus(std::function<void(FocusRequest const&)> requested)
    : m_requested(std::move(requested))
    , m_listener([[VelmoraFocusListener alloc] init])
{
    m_listener->requested = &m_requested;
    // Anything less is held back while the program is not the active one, which is nearly always.
    [[NSDistributedNotificationCenter defaultCenter]
               addObserver:m_listener
                  selector:@selector(receive:)
                      name:text(FocusUserInfo::name)
                    object:nil
        suspensionBehavior:NSNotificationSuspensionBehaviorDeliverImmediately];
}

DistributedFocus::~DistributedFocus()
{
    [[NSDistributedNotificationCenter defaultCenter] removeObserver:m_listener];
    [m_listener release];
}

} // namespace velmora
