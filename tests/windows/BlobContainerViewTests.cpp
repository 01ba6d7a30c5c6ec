#include "Velmora/windows/BlobContainerView.h"

#include "Velmora/views/WidgetView.h"
#include "tests/fakes/FakeOrbWindow.h"
#include "tests/model/Desk.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

using OrbHitArea::Part;

class BlobContainerViewTest : public testing::Test {
protected:
    explicit BlobContainerViewTest(double size = 100)
    {
        model.setWidgetSize(size);
        view.setWindow(&window);
        container.setWindow(&window);
        container.layout({.width = size, .height = size});
        container.resizeKnob().onCursor = [this](GripCursor cursor) { cursors.push_back(cursor); };
    }

    /// A point in the container, y up.
    [[nodiscard]] PointerEvent at(double x, double y) const
    {
        return {.window = {.x = x, .y = y},
            .screen = {.x = window.place.x + x, .y = window.place.y + y}};
    }

    /// The same pointer, moved over the desktop; y up.
    [[nodiscard]] static PointerEvent moved(PointerEvent event, double dx, double dy)
    {
        event.screen = {.x = event.screen.x + dx, .y = event.screen.y + dy};
        return event;
    }

    Desk desk;
    AppModel& model = desk.launch();
    FakeOrbWindow window;
    WidgetView view{model};
    BlobContainerView container{model, view};
    std::vector<GripCursor> cursors;
};

TEST_F(BlobContainerViewTest, AWheelNotchGrowsTheOrbByEightPointsAndBackwardsShrinksIt)
{
    container.scrollWheel({.delta = 1, .precise = false});
    EXPECT_DOUBLE_EQ(model.widgetSize(), 108);
    container.scrollWheel({.delta = -2, .precise = false});
    EXPECT_DOUBLE_EQ(model.widgetSize(), 92);
}

TEST_F(BlobContainerViewTest, APreciseDeltaOfTenGrowsTheOrbBySixPoints)
{
    container.scrollWheel({.delta = 10, .precise = true});
    EXPECT_DOUBLE_EQ(model.widgetSize(), 106);
}

TEST_F(BlobContainerViewTest, APinchScalesTheOrbAndStopsAtItsSmallestSize)
{
    container.magnify(0.1);
    EXPECT_DOUBLE_EQ(model.widgetSize(), 110);
    container.magnify(-0.5);
    EXPECT_DOUBLE_EQ(model.widgetSize(), 72);
}

TEST_F(BlobContainerViewTest, WithoutAWindowWheelAndPinchDoNothing)
{
    container.setWindow(nullptr);
    container.scrollWheel({.delta = 1, .precise = false});
    container.magnify(0.5);
    EXPECT_DOUBLE_EQ(model.widgetSize(), 100);
}

TEST_F(BlobContainerViewTest, TheGripResizesFromItsStartWithoutAccumulating)
{
    auto const press = at(90, 10);
    ASSERT_EQ(container.hitTest(press.window), Part::grip);
    container.mouseDown(press);
    container.mouseDragged(at(90 - 500, 10 + 500));
    EXPECT_DOUBLE_EQ(model.widgetSize(), 72);
    container.mouseDragged(at(90 + 30, 10 + 10));
    EXPECT_DOUBLE_EQ(model.widgetSize(), 120);
    EXPECT_EQ(window.place.origin(), (Point{.x = 600, .y = 400}));
}

TEST_F(BlobContainerViewTest, ThePointerIsInsideOnTheOrbAndOnItsGripOnly)
{
    EXPECT_TRUE(container.updatePointer(Point{.x = 50, .y = 50}));
    EXPECT_FALSE(container.resizeKnob().state().hovering);
    EXPECT_TRUE(container.updatePointer(Point{.x = 97, .y = 3}));
    EXPECT_TRUE(container.resizeKnob().state().hovering);
    EXPECT_FALSE(container.updatePointer(Point{.x = 2, .y = 98}));
    EXPECT_FALSE(container.resizeKnob().state().hovering);
    EXPECT_FALSE(container.updatePointer(std::nullopt));
    EXPECT_EQ(cursors, (std::vector{GripCursor::resize, GripCursor::arrow}));
}

