#include "Velmora/platform/macos/RunningApplications.h"

#include "Velmora/platform/macos/DistributedFocus.h"
#include "Velmora/platform/macos/RunningCopy.h"

#import <AppKit/AppKit.h>

#include <unistd.h>

namespace velmora {

namespace {

std::vector<int> others()
{
    std::vector<int> listed;
    for (NSRunningApplication* copy in
        [NSRunningApplication runningApplicationsWithBundleIdentifier:@"com.local.velmora"])
        listed.push_back([copy processIdentifier]);
    return otherInstances(listed, getpid());
}

} // namespace

bool RunningApplications::anyRuns()
{
    @autoreleasepool {
        return !others().empty();
    }
}

void RunningApplications::post(FocusRequest const& request)
{
    postFocusRequest(request);
}

void RunningApplications::activateFirst()
{
    @autoreleasepool {
        for (int const process : firstOf(others()))
            [[NSRunningApplication runningApplicationWithProcessIdentifier:process]
                activateWithOptions:NSApplicationActivateAllWindows];
    }
}

} // namespace velmora
