#pragma once

#include "Velmora/platform/Clock.h"

namespace velmora {

/// A clock that stands where the test put it.
class FakeClock final : public Clock {
public:
    explicit FakeClock(double start = 0)
        : instant(start)
    {
    }

    [[nodiscard]] double now() const override { return instant; }

    /// Seconds since 2001-01-01 00:00:00 UTC.
    double instant;
};

} // namespace velmora
