#include "Velmora/platform/macos/WorkspaceMotion.h"

#import <AppKit/AppKit.h>

namespace velmora {

bool WorkspaceMotion::reduceMotion() const
{
    return [[NSWorkspace sharedWorkspace] accessibilityDisplayShouldReduceMotion];
}

} // namespace velmora
