#include "customui/PopupRules.h"

#include <gtest/gtest.h>

using PopupRules::Side;

namespace {

constexpr ZRSize kSpace{1000, 600};
constexpr ZRSize kRibbon{380, 48};
constexpr double kDistance = PopupRules::kArrowLength + PopupRules::kGap;

bool isInside(ZRRect r, ZRSize space)
{
    return r.x >= 0 && r.y >= 0 && r.maxX() <= space.width && r.maxY() <= space.height;
}

}

TEST(PopupRules, StandWhereTheyPreferOrOppositeOfIt)
{
    struct Case {
        const char* what;
        ZRRect item;
        int direction;
        Side side;
        ZRPoint origin;
    };
    const ZRSize list{58, 144}; // beside the item; the ribbon stands below or above it
    const Case cases[] = {
        {"in the middle", {484, 300, 32, 32}, 1, Side::Below, {310, 300 - kDistance - 48}},
        {"just enough room below", {484, 48 + kDistance, 32, 32}, 1, Side::Below, {310, 0}},
        {"too little room below", {484, 47 + kDistance, 32, 32}, 1, Side::Above, {310, 79 + 2 * kDistance}},
        {"at the left edge", {0, 300, 32, 32}, 1, Side::Below, {0, 300 - kDistance - 48}},
        {"at the right edge", {968, 300, 32, 32}, 1, Side::Below, {620, 300 - kDistance - 48}},
        {"just enough room to the right", {910 - kDistance, 300, 32, 32}, 2, Side::Right, {942, 244}},
        {"too little room to the right", {911 - kDistance, 300, 32, 32}, 2, Side::Left,
            {853 - 2 * kDistance, 244}},
        {"at the bottom", {500, 0, 32, 32}, 2, Side::Right, {532 + kDistance, 0}},
        {"at the top", {500, 568, 32, 32}, 2, Side::Right, {532 + kDistance, 456}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const ZRSize panel = c.direction == 1 ? kRibbon : list;
        const auto placement = PopupRules::besideAnchor(c.item, c.item, panel, kSpace, c.direction);
        EXPECT_EQ(placement.side, c.side);
        EXPECT_EQ(placement.panel, (ZRRect{c.origin.x, c.origin.y, panel.width, panel.height}));
    }
}

TEST(PopupRules, ClearTheBarAndPointAtTheItem)
{
    const ZRRect bar{300, 200, 400, 40};
    for (double x = bar.x; x < bar.maxX(); x += 36) {
        SCOPED_TRACE(x);
        const ZRRect item{x, 204, 32, 32};
        const PopupRules::Placement p = PopupRules::besideAnchor(item, bar, kRibbon, kSpace, 1);
        EXPECT_LE(p.panel.maxY(), bar.y);
        EXPECT_EQ(p.panel.x + p.tip, item.x + 16);
    }
}

TEST(PopupRules, KeepTheArrowOffTheCorners)
{
    const double least = PopupRules::kCornerRadius + PopupRules::kArrowHalfWidth;
    for (const double x : {0.0, 2.0, 966.0, 998.0}) {
        SCOPED_TRACE(x);
        const ZRRect item{x, 300, 2, 32};
        const PopupRules::Placement p = PopupRules::besideAnchor(item, item, kRibbon, kSpace, 1);
        EXPECT_GE(p.tip, least);
        EXPECT_LE(p.tip, kRibbon.width - least);
    }
}

TEST(PopupRules, StayInsideAnySpaceThatIsLargeEnough)
{
    for (const int direction : {1, 2}) {
        for (double x = -20; x <= 1000; x += 60) {
            for (double y = -20; y <= 600; y += 60) {
                const ZRRect item{x, y, 32, 32};
                EXPECT_TRUE(
                    isInside(PopupRules::besideAnchor(item, item, kRibbon, kSpace, direction).panel, kSpace));
                EXPECT_TRUE(isInside(PopupRules::underButton(item, {75, 260}, kSpace), kSpace));
            }
        }
    }
    const ZRRect item{10, 10, 32, 32};
    EXPECT_EQ(PopupRules::besideAnchor(item, item, kRibbon, {100, 40}, 1).panel, (ZRRect{0, 0, 380, 48}));
}

TEST(PopupRules, DropAListFromItsButton)
{
    struct Case {
        const char* what;
        ZRRect button;
        ZRRect list;
    };
    const Case cases[] = {
        {"below", {100, 400, 75, 24}, {100, 400 - PopupRules::kGap - 260, 75, 260}},
        {"above", {100, 200, 75, 24}, {100, 224 + PopupRules::kGap, 75, 260}},
        {"moved in from the right", {960, 400, 75, 24}, {925, 400 - PopupRules::kGap - 260, 75, 260}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(PopupRules::underButton(c.button, {75, 260}, kSpace), c.list);
    }
}
