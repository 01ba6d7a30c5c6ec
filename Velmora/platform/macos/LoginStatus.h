#pragma once

#include "Velmora/platform/LoginService.h"

namespace velmora {

/// The status that the system's login-item service gives as a number. A number that is not known
/// counts as not found, so that registering is tried.
[[nodiscard]] constexpr LoginService::Status loginStatus(long number)
{
    using Status = LoginService::Status;
    switch (number) {
    case 0:
        return Status::notRegistered;
    case 1:
        return Status::enabled;
    case 2:
        return Status::requiresApproval;
    default:
        return Status::notFound;
    }
}

} // namespace velmora
