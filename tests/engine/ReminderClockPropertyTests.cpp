#include "Velmora/engine/ReminderClock.h"

#include <gtest/gtest.h>

#include <optional>
#include <random>

namespace velmora {
namespace {

/// Drives one clock with random calls and checks after each that its promises hold.
class RandomWalk {
public:
    explicit RandomWalk(unsigned seed)
        : m_random(seed)
    {
        m_clock.interval = seconds(1, 3600);
        m_clock.held = seconds(0, 3600);
    }

    void step()
    {
        m_now += m_stepsBackToo && chance(10) ? -seconds(0, 86400) : seconds(0, 120);
        bool const counting = !chance(4);
        switch (m_random() % 8) {
        case 0:
            m_clock.startReminder(m_now);
            m_noticed = m_now;
            break;
        case 1:
            if (m_clock.isReminding())
                m_clock.endReminder(m_now, counting);
            break;
        case 2:
            m_clock.updateInterval(seconds(-10, 3600), m_now, counting, chance(2));
            break;
        case 3:
            if (chance(5))
                m_clock.cancelReminder();
            break;
        default:
            reconcile(counting);
        }
        checkState();
    }

    void allowStepsBack() { m_stepsBackToo = true; }

private:
    void reconcile(bool counting)
    {
        auto const before = m_clock;
        auto const effect = m_clock.reconcile(m_now, counting);
        if (before.isReminding()) {
            bool const over = m_now >= *before.remindingUntil;
            EXPECT_EQ(effect, over ? ReminderEffect::ended : ReminderEffect::none);
            if (!m_stepsBackToo) {
                EXPECT_EQ(over, m_now >= m_noticed + ReminderClock::reminderLength);
            }
            if (over) {
                EXPECT_NEAR(m_clock.remaining(m_now), m_clock.interval, 1e-5);
            }
        } else {
            bool const due = counting && before.remaining(m_now) <= 0;
            EXPECT_EQ(effect, due ? ReminderEffect::started : ReminderEffect::none);
            if (due)
                m_noticed = m_now;
            else {
                EXPECT_NEAR(m_clock.remaining(m_now), before.remaining(m_now), 1e-5);
            }
        }
    }

    void checkState() const
    {
        EXPECT_GE(m_clock.remaining(m_now), 0);
        EXPECT_GT(m_clock.interval, 0);
        EXPECT_FALSE(m_clock.remindingUntil && m_clock.deadline);
        if (m_clock.isReminding()) {
            EXPECT_EQ(m_clock.held, m_clock.interval);
        }
    }

    double seconds(double from, double to)
    {
        return std::uniform_real_distribution(from, to)(m_random);
    }

    bool chance(unsigned oneIn) { return m_random() % oneIn == 0; }

    std::mt19937 m_random;
    ReminderClock m_clock;
    double m_now = 800'000'000.0;
    double m_noticed = 0;
    bool m_stepsBackToo = false;
};

void walk(bool stepsBackToo)
{
    for (unsigned seed = 1; seed <= 400; ++seed) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        RandomWalk random(seed);
        if (stepsBackToo)
            random.allowStepsBack();
        for (int i = 0; i < 500; ++i)
            random.step();
        if (testing::Test::HasFailure())
            return;
    }
}

TEST(ReminderClockProperties, HoldWhileTimeOnlyGoesForward)
{
    walk(false);
}

TEST(ReminderClockProperties, HoldWhileTheClockAlsoStepsBack)
{
    walk(true);
}

} // namespace
} // namespace velmora
