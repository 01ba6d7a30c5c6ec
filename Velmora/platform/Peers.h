#pragma once

#include "Velmora/platform/FocusRequest.h"

namespace velmora {

/// The other running copies of the program, as the system knows them.
class Peers {
public:
    virtual ~Peers() = default;

    /// Whether the system lists another running copy; false on systems that keep no such list.
    [[nodiscard]] virtual bool anyRuns() = 0;

    /// Asks every running copy once to come forward, and returns at once.
    virtual void post(FocusRequest const& request) = 0;

    /// Returns when everything posted is on its way, or after a second at most.
    virtual void settle() = 0;

    /// Brings the first listed copy with all its windows to the front.
    virtual void activateFirst() = 0;
};

} // namespace velmora
