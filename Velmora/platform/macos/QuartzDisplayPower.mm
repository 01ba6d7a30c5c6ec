#include "Velmora/platform/macos/QuartzDisplayPower.h"

#import <CoreGraphics/CoreGraphics.h>

namespace velmora {

bool QuartzDisplayPower::asleep()
{
    return CGDisplayIsAsleep(CGMainDisplayID());
}

} // namespace velmora
