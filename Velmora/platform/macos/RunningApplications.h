#pragma once

#include "Velmora/platform/Peers.h"

namespace velmora {

/// The running applications that carry the program's bundle identifier.
class RunningApplications final : public Peers {
public:
    [[nodiscard]] bool anyRuns() override;
    void post(FocusRequest const& request) override;
    /// The system delivers what was posted, also after this process has ended.
    void settle() override { }
    void activateFirst() override;
};

} // namespace velmora
