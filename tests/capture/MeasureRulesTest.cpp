#include "capture/MeasureRules.h"

#include <gtest/gtest.h>

TEST(MeasureRules, MeasuresFromTheLastPressInPoints)
{
    struct Case {
        const char* what;
        Measurement measurement;
        ZRPoint pointer;
        ZRSize expected;
    };
    const Case cases[] = {
        {"before the first press", {{100, 100}, false}, {130, 60}, {0, 0}},
        {"right and down", {{100, 100}, true}, {130, 60}, {30, 40}},
        {"left and up", {{100, 100}, true}, {70, 140}, {30, 40}},
        {"at the press", {{100, 100}, true}, {100, 100}, {0, 0}},
        {"half a point at scale 2", {{100, 100}, true}, {100.5, 99.5}, {0.5, 0.5}},
        {"thirds at scale 1.5, no residue", {{4 / 1.5, 11 / 1.5}, true}, {49 / 1.5, 101 / 1.5}, {30, 60}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(MeasureRules::measuredSize(c.measurement, c.pointer), c.expected);
    }
}
