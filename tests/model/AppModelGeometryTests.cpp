#include "tests/model/Desk.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace velmora {
namespace {

using Property = AppModel::Property;

constexpr DisplayId laptop{1};
constexpr DisplayId monitor{2};
constexpr DisplayId tiny{3};

Display display(DisplayId id, Rect frame, double bar = 0)
{
    auto visible = frame;
    visible.height -= bar;
    return {.id = id, .frames = {.frame = frame, .visible = visible}};
}

/// A laptop with a panel at its top, as the main display.
Display const laptopDisplay = display(laptop, {.x = 0, .y = 0, .width = 1440, .height = 900}, 25);
Display const monitorDisplay = display(monitor, {.x = 1440, .y = 0, .width = 2560, .height = 1440});
Display const tinyDisplay = display(tiny, {.x = 0, .y = 900, .width = 300, .height = 200});

class AppModelGeometry : public testing::Test {
protected:
    AppModelGeometry()
    {
        desk.displays.displays = {monitorDisplay, laptopDisplay, tinyDisplay};
        desk.displays.mainDisplay = laptop;
    }
    Desk desk;
};

TEST_F(AppModelGeometry, TheMainDisplayComesFirst)
{
    auto const frames = desk.launch().screenFrames();
    ASSERT_EQ(frames.size(), 3U);
    EXPECT_EQ(frames[0], laptopDisplay.frames);
    EXPECT_EQ(frames[1], monitorDisplay.frames);
    EXPECT_EQ(frames[2], tinyDisplay.frames);
}

TEST_F(AppModelGeometry, WithoutAMainDisplayTheSystemsOrderStands)
{
    desk.displays.mainDisplay.reset();
    EXPECT_EQ(desk.launch().screenFrames().front(), monitorDisplay.frames);
}

TEST_F(AppModelGeometry, WithoutADisplayTheFallbackCounts)
{
    desk.displays.displays.clear();
    desk.displays.mainDisplay.reset();
    auto& model = desk.launch();
    EXPECT_EQ(model.screenFrames(),
        (std::vector{ScreenFrames{.frame = fallbackDisplay, .visible = fallbackDisplay}}));
    EXPECT_DOUBLE_EQ(model.maxWidgetSize(laptop), 316.8);
    EXPECT_EQ(model.originForLaunch(100), (Point{.x = 1312, .y = 36}));
}

TEST_F(AppModelGeometry, TheLargestSideIsAShareOfTheLongerVisibleSide)
{
    auto& model = desk.launch();
    EXPECT_DOUBLE_EQ(model.maxWidgetSize(laptop), 316.8);
    EXPECT_DOUBLE_EQ(model.maxWidgetSize(monitor), 563.2);
    EXPECT_DOUBLE_EQ(model.maxWidgetSize(std::nullopt), 316.8) << "the main display";
    EXPECT_DOUBLE_EQ(model.maxWidgetSize(DisplayId(99)), 316.8) << "a display that has gone";
}

TEST_F(AppModelGeometry, TheLongerSideCountsOnAnUprightDisplayToo)
{
    desk.displays.displays = {display(laptop, {.x = 0, .y = 0, .width = 1080, .height = 1920})};
    EXPECT_DOUBLE_EQ(desk.launch().maxWidgetSize(laptop), 422.4);
}

TEST_F(AppModelGeometry, ASizeIsRaisedFirstAndCutSecond)
{
    auto& model = desk.launch();
    EXPECT_EQ(model.clampSize(50, laptop), 72);
    EXPECT_DOUBLE_EQ(model.clampSize(500, laptop), 316.8);
    EXPECT_EQ(model.clampSize(100.25, laptop), 100.25);
    for (double const any : {50.0, 70.0, 500.0})
        EXPECT_DOUBLE_EQ(model.clampSize(any, tiny), 66) << "the maximum wins";
}

TEST_F(AppModelGeometry, ASizeThatIsNotANumberIsTheSmallest)
{
    auto& model = desk.launch();
    double const notANumber = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(model.clampSize(notANumber, laptop), 72);
    model.setWidgetSize(notANumber);
    EXPECT_EQ(model.widgetSize(), 72);
    model.setWidgetSize(std::numeric_limits<double>::infinity());
    EXPECT_DOUBLE_EQ(model.widgetSize(), 316.8);
}

TEST_F(AppModelGeometry, ApplySizeTakesTheNamedDisplayAsHost)
{
    auto& model = desk.launch();
    model.applySize(400, monitor);
    EXPECT_EQ(model.hostScreen(), monitor);
    EXPECT_EQ(model.widgetSize(), 400);
    model.applySize(500, std::nullopt);
    EXPECT_EQ(model.hostScreen(), monitor) << "without a display the host stays";
    EXPECT_EQ(model.widgetSize(), 500);
}

TEST_F(AppModelGeometry, ApplySizeWithinHalfAPointChangesNothingButRefitsTheWindow)
{
    auto& model = desk.launch();
    int refits = 0;
    model.onWidgetSize = [&] { ++refits; };
    model.applySize(128.4, laptop);
    EXPECT_EQ(model.widgetSize(), 128);
    EXPECT_EQ(refits, 1);
    EXPECT_EQ(desk.saves(), 0U);
    model.applySize(128.5, laptop);
    EXPECT_EQ(model.widgetSize(), 128.5) << "exactly half a point is a change";
    EXPECT_EQ(refits, 2);
    EXPECT_EQ(desk.defaults.number("widgetSize"), 128.5);
}

TEST_F(AppModelGeometry, AnAssignedSizeIsClampedOnlyAboveHalfAPoint)
{
    auto& model = desk.launch();
    model.setWidgetSize(317.2);
    EXPECT_EQ(model.widgetSize(), 317.2);
    model.setWidgetSize(317.4);
    EXPECT_DOUBLE_EQ(model.widgetSize(), 316.8);
}

TEST_F(AppModelGeometry, AnAssignedSizePersistsAndTellsTheShellOnce)
{
    auto& model = desk.launch();
    int told = 0;
    model.onWidgetSize = [&] { ++told; };
    model.setWidgetSize(1000);
    EXPECT_EQ(told, 1);
    EXPECT_EQ(desk.saves(), 1U);
}

TEST_F(AppModelGeometry, AShellThatInsistsOnASizeTheHostForbidsIsTurnedDownOnce)
{
    auto& model = desk.launch();
    int told = 0;
    // A panel on the laptop, whose smallest size is above the largest that the tiny host allows.
    model.onWidgetSize = [&] {
        ++told;
        if (model.widgetSize() < 72)
            model.setWidgetSize(72);
    };
    model.applySize(200, tiny);
    EXPECT_EQ(model.widgetSize(), 66);
    EXPECT_EQ(told, 1);
    EXPECT_EQ(desk.defaults.values.at("widgetSize"), DefaultsValue{66.0});
    model.applySize(66, tiny);
    EXPECT_EQ(model.widgetSize(), 66);
}

TEST_F(AppModelGeometry, AnOversizeStoredSizeIsClampedAtLoadWithoutBeingWritten)
{
    desk.store("widgetSize", 5000.0);
    EXPECT_DOUBLE_EQ(desk.launch().widgetSize(), 316.8);
    EXPECT_EQ(desk.saves(), 0U);
}

TEST_F(AppModelGeometry, AStoredSizeWithinHalfAPointOfItsBoundIsKept)
{
    desk.store("widgetSize", 71.5);
    EXPECT_EQ(desk.launch().widgetSize(), 71.5);
}

TEST_F(AppModelGeometry, TheLaunchPlaceIsTheSavedOneOrTheDefaultCorner)
{
    auto& model = desk.launch();
    EXPECT_EQ(model.originForLaunch(100), (Point{.x = 1312, .y = 36}));
    model.saveOrigin({.x = 2000.5, .y = 700});
    EXPECT_EQ(model.originForLaunch(100), (Point{.x = 2000.5, .y = 700}));
}

TEST_F(AppModelGeometry, ASavedPlaceOnAnUnpluggedDisplayGoesToTheMainCorner)
{
    auto& model = desk.launch();
    model.saveOrigin({.x = 2000, .y = 700});
    desk.displays.displays = {laptopDisplay};
    EXPECT_EQ(model.originForLaunch(100), (Point{.x = 1312, .y = 36}));
    EXPECT_EQ(model.originPullingOnScreen({.x = 2000, .y = 700}, 100), (Point{.x = 1312, .y = 36}));
    EXPECT_EQ(model.originPullingOnScreen({.x = -80, .y = 500}, 100), (Point{.x = 1312, .y = 36}))
        << "a centre off every display jumps, it is not clamped";
    EXPECT_EQ(model.originPullingOnScreen({.x = -40, .y = 845}, 100), (Point{.x = -40, .y = 830}));
}

TEST_F(AppModelGeometry, APlaceIsSavedAsGiven)
{
    auto& model = desk.launch();
    model.saveOrigin({.x = -1234.5, .y = 98765.25});
    EXPECT_EQ(desk.defaults.number("widgetOriginX"), -1234.5);
    EXPECT_EQ(desk.defaults.number("widgetOriginY"), 98765.25);
    EXPECT_EQ(desk.defaults.boolean("hasSavedOrigin"), true);
    (void)desk.takeChanges();
    model.saveOrigin({.x = -1234.5, .y = 98765.25});
    EXPECT_TRUE(desk.takeChanges().empty());
}

} // namespace
} // namespace velmora
