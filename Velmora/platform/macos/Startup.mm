#include "Velmora/platform/Startup.h"

#include "Velmora/platform/macos/RunningApplications.h"

#import <AppKit/AppKit.h>

#include <cstdlib>

namespace velmora {

namespace {

class MacStartup final : public Startup {
public:
    [[nodiscard]] Peers& peers() override { return m_peers; }
    [[nodiscard]] bool displayReachable() const override { return true; }

    void startToolkit(std::function<void()> const& start) override
    {
        // Otherwise the toolkit makes the program a foreground one at its start, and the active one
        // whenever a window is raised.
        setenv("QT_MAC_DISABLE_FOREGROUND_APPLICATION_TRANSFORM", "1", 1);
        setenv("QT_MAC_SET_RAISE_PROCESS", "0", 1);
        start();
        [NSApp setActivationPolicy:NSApplicationActivationPolicyAccessory];
    }

private:
    RunningApplications m_peers;
};

} // namespace

std::unique_ptr<Startup> Startup::make(std::span<char const* const> /*arguments*/)
{
    return std::make_unique<MacStartup>();
}

} // namespace velmora
