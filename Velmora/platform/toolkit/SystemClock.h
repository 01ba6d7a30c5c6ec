#pragma once

#include "Velmora/platform/Clock.h"

namespace velmora {

/// The operating system's wall clock.
class SystemClock final : public Clock {
public:
    [[nodiscard]] double now() const override;
};

/// Seconds from 1970-01-01 to 2001-01-01, both 00:00:00 UTC.
inline constexpr double referenceDateSince1970 = 978'307'200.0;

} // namespace velmora
