#pragma once

#include "Velmora/platform/LoginService.h"

namespace velmora {

/// A login service in a state that the test sets; it counts what it was asked to change.
class FakeLoginService final : public LoginService {
public:
    [[nodiscard]] Status status() override { return state; }

    [[nodiscard]] bool registerProgram() override
    {
        ++registrations;
        if (refusesToRegister)
            return false;
        state = afterRegistering;
        return true;
    }

    bool unregisterProgram() override
    {
        ++removals;
        if (refusesToUnregister)
            return false;
        state = Status::notRegistered;
        return true;
    }

    Status state = Status::notRegistered;
    Status afterRegistering = Status::enabled;
    bool refusesToRegister = false;
    bool refusesToUnregister = false;
    int registrations = 0;
    int removals = 0;
};

} // namespace velmora
