#include "editor/ShapeRules.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace {

double angleOf(ZRPoint from, ZRPoint to)
{
    return std::atan2(to.y - from.y, to.x - from.x) * 180 / std::numbers::pi;
}

double lengthOf(ZRPoint from, ZRPoint to)
{
    return std::hypot(to.x - from.x, to.y - from.y);
}

}

TEST(ShapeRules, RectanglesFollowFromThePoints)
{
    EXPECT_EQ(ShapeRules::spanned({30, 10}, {10, 60}), (ZRRect{10, 10, 20, 50}));
    EXPECT_EQ(ShapeRules::spanned({30, 10}, {30, 10}), ZRRect{});
    EXPECT_EQ(ShapeRules::lineRect({30, 10}, {10, 60}, 5), (ZRRect{7.5, 7.5, 25, 55}));
    EXPECT_EQ(ShapeRules::lineRect({30, 10}, {30, 10}, 6), (ZRRect{27, 7, 6, 6}));
    EXPECT_EQ(ShapeRules::strokeRect({10, 10, 20, 50}, 6), (ZRRect{5, 5, 30, 60}));
}

TEST(ShapeRules, ArrowPointsAtItsEndWhereverItLeads)
{
    struct Case {
        ZRPoint end;
        double direction; // degrees
    };
    const Case cases[] = {{{100, 0}, 0}, {{0, 50}, 90}, {{-70, -70}, -135}, {{0, 0}, 0}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.direction);
        const ShapeRules::Arrow arrow = ShapeRules::arrow({0, 0}, c.end, 6);
        EXPECT_EQ(arrow.tip, c.end);
        for (int side : {0, 1}) {
            const double barb = c.direction + (side ? 162 : -162);
            EXPECT_NEAR(std::remainder(angleOf(c.end, arrow.head[side]) - barb, 360), 0, 1e-3);
            EXPECT_NEAR(std::remainder(angleOf(c.end, arrow.base[side]) - barb, 360), 0, 1e-3);
            EXPECT_NEAR(lengthOf(c.end, arrow.head[side]), 38, 1e-4);
            EXPECT_NEAR(lengthOf(c.end, arrow.base[side]), 22, 1e-4);
        }
    }
}

TEST(ShapeRules, ExtentGrowsToWhatAWalkOverAllPointsFinds)
{
    const DragPoints points{{10, 20}, {-5, 7}, {30, 7}, {12, 90}, {11, -4}};
    ZRRect extent{points[0].x, points[0].y, 0, 0};
    for (size_t count = 1; count <= points.size(); ++count) {
        extent = ShapeRules::withPoint(extent, points[count - 1].point());
        const DragPoints some(points.begin(), points.begin() + std::ptrdiff_t(count));
        EXPECT_EQ(extent, ShapeRules::extentOf(some)) << count << " points";
    }
    EXPECT_EQ(extent, (ZRRect{-5, -4, 35, 94}));
    EXPECT_EQ(ShapeRules::extentOf({}), ZRRect{});
}
