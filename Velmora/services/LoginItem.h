#pragma once

#include "Velmora/platform/LoginService.h"
#include "Velmora/services/LaunchAgent.h"

#include <optional>
#include <string>

namespace velmora {

/// The words under the switch for opening at login, UTF-8.
struct LoginPhrases {
    std::string allow = "Allow Velmora in System Settings → General → Login Items.";
    std::string thisCopyOnly = "Open at login is set for this copy of the app.";
    std::string failed
        = "Couldn't turn on open at login. Move Velmora into Applications and try again.";
};

/// Makes the program open when the user logs in, or not.
///
/// The login service is the first choice. Only where it refuses does a launch agent take its place,
/// and every other outcome removes such an agent, so that at most one of the two opens the program.
/// Nothing is kept in memory: the system's state is the state.
class LoginItem {
public:
    /// What there is to tell the user; no note means nothing.
    struct Status {
        std::optional<std::string> note = std::nullopt;

        bool operator==(Status const&) const = default;
    };

    LoginItem(LoginService& service, ProcessRunner& runner, LaunchAgent::Place place,
        LoginPhrases phrases = {});

    /// Brings the system in line with the setting. Asking again for the same changes nothing.
    /// Blocks for two short runs of the agent tool at most.
    Status apply(bool enabled);

private:
    Status enable();
    Status disable();

    LoginService& m_service;
    LaunchAgent m_agent;
    LoginPhrases m_phrases;
};

} // namespace velmora
