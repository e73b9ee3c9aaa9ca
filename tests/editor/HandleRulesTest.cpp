#include "editor/HandleRules.h"

#include <gtest/gtest.h>

namespace {

constexpr ZRRect kRect{100, 200, 40, 20};

}

TEST(HandleRules, StandAtCornersAndMiddles)
{
    struct Case {
        int direction;
        ZRPoint expected;
    };
    const Case cases[] = {{kTopLeft, {100, 220}}, {kTopMiddle, {120, 220}}, {kTopRight, {140, 220}},
        {kMiddleLeft, {100, 210}}, {kMiddleRight, {140, 210}}, {kBottomLeft, {100, 200}},
        {kBottomMiddle, {120, 200}}, {kBottomRight, {140, 200}}, {kNoHandle, {}}, {-1, {}}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.direction);
        EXPECT_EQ(HandleRules::handlePoint(kRect, c.direction), c.expected);
    }
}

TEST(HandleRules, FindTheHandleUnderThePointer)
{
    struct Case {
        const char* what;
        ZRRect rect;
        ZRPoint point;
        int expected;
    };
    const Case cases[] = {
        {"the middle of a handle", kRect, {140, 210}, kMiddleRight},
        {"its lower left corner", kRect, {96, 216}, kTopLeft},
        {"its right edge", kRect, {104, 220}, kNoHandle},
        {"its top edge", kRect, {100, 224}, kNoHandle},
        {"inside the rectangle", kRect, {120, 210}, kNoHandle},
        {"all handles on one place", {100, 200, 2, 2}, {101, 201}, kTopLeft},
        {"where the lower number is out of reach", {100, 200, 2, 2}, {101, 196.5}, kBottomLeft},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(HandleRules::handleAt(c.rect, c.point), c.expected);
    }
}

TEST(HandleRules, PullTheirOwnEdgesAndTurnIntoTheMirroredHandle)
{
    struct Case {
        int direction;
        ZRPoint by;
        ZRRect expected;
        int turnsInto;
    };
    // The rectangle is 100, 200, 40 wide, 20 high; every press is 1 point right of and above its handle.
    const Case cases[] = {
        {kTopLeft, {5, 7}, {105, 200, 35, 27}, kTopLeft},
        {kTopLeft, {50, 0}, {140, 200, 10, 20}, kTopRight},
        {kTopLeft, {0, -30}, {100, 190, 40, 10}, kBottomLeft},
        {kTopLeft, {50, -30}, {140, 190, 10, 10}, kBottomLeft},
        {kTopMiddle, {5, 7}, {100, 200, 40, 27}, kTopMiddle},
        {kTopMiddle, {5, -30}, {100, 190, 40, 10}, kBottomMiddle},
        {kTopRight, {5, 7}, {100, 200, 45, 27}, kTopRight},
        {kTopRight, {-50, 0}, {91, 200, 10, 20}, kTopLeft}, // under the pointer
        {kTopRight, {-50, -30}, {91, 190, 10, 10}, kBottomRight},
        {kMiddleLeft, {5, 7}, {105, 200, 35, 20}, kMiddleLeft},
        {kMiddleLeft, {40, 7}, {140, 200, 0, 20}, kMiddleRight},
        {kMiddleRight, {5, 7}, {100, 200, 45, 20}, kMiddleRight},
        {kMiddleRight, {-50, 7}, {91, 200, 10, 20}, kMiddleLeft}, // under the pointer
        {kBottomLeft, {5, 7}, {105, 207, 35, 13}, kBottomLeft},
        {kBottomLeft, {50, 30}, {140, 220, 10, 10}, kTopLeft},
        {kBottomMiddle, {5, 7}, {100, 207, 40, 13}, kBottomMiddle},
        {kBottomMiddle, {5, 20}, {100, 220, 40, 0}, kTopMiddle},
        {kBottomRight, {5, 7}, {100, 207, 45, 13}, kBottomRight},
        {kBottomRight, {-50, 0}, {90, 200, 10, 20}, kBottomLeft},
        {kBottomRight, {-50, 30}, {90, 220, 10, 10}, kTopRight},
        {kNoHandle, {5, 7}, kRect, kNoHandle},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.direction << " by " << c.by.x << ',' << c.by.y);
        const ZRPoint handle = HandleRules::handlePoint(kRect, c.direction);
        const ZRPoint pointer{handle.x + 1 + c.by.x, handle.y + 1 + c.by.y};
        const HandleRules::Grab grab = HandleRules::pulled({kRect, c.direction}, c.by, pointer);
        EXPECT_EQ(grab.rect, c.expected);
        EXPECT_EQ(grab.direction, c.turnsInto);
    }
}
