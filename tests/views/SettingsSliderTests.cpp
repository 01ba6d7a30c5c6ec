#include "Velmora/views/SettingsSlider.h"
#include "tests/views/FormDesk.h"

#include <gtest/gtest.h>

#include <QTest>
#include <QWheelEvent>

namespace velmora {
namespace {

/// The volume slider of an open form, with the chimes that were heard.
class ChimeVolume : public testing::Test {
protected:
    void SetUp() override
    {
        m_desk.open();
        slider().setFocus();
    }

    [[nodiscard]] SettingsSlider& slider() const
    {
        return m_desk.control<SettingsSlider>("Chime volume");
    }
    [[nodiscard]] std::vector<float> heard() const { return m_desk.chimes(); }
    [[nodiscard]] double volume() const { return m_desk.model().soundVolume(); }
    [[nodiscard]] QPoint at(double share) const
    {
        return {static_cast<int>(slider().width() * share), slider().height() / 2};
    }

    void turnWheel(int notches)
    {
        QPointF const middle(at(0.5));
        QWheelEvent event(middle, slider().mapToGlobal(middle), {}, {0, 120 * notches},
            Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&slider(), &event);
    }

private:
    FormDesk m_desk;
};

TEST_F(ChimeVolume, TheChimePlaysOnceWhenADragEnds)
{
    QTest::mousePress(&slider(), Qt::LeftButton, {}, at(0.5));
    for (double const share : {0.6, 0.7, 0.8, 0.9})
        QTest::mouseMove(&slider(), at(share));
    EXPECT_TRUE(heard().empty());
    EXPECT_GT(volume(), 0.8);

    QTest::mouseRelease(&slider(), Qt::LeftButton, {}, at(0.9));
    ASSERT_EQ(heard().size(), 1U);
    EXPECT_FLOAT_EQ(heard().front(), static_cast<float>(volume()));
}

TEST_F(ChimeVolume, APressBesideTheKnobBringsItUnderThePointer)
{
    QTest::mouseClick(&slider(), Qt::LeftButton, {}, at(0.5));
    EXPECT_NEAR(volume(), 0.55, 0.01);
    QTest::mouseClick(&slider(), Qt::LeftButton, {}, at(1.0));
    EXPECT_DOUBLE_EQ(volume(), 1.0);
    QTest::mouseClick(&slider(), Qt::LeftButton, {}, at(0.0));
    EXPECT_DOUBLE_EQ(volume(), 0.1);
}

TEST_F(ChimeVolume, AKnobTakenOffCentreDoesNotJump)
{
    double const before = volume();
    double const knob = (before - 0.1) / 0.9;
    QPoint const edge = at(knob) + QPoint(5, 0);
    QTest::mousePress(&slider(), Qt::LeftButton, {}, edge);
    EXPECT_EQ(volume(), before);
    QTest::mouseRelease(&slider(), Qt::LeftButton, {}, edge);
    EXPECT_NEAR(volume(), before, 1e-9);
}

TEST_F(ChimeVolume, OtherButtonsMoveNothing)
{
    double const before = volume();
    QTest::mouseClick(&slider(), Qt::RightButton, {}, at(0.9));
    QTest::mouseClick(&slider(), Qt::MiddleButton, {}, at(0.9));
    EXPECT_EQ(volume(), before);
    EXPECT_TRUE(heard().empty());
}

TEST_F(ChimeVolume, AKeyEndsWhenItIsReleased)
{
    QTest::keyPress(&slider(), Qt::Key_Right);
    EXPECT_NEAR(volume(), 0.60, 1e-9);
    EXPECT_TRUE(heard().empty());
    QTest::keyRelease(&slider(), Qt::Key_Right);
    EXPECT_EQ(heard().size(), 1U);
}

TEST_F(ChimeVolume, AKeyHeldDownPlaysTheChimeOnce)
{
    QTest::keyPress(&slider(), Qt::Key_Right);
    for (int repeat = 0; repeat < 3; ++repeat) {
        QKeyEvent up(QEvent::KeyRelease, Qt::Key_Right, Qt::NoModifier, {}, true);
        QKeyEvent down(QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier, {}, true);
        QApplication::sendEvent(&slider(), &up);
        QApplication::sendEvent(&slider(), &down);
    }
    EXPECT_NEAR(volume(), 0.75, 1e-9);
    EXPECT_TRUE(heard().empty());
    QTest::keyRelease(&slider(), Qt::Key_Right);
    EXPECT_EQ(heard().size(), 1U);
}

TEST_F(ChimeVolume, AKeyThatChangesNothingPlaysNothing)
{
    QTest::keyClick(&slider(), Qt::Key_End);
    ASSERT_EQ(heard().size(), 1U);
    QTest::keyClick(&slider(), Qt::Key_End);
    QTest::keyClick(&slider(), Qt::Key_Shift);
    EXPECT_EQ(heard().size(), 1U);
}

TEST_F(ChimeVolume, PageKeysGoFurtherThanArrows)
{
    QTest::keyClick(&slider(), Qt::Key_PageUp);
    EXPECT_NEAR(volume(), 0.70, 1e-9);
    QTest::keyClick(&slider(), Qt::Key_PageDown);
    EXPECT_NEAR(volume(), 0.55, 1e-9);
}

TEST_F(ChimeVolume, TheWheelEndsWhenItComesToRest)
{
    turnWheel(1);
    turnWheel(1);
    double const turned = volume();
    EXPECT_GT(turned, 0.55);
    EXPECT_TRUE(heard().empty());
    EXPECT_TRUE(QTest::qWaitFor([this] { return heard().size() == 1; }, 3000));
    EXPECT_EQ(volume(), turned);
}

TEST_F(ChimeVolume, WithoutTheFocusTheWheelIsLeftToTheForm)
{
    slider().clearFocus();
    turnWheel(1);
    EXPECT_EQ(volume(), 0.55);
}

TEST_F(ChimeVolume, ADragThatTheWindowsEndInterruptsIsOver)
{
    QTest::mousePress(&slider(), Qt::LeftButton, {}, at(0.8));
    slider().window()->hide();
    EXPECT_FALSE(slider().isSliderDown());
    EXPECT_EQ(heard().size(), 1U);
}

TEST(SettingsSlider, FromRightToLeftEverythingIsMirrored)
{
    SettingsSlider slider(nullptr);
    slider.setLayoutDirection(Qt::RightToLeft);
    slider.setScale({.minimum = 2, .maximum = 60});
    slider.resize(200, 24);
    slider.show();
    QTest::mouseClick(&slider, Qt::LeftButton, {}, QPoint(0, 12));
    EXPECT_EQ(slider.current(), 60);
    QTest::mouseClick(&slider, Qt::LeftButton, {}, QPoint(199, 12));
    EXPECT_EQ(slider.current(), 2);
    QTest::keyClick(&slider, Qt::Key_Left);
    EXPECT_EQ(slider.current(), 3);
}

TEST(SettingsSlider, ANumberOutsideTheRangeIsHeldInside)
{
    SettingsSlider slider(nullptr);
    slider.setScale({.minimum = 2, .maximum = 60});
    slider.enter(1e300);
    EXPECT_EQ(slider.current(), 60);
    slider.enter(-5);
    EXPECT_EQ(slider.current(), 2);
    slider.enter(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(slider.current(), 2);
}

} // namespace
} // namespace velmora
