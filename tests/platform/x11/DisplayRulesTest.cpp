#include "platform/x11/DisplayRules.h"

#include <gtest/gtest.h>

namespace {

DisplayRecord onRoot(QRect pixels, double scale)
{
    return {1, {}, pixels, scale, {}};
}

}

TEST(DisplayRules, CountFromTheFirstDisplay)
{
    // The first display stands right of and below the second.
    const auto displays =
        arrangedDisplays({onRoot({1024, 200, 2560, 1600}, 2), onRoot({0, 0, 1024, 768}, 1)});
    EXPECT_EQ(displays[0].pixels, QRect(0, 0, 2560, 1600));
    EXPECT_EQ(displays[0].frame, (ZRRect{0, 0, 1280, 800}));
    EXPECT_EQ(displays[1].pixels, QRect(-1024, -200, 1024, 768));
    EXPECT_EQ(displays[1].frame, (ZRRect{-1024, 800 + 200 - 768, 1024, 768}));
}

TEST(DisplayRules, DivideSizesByTheDisplaysOwnScale)
{
    for (double scale : {1.0, 1.25, 1.5, 2.0}) {
        SCOPED_TRACE(scale);
        const auto displays =
            arrangedDisplays({onRoot({0, 0, 1920, 1200}, 1), onRoot({1920, 0, 3840, 2400}, scale)});
        EXPECT_EQ(displays[1].frame.size(), (ZRSize{3840 / scale, 2400 / scale}));
        EXPECT_EQ(displays[1].frame.maxY(), 1200); // both tops are one line
    }
}

TEST(DisplayRules, KeepNeighboursApartAtEveryPairOfScales)
{
    for (double left : {1.0, 1.25, 2.0}) {
        for (double right : {1.0, 1.5, 3.0}) {
            SCOPED_TRACE(testing::Message() << left << ", " << right);
            const auto d = arrangedDisplays({onRoot({0, 0, 1920, 1200}, left),
                onRoot({1920, 0, 1920, 1200}, right), onRoot({0, 1200, 1920, 1200}, right)});
            EXPECT_TRUE(d[0].frame.intersected(d[1].frame).isEmpty());
            EXPECT_TRUE(d[0].frame.intersected(d[2].frame).isEmpty());
        }
    }
}
