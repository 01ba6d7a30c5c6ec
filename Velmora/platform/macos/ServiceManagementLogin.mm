#include "Velmora/platform/macos/ServiceManagementLogin.h"

#include "Velmora/platform/macos/LoginStatus.h"

#import <ServiceManagement/ServiceManagement.h>

namespace velmora {

LoginService::Status ServiceManagementLogin::status()
{
    if (@available(macOS 13.0, *))
        return loginStatus([[SMAppService mainAppService] status]);
    return Status::notFound;
}

bool ServiceManagementLogin::registerProgram()
{
    if (@available(macOS 13.0, *))
        return [[SMAppService mainAppService] registerAndReturnError:nil];
    return false;
}

bool ServiceManagementLogin::unregisterProgram()
{
    if (@available(macOS 13.0, *))
        return [[SMAppService mainAppService] unregisterAndReturnError:nil];
    return false;
}

} // namespace velmora
