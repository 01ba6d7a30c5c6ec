#include "Velmora/services/SingleInstance.h"

#include "Velmora/platform/Peers.h"
#include "Velmora/platform/StandardError.h"

#include <thread>

namespace velmora {

namespace {

constexpr int posts = 3;

} // namespace

SingleInstance::SingleInstance(
    Peers& peers, StandardError& standardError, std::chrono::milliseconds pause)
    : m_peers(peers)
    , m_standardError(standardError)
    , m_pause(pause)
{
}

std::shared_ptr<InstanceLock> SingleInstance::claim(
    std::filesystem::path const& home, FocusRequest const& request)
{
    if (m_peers.anyRuns()) {
        signalPeer(request);
        m_peers.activateFirst();
        return nullptr;
    }
    auto lock = InstanceLock::acquire(home);
    if (!lock)
        signalPeer(request);
    return lock;
}

void SingleInstance::signalPeer(FocusRequest const& request)
{
    for (int i = 0; i < posts; ++i) {
        m_peers.post(request);
        std::this_thread::sleep_for(m_pause);
    }
    m_peers.settle();
    m_standardError.write("Velmora: already running — bringing it forward.\n");
}

} // namespace velmora
