#include "Velmora/windows/WidgetPanel.h"

#include "Velmora/views/WidgetView.h"
#include "tests/fakes/FakeDesktopPanel.h"
#include "tests/model/Desk.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

/// The orb's panel where the system tells the pointer's place wherever it is: a disc of 62.4 points
/// about (360, 260).
class WidgetPanelPointer : public testing::Test {
protected:
    void SetUp() override
    {
        m_model.setWidgetSize(120);
        m_panel.setFrame({.x = 300, .y = 200, .width = 120, .height = 120});
    }

    void pointerAt(double x, double y) { m_desktop.onPointer({.x = x, .y = y}); }

    Desk m_desk;
    AppModel& m_model = m_desk.launch();
    FakeDesktopPanel m_desktop;
    WidgetView m_view{m_model};
    WidgetPanel m_panel{{.model = m_model,
                            .clock = m_desk.clock,
                            .displays = m_desk.displays,
                            .desktop = m_desktop},
        m_view};
};

TEST_F(WidgetPanelPointer, StartsOutLettingPressesThrough)
{
    EXPECT_TRUE(m_panel.ignoresPointer());
    EXPECT_TRUE(m_desktop.ignored.empty());
}

TEST_F(WidgetPanelPointer, TakesPressesWhileThePointerIsOverTheOrb)
{
    pointerAt(301, 260);
    EXPECT_TRUE(m_model.pointerInside());
    EXPECT_EQ(m_desktop.ignored, std::vector<bool>{false});
}

TEST_F(WidgetPanelPointer, LetsPressesThroughAtACornerOfItsSquare)
{
    pointerAt(360, 260);
    pointerAt(310, 310);
    EXPECT_FALSE(m_model.pointerInside());
    EXPECT_EQ(m_desktop.ignored, (std::vector<bool>{false, true}));
}

TEST_F(WidgetPanelPointer, TellsTheSystemOnlyOfChanges)
{
    for (int tick = 0; tick < 30; ++tick)
        pointerAt(360, 260);
    EXPECT_EQ(m_desktop.ignored.size(), 1U);
}

TEST_F(WidgetPanelPointer, FollowsThePanelToItsNewPlace)
{
    m_panel.setFrameOrigin({.x = 800, .y = 500});
    pointerAt(360, 260);
    EXPECT_FALSE(m_model.pointerInside());
    pointerAt(860, 560);
    EXPECT_TRUE(m_model.pointerInside());
}

TEST_F(WidgetPanelPointer, AsksForTheResizeCursorOnceOverTheGrip)
{
    pointerAt(360, 260);
    EXPECT_EQ(m_desktop.resizeCursors, 0);
    pointerAt(410, 210);
    pointerAt(411, 210);
    EXPECT_EQ(m_desktop.resizeCursors, 1);
}

TEST_F(WidgetPanelPointer, TellsTheDesktopAfterEachShowing)
{
    m_panel.orderFrontRegardless();
    m_panel.orderFrontRegardless();
    EXPECT_EQ(m_desktop.adopted.size(), 1U);
    EXPECT_EQ(m_desktop.timesShown, 2);
}

} // namespace
} // namespace velmora
