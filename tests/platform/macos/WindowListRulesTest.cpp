#include "platform/macos/WindowListRules.h"

#include "platform/macos/DisplayRules.h"

#include <gtest/gtest.h>

namespace {

const std::vector<DisplayRecord> kDisplays = arrangedDisplays({
    {1, QStringLiteral("first"), {}, {0, 0, 1440, 900}, 2},
    {2, QStringLiteral("right"), {}, {1440, -300, 1920, 1200}, 1},
});

std::vector<QRect> pixelsOf(ZRServerRect bounds)
{
    std::vector<QRect> pixels;
    for (const WindowRecord& record : recordsOf({{bounds, {}, {}, 1}}, kDisplays))
        pixels.push_back(record.pixels);
    return pixels;
}

}

TEST(MacWindowList, GivesEachDisplayItsPartOfAWindow)
{
    struct Case {
        const char* name;
        ZRServerRect bounds;
        std::vector<QRect> pixels;
    };
    const Case cases[] = {
        {"inside the first", {10, 20, 300, 200}, {{20, 40, 600, 400}}},
        {"half a point", {10.5, 20, 300, 200}, {{21, 40, 600, 400}}},
        {"inside its neighbour", {1500, 30, 100, 50}, {{2940, 30, 100, 50}}},
        {"on both", {1400, 100, 100, 50}, {{2800, 200, 80, 100}, {2880, 100, 60, 50}}},
        {"reaching out to the left", {-100, -50, 200, 100}, {{0, 0, 200, 100}}},
        {"below the first, beside the other", {100, 1000, 100, 100}, {}},
        {"touching an edge", {0, 900, 100, 100}, {}},
        {"without a size", {10, 10, 0, 0}, {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(pixelsOf(c.bounds), c.pixels);
    }
}

TEST(MacWindowList, KeepsTheOrderAndWhatIsTold)
{
    const auto records =
        recordsOf({{{0, 0, 10, 10}, QStringLiteral("Dock"), {}, 0.5},
                      {{0, 0, 20, 20}, QStringLiteral("Editor"), QStringLiteral("a text"), 1}},
            kDisplays);
    ASSERT_EQ(records.size(), 2U);
    EXPECT_EQ(records[0].owner, QStringLiteral("Dock"));
    EXPECT_EQ(records[0].alpha, 0.5);
    EXPECT_EQ(records[1].name, QStringLiteral("a text"));
    EXPECT_TRUE(recordsOf({{{0, 0, 10, 10}, {}, {}, 1}}, {}).empty());
}
