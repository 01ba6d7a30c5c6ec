#pragma once

namespace velmora {

/// The wall clock.
class Clock {
public:
    virtual ~Clock() = default;

    /// Seconds since 2001-01-01 00:00:00 UTC. It may step in either direction when the clock is
    /// set; it is never cached.
    [[nodiscard]] virtual double now() const = 0;
};

} // namespace velmora
