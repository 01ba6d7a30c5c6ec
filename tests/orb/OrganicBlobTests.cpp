#include "Velmora/orb/OrganicBlob.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

namespace velmora {
namespace {

constexpr OrbRect square = {.x = 0, .y = 0, .width = 100, .height = 100};

double distanceFrom(OrbPoint center, OrbPoint p)
{
    return std::hypot(p.x - center.x, p.y - center.y);
}

TEST(OrganicBlob, StartsStraightAboveTheCentreAndTurnsClockwise)
{
    BlobOutline const outline = organicBlobOutline(square, 0);
    EXPECT_NEAR(outline.start.x, 50, 1e-9);
    EXPECT_NEAR(outline.start.y, 21, 1e-9);
    EXPECT_GT(outline.segments[0].end.x, 50);
    EXPECT_LT(outline.segments[0].end.y, 50);
}

TEST(OrganicBlob, IsFiniteAtThePhasesWhoseMultiplesAreBeyondEveryNumber)
{
    double const largest = std::numeric_limits<double>::max();
    for (double const phase : {largest, -largest, largest / 1.2}) {
        BlobOutline const outline = organicBlobOutline(square, phase);
        for (CubicSegment const& segment : outline.segments) {
            for (OrbPoint const& p : {segment.control1, segment.control2, segment.end})
                EXPECT_LE(distanceFrom({.x = 50, .y = 50}, p), 100) << phase;
        }
    }
}

TEST(OrganicBlob, EveryPointFollowsItsThreeHarmonics)
{
    double const phase = 1.7;
    BlobOutline const outline = organicBlobOutline(square, phase);
    for (std::size_t i = 0; i < 8; ++i) {
        double const angle = std::numbers::pi * (static_cast<double>(i) / 4 - 0.5);
        double const reach = 50
            * (0.62 + 0.12 * std::sin(2 * angle + phase) + 0.07 * std::cos(3 * angle - 0.73 * phase)
                + 0.04 * std::sin(5 * angle + 1.21 * phase));
        OrbPoint const p = i == 0 ? outline.start : outline.segments[i - 1].end;
        EXPECT_NEAR(p.x, 50 + reach * std::cos(angle), 1e-9);
        EXPECT_NEAR(p.y, 50 + reach * std::sin(angle), 1e-9);
    }
}

TEST(OrganicBlob, ControlPointsAreASixthOfTheNeighboursChord)
{
    BlobOutline const outline = organicBlobOutline(square, 0.3);
    OrbPoint const before = outline.segments[6].end;
    OrbPoint const from = outline.start;
    OrbPoint const to = outline.segments[0].end;
    OrbPoint const after = outline.segments[1].end;
    EXPECT_NEAR(outline.segments[0].control1.x, from.x + (to.x - before.x) / 6, 1e-12);
    EXPECT_NEAR(outline.segments[0].control1.y, from.y + (to.y - before.y) / 6, 1e-12);
    EXPECT_NEAR(outline.segments[0].control2.x, to.x - (after.x - from.x) / 6, 1e-12);
    EXPECT_NEAR(outline.segments[0].control2.y, to.y - (after.y - from.y) / 6, 1e-12);
}

TEST(OrganicBlob, ClosesOnItsStartWithOneTangent)
{
    BlobOutline const outline = organicBlobOutline(square, 12.5);
    CubicSegment const& last = outline.segments[7];
    EXPECT_EQ(last.end, outline.start);
    EXPECT_NEAR(last.end.x - last.control2.x, outline.segments[0].control1.x - last.end.x, 1e-12);
    EXPECT_NEAR(last.end.y - last.control2.y, outline.segments[0].control1.y - last.end.y, 1e-12);
}

TEST(OrganicBlob, AnEmptyRectangleGivesNinePointsAtItsCentre)
{
    BlobOutline const outline = organicBlobOutline({.x = 7, .y = -3, .width = 0, .height = 0}, 2);
    OrbPoint const center = {.x = 7, .y = -3};
    EXPECT_EQ(outline.start, center);
    for (CubicSegment const& segment : outline.segments)
        EXPECT_EQ(segment.end, center);
}

TEST(OrganicBlob, IsSizedByTheShorterSideAndCentredInTheLonger)
{
    BlobOutline const wide = organicBlobOutline({.x = 0, .y = 0, .width = 300, .height = 100}, 0.9);
    BlobOutline const even = organicBlobOutline(square, 0.9);
    for (std::size_t i = 0; i < 8; ++i) {
        EXPECT_NEAR(wide.segments[i].end.x, even.segments[i].end.x + 100, 1e-9);
        EXPECT_NEAR(wide.segments[i].end.y, even.segments[i].end.y, 1e-9);
    }
}

TEST(OrganicBlob, NeverPinchesNorLeavesItsRectangle)
{
    for (int step = 0; step < 2000; ++step) {
        BlobOutline const outline = organicBlobOutline(square, step * 0.37);
        for (CubicSegment const& segment : outline.segments) {
            double const distance = distanceFrom({.x = 50, .y = 50}, segment.end);
            EXPECT_GE(distance, 19.5 - 1e-9);
            EXPECT_LE(distance, 42.5 + 1e-9);
        }
    }
}

TEST(OrganicBlob, DoesNotRepeatAfterAFullTurnOfPhase)
{
    BlobOutline const before = organicBlobOutline(square, 0);
    BlobOutline const after = organicBlobOutline(square, 2 * std::numbers::pi);
    EXPECT_GT(distanceFrom(before.start, after.start), 1);
}

TEST(OrganicBlob, HalfwayBetweenTwoBlobsIsTheBlobAtTheMeanPhase)
{
    OrganicBlob const half = interpolated({.phase = 1}, {.phase = 4}, 0.5);
    EXPECT_EQ(half, (OrganicBlob{.phase = 2.5}));
    EXPECT_EQ(half.path(square), organicBlobOutline(square, 2.5));
}

} // namespace
} // namespace velmora
