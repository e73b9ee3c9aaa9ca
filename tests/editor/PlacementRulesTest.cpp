#include "editor/PlacementRules.h"

#include <gtest/gtest.h>

#include <random>

namespace {

const ZRSize kScreen{1440, 900};
const ZRSize kDrawing{441, 40};
const ZRSize kOutput{40, 117};

ZRRect at(ZRPoint origin, ZRSize size)
{
    return {origin.x, origin.y, size.width, size.height};
}

PlacementRules::Toolbars placed(ZRRect region, ZRSize screen)
{
    return PlacementRules::apart(region,
        {at(PlacementRules::drawingToolbarOrigin(region, kDrawing, screen), kDrawing),
            at(PlacementRules::outputToolbarOrigin(region, kOutput, screen), kOutput)},
        screen);
}

bool overlaps(const PlacementRules::Toolbars& toolbars)
{
    return !toolbars.drawing.intersected(toolbars.output).isEmpty();
}

bool isOn(ZRSize screen, ZRRect r)
{
    return r.x >= 0 && r.y >= 0 && r.maxX() <= screen.width && r.maxY() <= screen.height;
}

}

TEST(PlacementRules, PutEachToolbarInItsOwnPlace)
{
    struct Case {
        const char* where;
        ZRRect region;
        ZRPoint drawing, output;
    };
    const Case cases[] = {
        {"in the middle", {500, 300, 600, 400}, {659, 255}, {1105, 300}},
        {"low enough for the drawing toolbar", {500, 46, 600, 400}, {659, 1}, {1105, 46}},
        {"too low for it", {500, 45, 600, 400}, {659, 50}, {1105, 45}},
        {"at the lower edge", {500, 0, 600, 400}, {659, 5}, {1105, 5}},
        {"near the left edge", {10, 300, 100, 400}, {0, 255}, {115, 300}},
        {"beyond the right edge", {1000, 300, 500, 400}, {999, 255}, {1395, 300}},
        {"near the upper edge", {500, 880, 600, 20}, {659, 835}, {1105, 783}},
        {"beyond the left edge", {-200, 300, 100, 100}, {0, 255}, {0, 300}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.where);
        EXPECT_EQ(PlacementRules::drawingToolbarOrigin(c.region, kDrawing, kScreen), c.drawing);
        EXPECT_EQ(PlacementRules::outputToolbarOrigin(c.region, kOutput, kScreen), c.output);
    }
}

TEST(PlacementRules, PartToolbarsThatMeet)
{
    struct Case {
        const char* where;
        ZRRect region;
        ZRPoint drawing;
    };
    const Case cases[] = {
        {"apart anyway", {500, 300, 600, 400}, {659, 255}},
        {"the whole display: left of the output toolbar", {0, 0, 1440, 900}, {949, 5}},
        {"at the lower right corner", {1000, 20, 440, 400}, {949, 25}},
        {"at the lower left corner: right of it", {0, 0, 100, 100}, {150, 5}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.where);
        EXPECT_EQ(placed(c.region, kScreen).drawing.origin(), c.drawing);
        EXPECT_FALSE(overlaps(placed(c.region, kScreen)));
    }
}

TEST(PlacementRules, KeepToolbarsOnEveryDisplayAndApartWhereThereIsRoom)
{
    const ZRSize screens[] = {{1440, 900}, {1024, 600}, {600, 1024}, {500, 240}};
    std::minstd_rand random(8);
    const auto between = [&random](double low, double high) {
        return std::uniform_real_distribution(low, high)(random);
    };
    for (int i = 0; i < 5000; ++i) {
        const ZRSize screen = screens[i % 4];
        const double x = between(-50, screen.width), y = between(-5, screen.height);
        const ZRRect region{x, y, between(0, screen.width + 50 - x), between(0, screen.height + 50 - y)};
        SCOPED_TRACE(testing::Message() << region.x << ' ' << region.y << ' ' << region.width << ' '
                                        << region.height << " on " << screen.width);
        const auto toolbars = placed(region, screen);
        ASSERT_TRUE(isOn(screen, toolbars.drawing) && isOn(screen, toolbars.output));
        ASSERT_FALSE(overlaps(toolbars));
    }
}

TEST(PlacementRules, LetToolbarsOverlapOnADisplayTooSmallForBoth)
{
    for (const ZRSize screen : {ZRSize{460, 130}, ZRSize{300, 100}}) {
        const auto toolbars = placed({0, 0, screen.width, screen.height}, screen);
        EXPECT_TRUE(toolbars.drawing.x >= 0 && toolbars.drawing.y >= 0);
        EXPECT_TRUE(toolbars.output.x >= 0 && toolbars.output.y >= 0);
    }
}
