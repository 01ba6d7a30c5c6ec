#pragma once

#include <array>
#include <csignal>

namespace velmora {

/// The signals that ask a program to end.
inline constexpr std::array endingSignals = {SIGTERM, SIGINT, SIGHUP};

/// While there is nothing to save yet, an ending signal ends the process at once, with status 0.
/// Call it first of all in `main`.
void leaveOnEndingSignals();

} // namespace velmora
