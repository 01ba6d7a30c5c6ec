#include "Velmora/views/WidgetView.h"

#include "tests/fakes/FakeOrbWindow.h"
#include "tests/model/Desk.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

using OrbControls::Control;

/// An orb of 128 points on a desk, and the hand that points at it.
class WidgetViewTest : public testing::Test {
protected:
    WidgetViewTest()
    {
        view.setWindow(&window);
        view.layout({.width = 128, .height = 128});
    }

    /// A point of the orb by its distance from the left and the top, where the window stands now.
    [[nodiscard]] PointerEvent at(double x, double y, bool option = false) const
    {
        Point const inWindow = {.x = x, .y = 128 - y};
        return {.window = inWindow,
            .screen = {.x = window.place.x + inWindow.x, .y = window.place.y + inWindow.y},
            .option = option};
    }

    /// The same pointer, moved over the desktop; y down.
    [[nodiscard]] PointerEvent moved(PointerEvent event, double dx, double dy) const
    {
        event.screen = {.x = event.screen.x + dx, .y = event.screen.y - dy};
        event.window = {.x = event.screen.x - window.place.x, .y = event.screen.y - window.place.y};
        return event;
    }

    void drag(PointerEvent const& press, double dx, double dy)
    {
        view.mouseDown(press);
        view.mouseDragged(moved(press, dx / 2, dy / 2));
        view.mouseDragged(moved(press, dx, dy));
        view.mouseUp(moved(press, dx, dy));
    }

    void click(PointerEvent const& press) { drag(press, 0, 0); }

    [[nodiscard]] Point centreOf(Control control) const
    {
        auto const frame = OrbControls::frame(control, model.widgetSize(), view.bounds());
        return {.x = frame.midX(), .y = frame.midY()};
    }

    void remind()
    {
        model.velmoraNow();
        ASSERT_TRUE(model.isReminding());
    }

    Desk desk;
    AppModel& model = desk.launch();
    FakeOrbWindow window;
    WidgetView view{model};
};

TEST_F(WidgetViewTest, AClickEndsAReminder)
{
    remind();
    click(at(64, 40));
    EXPECT_FALSE(model.isReminding());
}

TEST_F(WidgetViewTest, AClickBetweenRemindersChangesNothing)
{
    auto const before = model.remainingSeconds();
    desk.clock.instant += 10;
    click(at(64, 40));
    EXPECT_EQ(model.remainingSeconds(), before);
}

TEST_F(WidgetViewTest, APressThatMovesThreeAndAHalfPointsEndsAReminderAndMovesTheWindow)
{
    remind();
    drag(at(64, 40), 3.5, 0);
    EXPECT_FALSE(model.isReminding());
    EXPECT_EQ(window.place.origin(), (Point{.x = 603.5, .y = 400}));
}

TEST_F(WidgetViewTest, APressThatMovesFourPointsMovesTheWindowAndSavesItsPlace)
{
    remind();
    drag(at(64, 40), 0, 4);
    EXPECT_TRUE(model.isReminding());
    EXPECT_EQ(model.widgetOrigin(), (Point{.x = 600, .y = 396}));
}

TEST_F(WidgetViewTest, APressWhereTheButtonsSitEndsNoReminder)
{
    remind();
    click(at(64, 0.7 * 128));
    EXPECT_TRUE(model.isReminding());
}

TEST_F(WidgetViewTest, APressOutsideTheInscribedCircleIsTakenAndDoesNothing)
{
    remind();
    drag(at(18, 18), 0, 0);
    drag(at(18, 18), 30, 30);
    EXPECT_TRUE(model.isReminding());
    EXPECT_FALSE(model.hasSavedOrigin());
    EXPECT_EQ(window.place.origin(), (Point{.x = 600, .y = 400}));
}

TEST_F(WidgetViewTest, AClickSavesTheWindowsPlaceToo)
{
    click(at(64, 40));
    EXPECT_TRUE(model.hasSavedOrigin());
    EXPECT_EQ(model.widgetOrigin(), (Point{.x = 600, .y = 400}));
}

TEST_F(WidgetViewTest, TheWindowFollowsThePointerPointForPointWhileItMoves)
{
    auto const press = at(64, 40);
    view.mouseDown(press);
    for (int step = 1; step <= 40; ++step) {
        view.mouseDragged(moved(press, -step * 5, step * 2));
        ASSERT_EQ(window.place.origin(), (Point{.x = 600.0 - step * 5, .y = 400.0 - step * 2}));
    }
}

TEST_F(WidgetViewTest, ADragHangsAtMostThirtyFivePerCentOverTheEdge)
{
    drag(at(64, 40), -2000, 2000);
    EXPECT_DOUBLE_EQ(window.place.x, -0.35 * 128);
    EXPECT_DOUBLE_EQ(window.place.y, -0.35 * 128);
}

TEST_F(WidgetViewTest, WithoutADisplayADragIsNotHeldBack)
{
    window.visible.reset();
    drag(at(64, 40), -2000, 2000);
    EXPECT_EQ(window.place.origin(), (Point{.x = -1400, .y = -1600}));
}

TEST_F(WidgetViewTest, OptionAtTheFirstChangeResizesBySumOfBothComponents)
{
    auto const press = at(64, 40, true);
    view.mouseDown(press);
    view.mouseDragged(moved(press, 10, 5));
    EXPECT_DOUBLE_EQ(model.widgetSize(), 143);
    auto without = moved(press, 30, 10);
    without.option = false;
    view.mouseDragged(without);
    EXPECT_DOUBLE_EQ(model.widgetSize(), 168);
    view.mouseDragged(moved(press, 30, -30));
    EXPECT_DOUBLE_EQ(model.widgetSize(), 128);
    EXPECT_EQ(window.place.origin(), (Point{.x = 600, .y = 400}));
}

