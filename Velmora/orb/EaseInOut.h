#pragma once

namespace velmora {

/// The ease-in-out curve, a cubic from (0, 0) to (1, 1) with control points (0.42, 0) and
/// (0.58, 1). Progress outside 0..1 is clamped; a value that is not a number counts as 0.
[[nodiscard]] double easeInOut(double progress);

/// A number that eases to its goal over a fixed time and can be sent elsewhere on the way, from
/// where it stands.
class EasedNumber {
public:
    /// At rest at `value`; every later change takes `duration` seconds (above 0).
    EasedNumber(double value, double duration);

    /// Stands at `value` at once.
    void jump(double value);

    /// Sets off for `goal`, unless that is where it is already heading.
    void aim(double goal);

    /// Lets `seconds` (0 or more) pass.
    void advance(double seconds);

    [[nodiscard]] double value() const;

    /// True when it stands at its goal.
    [[nodiscard]] bool settled() const { return m_elapsed >= m_duration; }

private:
    double m_from;
    double m_goal;
    double m_duration;
    double m_elapsed;
};

} // namespace velmora