TEST_F(BlobContainerViewTest, AGripReleasedOutsideGoesDark)
{
    container.updatePointer(Point{.x = 90, .y = 10});
    container.mouseDown(at(90, 10));
    container.mouseUp(at(300, 300));
    EXPECT_FALSE(container.resizeKnob().state().highlighted());
    EXPECT_EQ(cursors.back(), GripCursor::arrow);
}

TEST_F(BlobContainerViewTest, APressOnATransparentCornerDoesNothing)
{
    model.velmoraNow();
    container.mouseDown(at(2, 98));
    container.mouseDragged(at(40, 60));
    container.mouseUp(at(40, 60));
    EXPECT_TRUE(model.isReminding());
    EXPECT_FALSE(model.hasSavedOrigin());
}

TEST_F(BlobContainerViewTest, AClickOnTheDiscReachesTheOrb)
{
    model.velmoraNow();
    container.mouseDown(at(50, 70));
    container.mouseUp(at(50, 70));
    EXPECT_FALSE(model.isReminding());
}

TEST_F(BlobContainerViewTest, ACancelledPressIsForgotten)
{
    model.velmoraNow();
    container.mouseDown(at(50, 70));
    container.mouseCancelled();
    container.mouseUp(at(50, 70));
    EXPECT_TRUE(model.isReminding());
    container.mouseDown(at(90, 10));
    container.mouseCancelled();
    EXPECT_FALSE(container.resizeKnob().state().highlighted());
}

TEST_F(BlobContainerViewTest, AMoveThatIsCancelledIsSavedWhereItStands)
{
    auto const press = at(50, 70);
    container.mouseDown(press);
    container.mouseDragged(moved(press, 30, -20));
    EXPECT_FALSE(model.hasSavedOrigin());
    container.mouseCancelled();
    EXPECT_EQ(model.widgetOrigin(), (Point{.x = 630, .y = 380}));
}

/// A display changes while a button is held: from then on every place of the desktop counts by
/// `shift` more, the window's too, and the hand has not moved.
class DisplayChangeInADrag : public BlobContainerViewTest {
protected:
    void change()
    {
        window.place.x += shift.x;
        window.place.y += shift.y;
        container.desktopShifted(shift);
    }

    static constexpr Point shift = {.x = -300, .y = 32};
};

TEST_F(DisplayChangeInADrag, AMoveGoesOnUnderTheHandAndIsSavedWhereItEnds)
{
    auto const press = at(50, 70);
    container.mouseDown(press);
    container.mouseDragged(moved(press, 30, -20));
    change();
    EXPECT_EQ(window.place.origin(), (Point{.x = 630 + shift.x, .y = 380 + shift.y}));
    container.mouseDragged(moved(press, 40 + shift.x, -20 + shift.y));
    EXPECT_EQ(window.place.origin(), (Point{.x = 640 + shift.x, .y = 380 + shift.y}));
    container.mouseUp(moved(press, 40 + shift.x, -20 + shift.y));
    EXPECT_EQ(model.widgetOrigin(), window.place.origin());
}

TEST_F(DisplayChangeInADrag, AResizeKeepsItsMeasure)
{
    auto press = at(50, 70);
    press.option = true;
    container.mouseDown(press);
    container.mouseDragged(moved(press, 20, 0));
    change();
    container.mouseDragged(moved(press, 25 + shift.x, shift.y));
    EXPECT_DOUBLE_EQ(model.widgetSize(), 125);
}

TEST_F(DisplayChangeInADrag, TheGripKeepsItsMeasure)
{
    auto const press = at(90, 10);
    container.mouseDown(press);
    container.mouseDragged(moved(press, 20, 0));
    change();
    container.mouseDragged(moved(press, 25 + shift.x, shift.y));
    EXPECT_DOUBLE_EQ(model.widgetSize(), 125);
}

} // namespace
} // namespace velmora
