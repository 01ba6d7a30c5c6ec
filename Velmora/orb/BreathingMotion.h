#pragma once

#include "Velmora/orb/OrbState.h"

/// The orb's cycles. Every time is in seconds since 2001-01-01 00:00:00 UTC: the same instant
/// always gives the same point in a cycle, whenever a reminder started.
namespace velmora::BreathingMotion {

/// x² (3 − 2x), with x clamped to 0..1 first; a value that is not a number counts as 0.
[[nodiscard]] double smoothstep(double x);

/// The body's scale, 1 at rest: up to 1.16 in a reminder, 1.045 between reminders; still with
/// reduced motion (1) and while paused (0.96).
[[nodiscard]] double breathScale(double seconds, OrbState const& state);

/// How far the ripple ring has spread, 0..1; 0 when there is none, as outside a reminder, with
/// reduced motion, and after the first 4.5 s of each 10 s breath.
[[nodiscard]] double rippleProgress(double seconds, OrbState const& state);

/// The outline's phase, in radians; 0 with reduced motion.
[[nodiscard]] double wobblePhase(double seconds, OrbState const& state);

/// The opacity pulse that stands in for breathing when motion is reduced: 0.9..1, else always 1.
[[nodiscard]] double pulse(double seconds, OrbState const& state);

/// The opacity that outside the active hours dims an orb that is not paused: 0.78, else 1.
[[nodiscard]] double dimming(OrbState const& state);

} // namespace velmora::BreathingMotion
