#pragma once

#include "Velmora/engine/ReminderEffect.h"

#include <algorithm>

namespace velmora {

/// The reminder clock a second time, as its table of states has it: one field says the state, and
/// every row of the table is a line.
class TableClock {
public:
    enum class State { frozen, running, reminding };

    TableClock(double interval, double held)
        : m_interval(interval)
        , m_left(held)
    {
    }

    [[nodiscard]] State state() const { return m_state; }
    [[nodiscard]] double interval() const { return m_interval; }
    /// When the countdown or the reminder ends.
    [[nodiscard]] double end() const { return m_end; }

    [[nodiscard]] double remaining(double now) const
    {
        switch (m_state) {
        case State::frozen:
            return atLeastNothing(m_left);
        case State::running:
            return atLeastNothing(m_end - now);
        case State::reminding:
            break;
        }
        return atLeastNothing(m_interval);
    }

    ReminderEffect reconcile(double now, bool counting)
    {
        if (m_state == State::reminding) {
            if (now < m_end)
                return ReminderEffect::none;
            end(now, counting);
            return ReminderEffect::ended;
        }
        if (counting) {
            double const due = m_state == State::running ? m_end : now + atLeastNothing(m_left);
            run(due);
            if (now < due)
                return ReminderEffect::none;
            start(now);
            return ReminderEffect::started;
        }
        freeze(remainingOrHeld(now));
        return ReminderEffect::none;
    }

    void start(double now)
    {
        m_state = State::reminding;
        m_end = now + 30;
    }

    void end(double now, bool counting)
    {
        if (counting)
            run(now + m_interval);
        else
            freeze(m_interval);
    }

    void cancel() { freeze(m_interval); }

    void update(double seconds, double now, bool counting, bool reset)
    {
        double const left = remaining(now);
        m_interval = seconds > 1 ? seconds : 1;
        if (m_state == State::reminding)
            return;
        double const kept = reset ? m_interval : std::min(m_interval, left);
        if (counting)
            run(now + kept);
        else
            freeze(kept);
    }

private:
    static double atLeastNothing(double seconds) { return seconds < 0 ? 0 : seconds; }

    /// A countdown that stands stays exactly where it is, also below nothing.
    [[nodiscard]] double remainingOrHeld(double now) const
    {
        return m_state == State::running ? remaining(now) : m_left;
    }

    void run(double end)
    {
        m_state = State::running;
        m_end = end;
    }

    void freeze(double left)
    {
        m_state = State::frozen;
        m_left = left;
    }

    State m_state = State::frozen;
    double m_interval;
    double m_left;
    double m_end = 0;
};

} // namespace velmora
