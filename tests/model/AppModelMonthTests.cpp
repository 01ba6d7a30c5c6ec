#include "tests/model/Desk.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <random>

namespace velmora {
namespace {

constexpr double day = 86'400;

/// Thirty days of one user, second by second: ticks, deeds at random, nights asleep, a clock that
/// is set and a zone that is travelled through.
class Month {
public:
    explicit Month(unsigned seed)
        : m_random(seed)
    {
        launch();
    }

    void live()
    {
        while (m_lived < 30 * day && !testing::Test::HasFailure()) {
            pass();
            bool const ringing = m_model->isReminding();
            auto const chimes = m_desk.chimes().size();
            m_model->tick();
            ++m_ticks;
            reminded(ringing, chimes);
            if (one(600))
                act();
            check();
            m_desk.defaults.writes.clear();
        }
    }

    [[nodiscard]] long ticks() const { return m_ticks; }
    [[nodiscard]] long reminders() const { return m_reminders; }
    [[nodiscard]] long launches() const { return m_launches; }

private:
    void launch()
    {
        ++m_launches;
        m_model = &m_desk.launch();
        m_ringsUntil.reset();
    }

    /// A second of the machine, or a sleep; and now and then somebody sets the clock.
    void pass()
    {
        double seconds = 1 + number(-200, 200) / 1000.0;
        if (one(20'000))
            seconds = number(60, 10 * 3600);
        m_lived += seconds;
        m_desk.clock.instant += seconds;
        if (one(100'000)) {
            double const step = number(-40, 40) * 3600.0 * (one(5) ? 365 : 1);
            m_desk.clock.instant += step;
            m_ringsUntil.reset();
        }
        if (one(50'000))
            m_desk.calendar.utcOffsetMinutes = number(-56, 56) * 15;
    }

    void reminded(bool before, std::size_t chimes)
    {
        if (!before && m_model->isReminding()) {
            ++m_reminders;
            m_ringsUntil = now() + 30;
        }
        // Every tick rings at most once, and only for a reminder that begins.
        EXPECT_LE(m_desk.chimes().size() - chimes, before ? 0U : 1U);
        if (m_ringsUntil && now() >= *m_ringsUntil) {
            EXPECT_FALSE(m_model->isReminding()) << "thirty seconds are over";
            m_ringsUntil.reset();
        }
        EXPECT_TRUE(!m_model->isReminding() || before || m_model->inActiveHours());
    }

    void act()
    {
        m_ringsUntil.reset();
        switch (number(0, 10)) {
        case 0:
            m_model->togglePaused();
            break;
        case 1:
            m_model->velmoraNow();
            break;
        case 2:
            m_model->acknowledgeReminder();
            break;
        case 3:
            m_model->setInterval(number(0, 70), one(2) ? ResetRemaining::yes : ResetRemaining::no);
            break;
        case 4:
            m_model->setStartMinutes(number(-100, 1500));
            break;
        case 5:
            m_model->setEndMinutes(number(-100, 1500));
            break;
        case 6:
            m_model->setAllDay(!one(3));
            break;
        case 7:
            m_model->setSoundEnabled(!one(3));
            break;
        case 8:
            m_model->applySize(number(0, 400), std::nullopt);
            m_model->saveOrigin({.x = number(-2000, 2000) / 2.0, .y = number(-2000, 2000) / 2.0});
            break;
        case 9:
            relaunch();
            break;
        default:
            // Somebody who paused comes back.
            m_model->setPaused(false);
        }
    }

    /// Ends the program in order and starts it again: nothing may be lost.
    void relaunch()
    {
        m_model->persist();
        auto const interval = m_model->intervalMinutes();
        auto const paused = m_model->paused();
        auto const size = m_model->widgetSize();
        auto const origin = m_model->widgetOrigin();
        auto const left = m_model->remainingSeconds();
        launch();
        EXPECT_EQ(m_model->intervalMinutes(), interval);
        EXPECT_EQ(m_model->paused(), paused);
        EXPECT_EQ(m_model->widgetSize(), size);
        EXPECT_EQ(m_model->widgetOrigin(), origin);
        EXPECT_EQ(m_model->remainingSeconds(), left < 1 ? 15 : left);
    }

    void check()
    {
        EXPECT_GE(m_model->remainingSeconds(), 0);
        EXPECT_LE(m_model->remainingSeconds(), m_model->intervalMinutes() * 60);
        EXPECT_GE(m_model->widgetSize(), AppModel::minimumSize);
        EXPECT_LE(m_model->widgetSize(), m_model->maxWidgetSize(std::nullopt));
        // Between two saves at most a minute of the countdown passes, unless it stands. A clock
        // that was set back prolongs it beyond the interval, which a launch would cut.
        auto const stored = m_desk.defaults.number("heldRemaining");
        if (stored && m_model->inActiveHours() && !m_model->paused() && !m_model->isReminding()) {
            auto const whole = 60.0 * static_cast<double>(m_model->intervalMinutes());
            EXPECT_LE(
                std::min(*stored, whole) - static_cast<double>(m_model->remainingSeconds()), 62);
        }
    }

    bool one(int in) { return number(1, in) == 1; }
    int number(int from, int to) { return std::uniform_int_distribution(from, to)(m_random); }
    [[nodiscard]] double now() const { return m_desk.clock.instant; }

    std::mt19937 m_random;
    Desk m_desk;
    AppModel* m_model = nullptr;
    std::optional<double> m_ringsUntil;
    double m_lived = 0;
    long m_ticks = 0;
    long m_reminders = 0;
    long m_launches = 0;
};

TEST(AppModelMonth, ThirtyDaysOfTicksDeedsSleepsAndSetClocksLoseNothing)
{
    Month month(1);
    month.live();
    EXPECT_GT(month.ticks(), 1'000'000);
    EXPECT_GT(month.reminders(), 500);
    EXPECT_GT(month.launches(), 100);
    std::printf("%ld ticks, %ld reminders, %ld launches\n", month.ticks(), month.reminders(),
        month.launches());
}

} // namespace
} // namespace velmora
