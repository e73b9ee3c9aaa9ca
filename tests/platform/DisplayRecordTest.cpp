#include "platform/DisplayRecord.h"

#include <gtest/gtest.h>

namespace {

// 1920 x 1200 pixels, left of and above the first display.
DisplayRecord displayOfScale(double scale)
{
    return {1, QStringLiteral("second"), QRect(-1920, -300, 1920, 1200), scale, {}};
}

}

TEST(DisplayRecord, PlacesAPixelInItsOwnPoints)
{
    struct Case {
        double scale;
        QPoint pixel;
        ZRPoint expected;
    };
    const Case cases[] = {
        {1, {-1920, -300}, {0, 1200}},
        {1, {-1, 899}, {1919, 1}},
        {2, {-1920, -300}, {0, 600}},
        {2, {-1919, -299}, {0.5, 599.5}},
        {1.25, {-1915, -295}, {4, 956}},
        {1.5, {-1917, -297}, {2, 798}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.scale);
        EXPECT_EQ(displayOfScale(c.scale).localPoint(c.pixel), c.expected);
    }
}

TEST(DisplayRecord, ReturnsEveryPixelRectangleUnchanged)
{
    const QRect rects[] = {
        {0, 0, 1, 1}, {3, 7, 11, 13}, {1919, 1199, 1, 1}, {-5, -3, 40, 30}, {0, 0, 1920, 1200}};
    for (double scale : {1.0, 1.25, 1.5, 1.75, 2.0, 3.0}) {
        const DisplayRecord display = displayOfScale(scale);
        for (const QRect& pixels : rects) {
            SCOPED_TRACE(testing::Message() << scale << ": " << pixels.x() << ", " << pixels.y());
            EXPECT_EQ(display.localPixels(display.localRect(pixels)), pixels);
        }
    }
}

TEST(DisplayRecord, RoundsEdgesToTheNearestPixel)
{
    struct Case {
        double scale;
        ZRRect points;
        QRect expected;
    };
    const Case cases[] = {
        {1, {10, 1100, 20, 30}, {10, 70, 20, 30}},
        {1, {30, 1130, -20, -30}, {10, 70, 20, 30}}, // dragged leftwards and down
        {1.25, {1, 950, 1, 10}, {1, 0, 2, 13}},      // 1.25 to 2.5 across, 0 to 12.5 down
        {2, {0.3, 599.8, 10, 0.2}, {1, 0, 20, 0}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.scale << ": " << c.points.x);
        EXPECT_EQ(displayOfScale(c.scale).localPixels(c.points), c.expected);
    }
}
