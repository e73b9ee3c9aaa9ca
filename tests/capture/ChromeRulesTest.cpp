#include "capture/ChromeRules.h"

#include <gtest/gtest.h>

TEST(ChromeRules, PlaceTheSizeLabelAboveTheRegion)
{
    const ZRSize label{88, 22};
    struct Case {
        const char* what;
        ZRRect region;
        ZRPoint origin; // on a display 600 points high
    };
    const Case cases[] = {
        {"above", {100, 50, 300, 200}, {100, 255}},
        {"just below the top", {100, 50, 300, 522}, {100, 577}},
        {"reaching past the top by a point", {100, 50, 300, 524}, {100, 578}},
        {"at the top", {100, 50, 300, 550}, {100, 578}},
        {"pulled past both", {400, 250, -300, -200}, {100, 255}},
        {"beyond the left", {-20, 50, 60, 20}, {-20, 75}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(ChromeRules::sizeLabelOrigin(c.region, label, 600), c.origin);
    }
}

TEST(ChromeRules, HoldTheMagnifierAtTheRightAndBottomEdges)
{
    struct Case {
        const char* what;
        ZRPoint pointer, origin; // of a magnifier of 100 x 120 on a display of 800 x 600
    };
    const Case cases[] = {
        {"free", {300, 400}, {310, 265}},
        {"the last free column", {689, 400}, {699, 265}},
        {"reaching the right edge", {690, 400}, {700, 265}},
        {"the last free row", {300, 136}, {310, 1}},
        {"reaching the bottom edge", {300, 135}, {310, 0}},
        {"in the corner, over the pointer", {799, 1}, {700, 0}},
        {"beyond the left", {-30, 400}, {-20, 265}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(ChromeRules::magnifierOrigin(c.pointer, {100, 120}, {800, 600}), c.origin);
    }
}

TEST(ChromeRules, CrossThePixelWithLinesOfOneThickness)
{
    struct Case {
        double scale;
        QPoint pixel;
        QRect horizontal, vertical;
    };
    const QSize display(1000, 700);
    const Case cases[] = {
        {1, {10, 20}, {0, 19, 1000, 2}, {9, 0, 2, 700}},
        {1.25, {10, 20}, {0, 19, 1000, 3}, {9, 0, 3, 700}},
        {1.25, {11, 21}, {0, 20, 1000, 3}, {10, 0, 3, 700}},
        {1.5, {10, 20}, {0, 19, 1000, 3}, {9, 0, 3, 700}},
        {2, {0, 699}, {0, 697, 1000, 4}, {-2, 0, 4, 700}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << "scale " << c.scale << ", column " << c.pixel.x());
        const auto lines = ChromeRules::crossLines(c.pixel, display, c.scale);
        EXPECT_EQ(lines[0], c.horizontal);
        EXPECT_EQ(lines[1], c.vertical);
    }
}

TEST(ChromeRules, PutTheCrossImageHalfAPointLeftAndAbove)
{
    EXPECT_EQ(ChromeRules::crossImageRect({100, 200}, {25, 21}), (ZRRect{87, 190, 25, 21}));
}

TEST(ChromeRules, SampleThirtyTwoPointsAroundThePixel)
{
    struct Case {
        double scale;
        QRect sample; // around the pixel 100, 50
    };
    const Case cases[] = {
        {1, {84, 34, 32, 32}}, {1.25, {80, 30, 40, 40}}, {1.5, {76, 26, 48, 48}}, {2, {68, 18, 64, 64}},
        {1.1, {82, 32, 36, 36}}, // an even number
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.scale);
        EXPECT_EQ(ChromeRules::samplePixels({100, 50}, c.scale), c.sample);
    }
}

TEST(ChromeRules, CutNumbersTowardsZeroButNotForARoundingResidue)
{
    struct Case {
        double first, second;
        const char* text;
    };
    const Case cases[] = {
        {12.7, 3.9, "12x3"},
        {-0.5, -3.9, "0x-3"},
        {0, 0, "0x0"},
        {47 / 1.25 * 1.25, 0.8 + 2.2, "47x3"},
        {100 * 1.1 - 10, 30 - 0.1 * 3 - 0.7, "100x29"},
        {59.99, 60.01, "59x60"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(ChromeRules::pairText(c.first, c.second), QLatin1String(c.text));
    }
    EXPECT_EQ(ChromeRules::sizeText({-30.5, 40.9}), QStringLiteral("30x40"));
}

TEST(ChromeRules, WriteColoursInLowerCaseWithTwoDigitsEach)
{
    EXPECT_EQ(ChromeRules::hexText({0, 10, 171}), QStringLiteral("#000aab"));
    for (int value = 0; value < 256; ++value) // no component loses its last digit
        EXPECT_EQ(ChromeRules::hexText({value, value, value}), QColor(value, value, value).name());
}

TEST(ChromeRules, ShapeThePointerAfterWhatAPressWouldDo)
{
    EXPECT_EQ(ChromeRules::pointerShape(0, false), Qt::ArrowCursor);
    EXPECT_EQ(ChromeRules::pointerShape(0, true), Qt::SizeAllCursor);
    for (const auto& [handle, opposite] :
        {std::pair(1, 8), std::pair(2, 7), std::pair(3, 6), std::pair(4, 5)})
        EXPECT_EQ(ChromeRules::pointerShape(handle, true), ChromeRules::pointerShape(opposite, true));
    EXPECT_EQ(ChromeRules::pointerShape(1, true), Qt::SizeFDiagCursor);
    EXPECT_EQ(ChromeRules::pointerShape(2, true), Qt::SizeVerCursor);
    EXPECT_EQ(ChromeRules::pointerShape(3, true), Qt::SizeBDiagCursor);
    EXPECT_EQ(ChromeRules::pointerShape(4, true), Qt::SizeHorCursor);
}