TEST_F(WidgetViewTest, OptionPressedLaterDoesNotTurnAMoveIntoAResize)
{
    auto const press = at(64, 40);
    view.mouseDown(press);
    view.mouseDragged(moved(press, 10, 0));
    auto with = moved(press, 20, 0);
    with.option = true;
    view.mouseDragged(with);
    EXPECT_DOUBLE_EQ(model.widgetSize(), 128);
    EXPECT_DOUBLE_EQ(window.place.x, 620);
}

TEST_F(WidgetViewTest, AResizeThatEndsWhereItBeganIsNoClick)
{
    remind();
    auto const press = at(64, 40, true);
    view.mouseDown(press);
    view.mouseDragged(moved(press, 10, 0));
    view.mouseDragged(press);
    view.mouseUp(press);
    EXPECT_TRUE(model.isReminding());
}

TEST_F(WidgetViewTest, WithoutAWindowADragMovesAndSavesNothingButAClickEndsAReminder)
{
    view.setWindow(nullptr);
    drag(at(64, 40), 50, 50);
    EXPECT_FALSE(model.hasSavedOrigin());
    remind();
    click(at(64, 40));
    EXPECT_FALSE(model.isReminding());
}

TEST_F(WidgetViewTest, ButtonsTakeClicksOnlyWhileTheyShow)
{
    auto const pause = centreOf(Control::pause);
    click(at(pause.x, pause.y));
    EXPECT_FALSE(model.paused());
    model.setPointerInside(true);
    click(at(pause.x, pause.y));
    EXPECT_TRUE(model.paused());
    click(at(pause.x, pause.y));
    EXPECT_FALSE(model.paused());
}

TEST_F(WidgetViewTest, AButtonReleasedElsewhereDoesNothing)
{
    model.setPointerInside(true);
    auto const pause = centreOf(Control::pause);
    drag(at(pause.x, pause.y), 30, -30);
    EXPECT_FALSE(model.paused());
    EXPECT_EQ(window.place.origin(), (Point{.x = 600, .y = 400}));
}

TEST_F(WidgetViewTest, TheSettingsButtonOpensAndClosesAndTheNamedActionOnlyOpens)
{
    model.setPointerInside(true);
    auto const settings = centreOf(Control::settings);
    click(at(settings.x, settings.y));
    EXPECT_TRUE(model.showingSettings());
    click(at(settings.x, settings.y));
    EXPECT_FALSE(model.showingSettings());
    auto const actions = view.accessibleActions();
    actions.at(2).run();
    actions.at(2).run();
    EXPECT_TRUE(model.showingSettings());
}

TEST_F(WidgetViewTest, ButtonsStayWhileTheOrbIsDraggedFromUnderThePointer)
{
    model.setPointerInside(true);
    auto const press = at(64, 40);
    view.mouseDown(press);
    view.mouseDragged(moved(press, 10, 0));
    model.setPointerInside(false);
    EXPECT_TRUE(view.showChrome());
    view.mouseUp(moved(press, 10, 0));
    EXPECT_FALSE(view.showChrome());
}

TEST_F(WidgetViewTest, TheWordShowsWhileAReminderRuns)
{
    EXPECT_FALSE(view.showWord());
    remind();
    EXPECT_TRUE(view.showWord());
    EXPECT_TRUE(WidgetView(model).showWord());
    model.acknowledgeReminder();
    EXPECT_FALSE(view.showWord());
}

TEST_F(WidgetViewTest, HelpAndLabelsFollowThePause)
{
    EXPECT_EQ(view.help(Control::pause), QStringLiteral("Pause reminders"));
    EXPECT_EQ(view.label(Control::pause), QStringLiteral("Pause"));
    EXPECT_EQ(view.symbol(Control::pause), OrbControls::Symbol::pause);
    model.togglePaused();
    EXPECT_EQ(view.help(Control::pause), QStringLiteral("Resume reminders"));
    EXPECT_EQ(view.label(Control::pause), QStringLiteral("Resume"));
    EXPECT_EQ(view.symbol(Control::pause), OrbControls::Symbol::play);
    EXPECT_EQ(view.help(Control::settings), QStringLiteral("Settings"));
}

TEST_F(WidgetViewTest, OneElementForThoseWhoListen)
{
    EXPECT_EQ(WidgetView::accessibleLabel(), QStringLiteral("Breathing reminder"));
    EXPECT_EQ(WidgetView::accessibleHint(),
        QStringLiteral("Click during a reminder when you are done. Drag to move."));
    EXPECT_EQ(view.accessibleValue().toStdString(), model.statusLine());
    auto const actions = view.accessibleActions();
    ASSERT_EQ(actions.size(), 3U);
    EXPECT_EQ(actions[0].name, QStringLiteral("Pause reminders"));
    EXPECT_EQ(actions[1].name, QStringLiteral("Velmora now"));
    EXPECT_EQ(actions[2].name, QStringLiteral("Settings"));
    actions[0].run();
    EXPECT_TRUE(model.paused());
    actions[1].run();
    EXPECT_TRUE(model.isReminding());
}

} // namespace
} // namespace velmora
