#pragma once

namespace velmora {

/// The system's list of programs that start with the user's session, as far as this program's own
/// entry goes.
class LoginService {
public:
    enum class Status {
        notRegistered = 0,
        enabled = 1,
        /// Registered, but the user has forbidden it or has yet to allow it.
        requiresApproval = 2,
        notFound = 3,
    };

    virtual ~LoginService() = default;

    /// Asked of the system anew at every call.
    [[nodiscard]] virtual Status status() = 0;

    /// Makes the program start with the session; false when the system refuses.
    [[nodiscard]] virtual bool registerProgram() = 0;

    /// Takes the program off the list; false when the system refuses.
    virtual bool unregisterProgram() = 0;
};

} // namespace velmora
