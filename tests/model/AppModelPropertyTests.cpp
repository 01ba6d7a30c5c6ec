#include "tests/model/Desk.h"

#include <gtest/gtest.h>

#include <random>

namespace velmora {
namespace {

/// A user, a clock and a calendar that do as they please with one model.
class RandomDay {
public:
    explicit RandomDay(unsigned seed, bool clockStepsBack)
        : m_random(seed)
        , m_clockStepsBack(clockStepsBack)
    {
        m_desk.setLocalTime(number(0, 23), number(0, 59));
        m_model = &m_desk.launch();
        m_model->tick();
    }

    void step()
    {
        advance();
        if (number(0, 9) == 0)
            act();
        bool const mustEnd = m_model->isReminding() && m_startedAt && now() >= *m_startedAt + 30;
        auto const chimes = m_desk.chimes().size();
        bool const before = m_model->isReminding();
        m_model->tick();
        if (!before && m_model->isReminding())
            m_startedAt = now();
        if (mustEnd && !m_clockStepsBack) {
            EXPECT_FALSE(m_model->isReminding()) << "thirty seconds are over";
        }
        EXPECT_LE(m_desk.chimes().size(), chimes + 1) << "at most one effect a tick";
        check();
    }

private:
    void advance()
    {
        int const kind = number(0, 999);
        if (kind < 3)
            m_desk.clock.instant += number(0, 200'000);
        else if (kind < 6 && m_clockStepsBack)
            m_desk.clock.instant -= number(0, 200'000);
        else
            m_desk.clock.instant += 0.8 + number(0, 400) / 1000.0;
    }

    void act()
    {
        switch (number(0, 9)) {
        case 0:
            m_model->togglePaused();
            break;
        case 1:
            m_model->setPaused(number(0, 1) == 1);
            break;
        case 2:
            m_model->velmoraNow();
            m_startedAt = now();
            break;
        case 3:
            m_model->acknowledgeReminder();
            break;
        case 4:
            m_model->setInterval(
                number(-5, 70), number(0, 1) == 1 ? ResetRemaining::yes : ResetRemaining::no);
            break;
        case 5:
            m_model->setIntervalMinutes(number(-5, 70));
            break;
        case 6:
            m_model->setStartMinutes(number(-2000, 4000));
            break;
        case 7:
            m_model->setEndMinutes(number(-2000, 4000));
            break;
        case 8:
            m_model->setAllDay(number(0, 1) == 1);
            break;
        default:
            m_model->persist();
        }
        check();
    }

    void check()
    {
        EXPECT_GE(m_model->remainingSeconds(), 0);
        EXPECT_LE(m_model->remainingSeconds(), m_model->intervalMinutes() * 60);
        EXPECT_GE(m_model->intervalMinutes(), AppModel::shortestInterval);
        EXPECT_LE(m_model->intervalMinutes(), AppModel::longestInterval);
        if (m_model->isReminding()) {
            EXPECT_EQ(m_model->statusLine(), "Velmora");
        } else if (m_model->paused()) {
            EXPECT_EQ(m_model->statusLine(), "Paused");
        }
    }

    double now() const { return m_desk.clock.instant; }
    int number(int from, int to) { return std::uniform_int_distribution(from, to)(m_random); }

    std::mt19937 m_random;
    bool m_clockStepsBack;
    Desk m_desk;
    AppModel* m_model = nullptr;
    std::optional<double> m_startedAt;
};

void live(bool clockStepsBack)
{
    for (unsigned seed = 1; seed <= 60; ++seed) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        RandomDay day(seed, clockStepsBack);
        for (int i = 0; i < 5000 && !testing::Test::HasFailure(); ++i)
            day.step();
    }
}

TEST(AppModelProperties, HoldWhileTimeOnlyGoesForward)
{
    live(false);
}

TEST(AppModelProperties, HoldWhileTheClockAlsoStepsBack)
{
    live(true);
}

} // namespace
} // namespace velmora
