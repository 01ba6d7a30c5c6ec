#import <Foundation/Foundation.h>

#include "Velmora/platform/macos/ProcessActivity.h"

namespace velmora {

static_assert(NSActivityUserInitiatedAllowingIdleSystemSleep == 0x00EFFFFF);

ProcessActivity::ProcessActivity()
    : m_token([[[NSProcessInfo processInfo]
        beginActivityWithOptions:NSActivityUserInitiatedAllowingIdleSystemSleep
                          reason:@"Keep the breathing reminder on time"] retain])
{
}

ProcessActivity::~ProcessActivity()
{
    [[NSProcessInfo processInfo] endActivity:m_token];
    [m_token release];
}

} // namespace velmora
