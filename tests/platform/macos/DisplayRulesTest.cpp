#include "platform/macos/DisplayRules.h"

#include <gtest/gtest.h>

namespace {

// A first display of scale 2, a plain one to its right that reaches higher, one to its left and one below.
const std::vector<ScreenFacts> kScreens{
    {1, QStringLiteral("first"), {}, {0, 0, 1440, 900}, 2},
    {2, QStringLiteral("right"), {}, {1440, -180, 1920, 1200}, 1},
    {3, QStringLiteral("left"), {}, {-1280, 100, 1280, 800}, 2},
    {4, QStringLiteral("below"), {}, {0, -768, 1024, 768}, 1},
};

}

TEST(MacDisplays, CountPixelsFromTheFirstDisplaysTopLeftCorner)
{
    const auto displays = arrangedDisplays(kScreens);
    const QRect expected[] = {
        {0, 0, 2880, 1800},
        {2880, -240, 1920, 1200}, // its top lies 120 points above the first one's
        {-2560, 0, 2560, 1600},
        {0, 1800, 1024, 768},
    };
    for (size_t i = 0; i < displays.size(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(displays[i].pixels, expected[i]);
        EXPECT_EQ(displays[i].frame, kScreens[i].frame);
        EXPECT_EQ(displays[i].scale, kScreens[i].scale);
    }
}

TEST(MacDisplays, NeverOverlapAtDifferentScales)
{
    for (const double firstScale : {1.0, 2.0}) {
        auto screens = kScreens;
        screens[0].scale = firstScale;
        screens[2].scale = 3 - firstScale;
        const auto displays = arrangedDisplays(screens);
        for (size_t i = 0; i < displays.size(); ++i)
            for (size_t j = i + 1; j < displays.size(); ++j)
                EXPECT_FALSE(displays[i].pixels.intersects(displays[j].pixels)) << firstScale << i << j;
    }
}

TEST(MacDisplays, TellThePixelUnderThePointer)
{
    struct Case {
        double x, y;
        std::optional<QPoint> pixel;
        int display;
    };
    const Case cases[] = {
        {0, 0, QPoint(0, 0), 0},
        {100.5, 50, QPoint(201, 100), 0},
        {1439.5, 899.5, QPoint(2879, 1799), 0}, // the last pixel of the first display
        {1440, 0, QPoint(2880, -120), 1},       // the first column of its neighbour
        {1440, -120, QPoint(2880, -240), 1},    // its top row
        {-1, 10, QPoint(-2, 20), 2},
        {10, 900, QPoint(10, 1800), 3},
        {-1, 850, std::nullopt, -1}, // beside all of them
        {5000, 0, std::nullopt, -1},
    };
    const auto displays = arrangedDisplays(kScreens);
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.x << ' ' << c.y);
        EXPECT_EQ(pixelAt(displays, c.x, c.y), c.pixel);
        for (int i = 0; c.pixel && i < int(displays.size()); ++i)
            EXPECT_EQ(displays[size_t(i)].holds(*c.pixel), i == c.display);
    }
    EXPECT_EQ(pixelAt({}, 0, 0), std::nullopt);
}
