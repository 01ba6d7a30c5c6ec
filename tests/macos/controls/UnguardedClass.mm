// refused: 'SMAppService' is only available on macOS 13.0 or newer

#import <ServiceManagement/ServiceManagement.h>

long status()
{
    return [[SMAppService mainAppService] status];
}
