#pragma once

namespace velmora {

/// Something that fades in and out, as a value advanced by instants (in seconds).
///
/// It eases in and out. Turned around half-way it starts from where it is. An instant before its
/// start, as after the clock was set back, counts as its end.
class Fade {
public:
    /// `duration` in seconds.
    explicit constexpr Fade(double duration, bool shown = false)
        : m_duration(duration)
        , m_from(shown ? 1 : 0)
        , m_shown(shown)
    {
    }

    /// From now on it goes to shown, or to hidden.
    void set(bool shown, double now);
    /// 0 hidden ... 1 shown.
    [[nodiscard]] double at(double now) const;
    /// Whether it still changes after this instant.
    [[nodiscard]] bool moving(double now) const;

private:
    [[nodiscard]] double target() const { return m_shown ? 1 : 0; }

    double m_duration;
    double m_start = 0;
    double m_from;
    bool m_shown;
};

} // namespace velmora
