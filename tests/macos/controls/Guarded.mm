// accepted

#import <ServiceManagement/ServiceManagement.h>

long status()
{
    if (@available(macOS 13.0, *))
        return [[SMAppService mainAppService] status];
    return 0;
}
