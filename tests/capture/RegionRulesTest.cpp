#include "capture/RegionRules.h"

#include <cmath>

#include <gtest/gtest.h>

using namespace RegionRules;

TEST(RegionRules, FindTheHandleUnderAPress)
{
    struct Case {
        ZRPoint point;
        int code;
    };
    const Case cases[] = {{{100, 500}, 1}, {{200, 500}, 2}, {{300, 500}, 3}, {{100, 350}, 4}, {{300, 350}, 5},
        {{100, 200}, 6}, {{200, 200}, 7}, {{300, 200}, 8}, {{103.5, 203.5}, 6}, {{104, 200}, kBody},
        {{200, 350}, kBody}, {{90, 200}, kBody}};
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.point.x << ", " << c.point.y);
        EXPECT_EQ(pointInResizeRect({100, 200, 200, 300}, c.point), c.code);
    }
    EXPECT_EQ(pointInResizeRect({100, 200, 2, 2}, {101, 201}), 1) << "the lower code wins on a tiny region";
    EXPECT_EQ(pointInResizeRect({}, {1, 1}), kBody) << "no region, no handle";
}

TEST(RegionRules, PullOnlyTheirOwnEdges)
{
    struct Case {
        int code;
        ZRRect expected;
    };
    const Case cases[] = {
        {kBody, {110, 220, 300, 400}},
        {1, {110, 200, 290, 420}},
        {2, {100, 200, 300, 420}},
        {3, {100, 200, 310, 420}},
        {4, {110, 200, 290, 400}},
        {5, {100, 200, 310, 400}},
        {6, {110, 220, 290, 380}},
        {7, {100, 220, 300, 380}},
        {8, {100, 220, 310, 380}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.code);
        EXPECT_EQ(pulledByHandle({100, 200, 300, 400}, c.code, 10, 20), c.expected);
    }
    EXPECT_EQ(pulledByHandle({100, 200, 300, 400}, 5, -350, 0).width, -50) << "past the opposite edge";
}

TEST(RegionRules, KeepAMovedRegionInsideTheOverlay)
{
    struct Case {
        float dx, dy;
        ZRRect expected;
    };
    const ZRSize overlay{800, 600};
    const Case cases[] = {{5, 6, {105, 106, 200, 100}}, {-500, 0, {0, 100, 200, 100}},
        {0, -500, {100, 0, 200, 100}}, {5000, 0, {600, 100, 200, 100}}, {0, 5000, {100, 500, 200, 100}}};
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.dx << ", " << c.dy);
        EXPECT_EQ(moved({100, 100, 200, 100}, c.dx, c.dy, overlay), c.expected);
    }
}

TEST(RegionRules, TakeHoldOfAFixedRegionUpToFourPointsBesideIt)
{
    const ZRRect region{100, 100, 50, 50};
    EXPECT_TRUE(isWithinReach(region, {97, 120}));
    EXPECT_FALSE(isWithinReach(region, {95, 120}));
    EXPECT_TRUE(isWithinReach(region, {120, 153}));
    EXPECT_FALSE(isWithinReach(region, {120, 155}));
}

TEST(RegionRules, CutADragAtTheRightAndTheBottomOnly)
{
    EXPECT_EQ(cutToOverlay({900, -5}, 800), (ZRPoint{800, 0}));
    EXPECT_EQ(cutToOverlay({-7, 700}, 800), (ZRPoint{-7, 700}));
}

TEST(RegionRules, SnapEveryEdgeToADevicePixel)
{
    for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
        SCOPED_TRACE(scale);
        const ZRRect r = snapped({10.3, 20.7, -5.2, 30.1}, scale);
        for (const double edge : {r.x, r.y, r.maxX(), r.maxY()})
            EXPECT_NEAR(edge * scale, std::round(edge * scale), 1e-9);
        EXPECT_LT(r.width, 0);
        const ZRRect again = snapped(r, scale);
        EXPECT_NEAR(again.x, r.x, 1e-9);
        EXPECT_NEAR(again.width, r.width, 1e-9);
    }
}

TEST(RegionSteps, MoveAndStretchByOnePixelWithinTheDisplay)
{
    struct Case {
        const char* what;
        QRect region;
        QPoint by;
        QRect moved, stretched; // on a display of 100 x 80 pixels
    };
    const Case cases[] = {
        {"right", {10, 20, 30, 40}, {1, 0}, {11, 20, 30, 40}, {10, 20, 31, 40}},
        {"up", {10, 20, 30, 40}, {0, -1}, {10, 19, 30, 40}, {10, 20, 30, 39}},
        {"at the left edge", {0, 20, 1, 40}, {-1, 0}, {0, 20, 1, 40}, {0, 20, 1, 40}},
        {"at the bottom edge", {10, 40, 30, 40}, {0, 1}, {10, 40, 30, 40}, {10, 40, 30, 40}},
        {"at the right edge", {70, 20, 30, 40}, {1, 0}, {70, 20, 30, 40}, {70, 20, 30, 40}},
        {"from beyond the left", {-20, 20, 30, 40}, {1, 0}, {0, 20, 30, 40}, {-20, 20, 31, 40}},
        {"larger than the display", {-5, 0, 120, 40}, {1, 0}, {0, 0, 120, 40}, {-5, 0, 105, 40}},
        {"without extent", {10, 20, 0, 0}, {0, 1}, {10, 21, 0, 0}, {10, 20, 0, 1}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(RegionRules::nudged(c.region, c.by, {100, 80}), c.moved);
        EXPECT_EQ(RegionRules::stretched(c.region, c.by, {100, 80}), c.stretched);
    }
}
