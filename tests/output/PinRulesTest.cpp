#include "output/PinRules.h"

#include <gtest/gtest.h>

namespace {

DisplayRecord display(double scale)
{
    return {1, QStringLiteral("first"), {0, 0, 1600, 1200}, scale, {0, 0, 1600 / scale, 1200 / scale}};
}

}

TEST(PinRules, StandAPointInsideTheLeftAndTheBottomEdge)
{
    struct Case {
        double scale;
        ZRRect region; // points, y up
        QRect window;  // points, y down
        QRect showing; // pixels of the region's picture
    };
    const Case cases[] = {
        {1, {100, 200, 300, 150}, {101, 850, 299, 149}, {1, 0, 299, 149}},
        {2, {100, 200, 300, 150}, {101, 250, 299, 149}, {2, 0, 598, 298}},
        {2, {100.5, 200.5, 300, 150}, {102, 250, 298, 148}, {3, 1, 596, 296}}, // odd pixels
        {1, {1590, -20, 40, 50}, {1591, 1170, 9, 29}, {1, 0, 9, 29}},          // beyond two edges
        {1, {-10, 1190, 30, 40}, {1, 0, 19, 9}, {1, 0, 19, 9}},                // and beyond the others
        {1, {5, 5, 1, 1}, {6, 1194, 1, 1}, {1, 0, 1, 1}}, // a window has a point at least
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.scale << ' ' << c.region.x << ',' << c.region.y);
        const PinRules::Place place = PinRules::placeOf(display(c.scale), c.region);
        EXPECT_EQ(place.window, c.window);
        EXPECT_EQ(place.showing, c.showing);
    }
}

TEST(PinRules, ShowEveryPixelWhereItWas)
{
    for (const double scale : {1.0, 1.5, 2.0}) {
        for (int x = 300; x < 310; ++x) {
            const QRect region(x, 400 - x % 7, 211, 97);
            const DisplayRecord record = display(scale);
            const PinRules::Place place = PinRules::placeOf(record, record.localRect(region));
            SCOPED_TRACE(testing::Message() << scale << ' ' << x);
            EXPECT_EQ(place.showing.topLeft() + region.topLeft(), place.window.topLeft() * scale);
            EXPECT_EQ(place.showing.size(), place.window.size() * scale);
            const QRect inside(QPoint(0, 0), region.size());
            EXPECT_TRUE(inside.adjusted(0, 0, 1, 1).contains(place.showing)) << "but for rounding";
        }
    }
}

TEST(PinRules, ZoomKeepsThePictureBelowThePointerAndComesBack)
{
    const QRect window(100, 100, 200, 80);
    for (const int steps : {-5, 3, 20}) {
        SCOPED_TRACE(steps);
        const QSize size = window.size() * PinRules::zoomAfter(steps);
        const QPoint pointer(150, 160); // a quarter of its width, three quarters of its height
        const QRect zoomed = PinRules::zoomedAround(window, pointer, size);
        EXPECT_NEAR(pointer.x() - zoomed.x(), size.width() / 4.0, 1);
        EXPECT_NEAR(pointer.y() - zoomed.y(), size.height() * 3 / 4.0, 1);
        const QRect back = PinRules::zoomedAround(zoomed, pointer, window.size());
        EXPECT_NEAR(back.x(), window.x(), 1);
        EXPECT_EQ(back.size(), window.size());
    }
    EXPECT_EQ(PinRules::zoomAfter(0), 1);
}

TEST(PinRules, StopWherePicturesGetLostOrTooLarge)
{
    const QSize sizes[] = {{200, 80}, {8, 8}, {4000, 3000}, {1, 20000}};
    for (const QSize size : sizes) {
        SCOPED_TRACE(size.width());
        EXPECT_EQ(PinRules::cutZoomSteps(0, size), 0) << "no picture changes by itself";
        const int least = PinRules::cutZoomSteps(-1000, size);
        const int most = PinRules::cutZoomSteps(1000, size);
        EXPECT_LE(least, 0);
        EXPECT_GE(most, 0);
        EXPECT_TRUE(least == 0 || size.height() * PinRules::zoomAfter(least) > 15.9) << least;
        EXPECT_TRUE(most == 0 || size.width() * PinRules::zoomAfter(most) < 8193) << most;
    }
    EXPECT_GT(PinRules::opacityAfter(PinRules::cutOpacitySteps(100)), 0.1);
    EXPECT_EQ(PinRules::opacityAfter(PinRules::cutOpacitySteps(-3)), 1);
}
