#pragma once

#include "Velmora/platform/FocusRequest.h"
#include "Velmora/platform/posix/InstanceLock.h"

#include <filesystem>
#include <memory>

namespace velmora {

class Startup;

/// What is known before the toolkit starts.
struct Launch {
    FocusRequest request;
    Startup& startup;
    /// The user's home folder.
    std::filesystem::path home;
    std::shared_ptr<InstanceLock> lock;
};

/// Puts the program together, runs its event loop, saves at its end, and returns the exit status.
[[nodiscard]] int runProgram(int argc, char** argv, Launch launch);

} // namespace velmora
