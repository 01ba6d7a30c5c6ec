#pragma once

#include "Velmora/platform/LoginService.h"

namespace velmora {

/// The system's login-item service, for the program itself. A system that is too old to have it
/// refuses registration.
class ServiceManagementLogin final : public LoginService {
public:
    [[nodiscard]] Status status() override;
    [[nodiscard]] bool registerProgram() override;
    bool unregisterProgram() override;
};

} // namespace velmora
