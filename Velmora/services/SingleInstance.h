#pragma once

#include "Velmora/platform/FocusRequest.h"
#include "Velmora/platform/posix/InstanceLock.h"

#include <chrono>
#include <filesystem>
#include <memory>

namespace velmora {

class Peers;
class StandardError;

/// Decides whether this copy of the program is the one that runs for the user.
///
/// The system's list of running copies is asked first, and the lock only when that names none. A
/// copy that gives way asks the others to come forward, deliberately three times over, and says so
/// on standard error.
class SingleInstance {
public:
    /// `pause` follows each of the three posts.
    SingleInstance(Peers& peers, StandardError& standardError,
        std::chrono::milliseconds pause = std::chrono::milliseconds(120));

    /// The lock below `home` when this copy is the one; none when it has given way to another, also
    /// when the lock could not be taken for any other reason.
    [[nodiscard]] std::shared_ptr<InstanceLock> claim(
        std::filesystem::path const& home, FocusRequest const& request);

private:
    void signalPeer(FocusRequest const& request);

    Peers& m_peers;
    StandardError& m_standardError;
    std::chrono::milliseconds m_pause;
};

} // namespace velmora
