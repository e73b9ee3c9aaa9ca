#include "editor/HitRules.h"

#include <gtest/gtest.h>

namespace {

constexpr ZRRect kSquare{100, 100, 100, 100};

}

TEST(HitRules, RectangleIsHitOnItsStrokeOnly)
{
    struct Case {
        ZRPoint point;
        bool isHit;
    };
    const Case cases[] = {{{150, 150}, false}, {{98, 150}, true}, {{97.9, 150}, false}, {{101.9, 150}, true},
        {{102, 150}, false}, {{198, 150}, true}, {{202, 150}, false}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.point.x);
        EXPECT_EQ(HitRules::hitsBorder(kSquare, 4, c.point), c.isHit);
    }
    EXPECT_FALSE(HitRules::hitsBorder({100, 100, 0, 0}, 4, {100, 100}));
}

TEST(HitRules, EllipseIsHitOnItsLineAndInsideASmallOne)
{
    struct Case {
        const char* what;
        ZRRect rect;
        qint32 width;
        ZRPoint point;
        bool isHit;
    };
    const Case cases[] = {
        {"the middle", kSquare, 4, {150, 150}, false},
        {"the corner of its rectangle", kSquare, 4, {101, 101}, false},
        {"the innermost whole point", kSquare, 4, {195, 150}, true},
        {"less than a whole point further in", kSquare, 4, {194.9, 150}, false},
        {"the outermost whole point", kSquare, 4, {188.9, 188.9}, true},
        {"a little outside", kSquare, 4, {189, 189}, false},
        {"outside its rectangle", kSquare, 4, {203, 150}, false},
        {"the middle of a narrow one", {100, 100, 10, 50}, 3, {105, 125}, true},
        {"the corner of a narrow one", {100, 100, 15, 50}, 3, {100, 100}, true},
        {"the middle of a less narrow one", {100, 100, 16, 50}, 3, {108, 125}, false},
        {"a stroke as wide as itself", {100, 100, 16, 50}, 16, {108, 125}, false},
        {"a click", {100, 100, 0, 0}, 3, {100, 100}, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(HitRules::hitsEllipse(c.rect, c.width, c.point), c.isHit);
    }
}

TEST(HitRules, LineIsHitAtItsEndsAndNearItselfWithinItsRectangle)
{
    // A diagonal of 3 by 4, so that a point off the line by d is off by 0.8 d and -0.6 d.
    const ZRPoint start{0, 0}, end{300, 400};
    const ZRRect rect{-3, -3, 306, 406};
    struct Case {
        const char* what;
        ZRPoint point;
        bool isHit;
    };
    const Case cases[] = {
        {"on it", {150, 200}, true},
        {"2.9 points off", {150 + 0.8 * 2.9, 200 - 0.6 * 2.9}, true},
        {"3.01 points off", {150 + 0.8 * 3.01, 200 - 0.6 * 3.01}, false},
        {"2.9 points off on the other side", {150 - 0.8 * 2.9, 200 + 0.6 * 2.9}, true},
        {"near an end", {300 - 5, 400 + 2.5}, true},
        {"beyond the rectangle", {300, 404}, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(HitRules::hitsLine(rect, start, end, 6, c.point), c.isHit);
    }
    EXPECT_TRUE(HitRules::hitsLine({-3, -3, 6, 6}, start, start, 6, {1, 1}));
    EXPECT_FALSE(HitRules::hitsLine({-9, -9, 18, 18}, start, start, 6, {8, 8}));
}

TEST(HitRules, StrokeIsHitNearAnyOfItsPoints)
{
    const DragPoints points{{0, 0}, {100, 0}, {100, 50}};
    const ZRRect extent{0, 0, 100, 50};
    struct Case {
        ZRPoint point;
        bool isHit;
    };
    const Case cases[] = {{{0, 0}, true}, {{-6, -6}, true}, {{6, 0}, false},
        {{50, 0}, false}, // between two points
        {{105.9, 55.9}, true}, {{106, 50}, false}};
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.point.x << ',' << c.point.y);
        EXPECT_EQ(HitRules::hitsStroke(points, extent, 3, c.point), c.isHit);
    }
    EXPECT_FALSE(HitRules::hitsStroke({}, {}, 3, {0, 0}));
}

TEST(HitRules, ColoursAreAlikeWhenNoChannelDiffersByAFifth)
{
    struct Case {
        QColor a, b;
        bool isAlike;
    };
    const Case cases[] = {
        {QColor(255, 0, 0), QColor(205, 50, 50), true},
        {QColor(255, 0, 0), QColor(203, 0, 0), false},
        {QColor(10, 10, 10), QColor(10, 10, 62), false},
        {QColor(10, 70, 10), QColor(10, 10, 10), false},
        {QColor(255, 0, 0, 0), QColor(255, 0, 0, 255), true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(qPrintable(c.b.name()));
        EXPECT_EQ(HitRules::isColorValueEqualToColorValue(c.a, c.b), c.isAlike);
        EXPECT_EQ(HitRules::isColorValueEqualToColorValue(c.b, c.a), c.isAlike);
    }
}
