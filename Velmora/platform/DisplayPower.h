#pragma once

namespace velmora {

/// Whether the displays are lit.
class DisplayPower {
public:
    virtual ~DisplayPower() = default;

    /// Whether the displays are switched off or blanked. To be called about once a second: each
    /// call answers what was known at the one before and asks anew, so that nobody has to wait.
    [[nodiscard]] virtual bool asleep() = 0;
};

} // namespace velmora
