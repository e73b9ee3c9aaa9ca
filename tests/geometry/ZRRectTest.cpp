#include "geometry/ZRServerRect.h"

#include <gtest/gtest.h>

TEST(ZRRect, HoldsItsLeftAndBottomEdgesOnly)
{
    const ZRRect r{10, 20, 30, 40};
    struct Case {
        ZRPoint point;
        bool isInside;
    };
    const Case cases[] = {
        {{10, 20}, true},
        {{39.5, 59.5}, true},
        {{40, 30}, false},
        {{20, 60}, false},
        {{9.5, 30}, false},
        {{20, 19}, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.point.x << ", " << c.point.y);
        EXPECT_EQ(r.contains(c.point), c.isInside);
    }
}

TEST(ZRRect, KeepsItsAreaWhenItsSizesAreMadePositive)
{
    for (const ZRRect r :
        {ZRRect{10, 20, 30, 40}, {40, 20, -30, 40}, {10, 60, 30, -40}, {40, 60, -30, -40}}) {
        SCOPED_TRACE(testing::Message() << r.width << " x " << r.height);
        EXPECT_EQ(r.normalized(), (ZRRect{10, 20, 30, 40}));
    }
}

TEST(ZRRect, SharesNoAreaWithANeighbourThatOnlyTouches)
{
    const ZRRect r{0, 0, 10, 10};
    EXPECT_EQ(r.intersected({5, 6, 10, 10}), (ZRRect{5, 6, 5, 4}));
    EXPECT_EQ(r.intersected({10, 0, 5, 5}), ZRRect{});
    EXPECT_EQ(r.intersected({0, -5, 5, 5}), ZRRect{});
}

TEST(ZRServerRect, IsFlippedAndFlippedBack)
{
    const ZRServerRect top{5, 0, 10, 20};
    EXPECT_EQ(flippedUp(top, 100), (ZRRect{5, 80, 10, 20}));
    EXPECT_EQ(flippedDown(flippedUp(top, 62.5), 62.5), top);
}
