#include "capture/RegionDrag.h"

#include <gtest/gtest.h>

namespace {

constexpr ZRSize kOverlay{800, 600};
constexpr ZRRect kRegion{100, 200, 300, 250};

}

TEST(RegionDrag, GoesOnFromTheStepBefore)
{
    struct Case {
        const char* what;
        int handle;
        ZRPoint press;
        ZRRect expected;
    };
    const Case cases[] = {
        {"the body moves", 0, {150, 250}, {120, 210, 300, 250}},
        {"the body is held a little beside it", 0, {97, 250}, {120, 210, 300, 250}},
        {"the top right corner grows it", 3, {400, 450}, {100, 200, 320, 260}},
        {"the bottom left corner cuts it", 6, {100, 200}, {120, 210, 280, 240}},
        {"too far beside it nothing is held", 0, {95, 250}, kRegion},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        RegionDrag drag;
        drag.takeHold(c.press, c.handle);
        ZRRect region = kRegion;
        for (const ZRPoint step : {ZRPoint{5, 5}, {12.5, 7.5}, {20, 10}})
            if (drag.holds(region))
                region = drag.pulled(region, {c.press.x + step.x, c.press.y + step.y}, kOverlay, 2);
        EXPECT_EQ(region, c.expected);
    }
}
