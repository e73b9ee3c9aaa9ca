#include "capture/WindowWalk.h"

#include <gtest/gtest.h>

namespace {

constexpr ZRRect kInner{40, 40, 20, 20}, kMiddle{30, 30, 40, 40}, kOuter{0, 0, 200, 200};
// The smallest first; the same rectangle twice, as a window and its only child have it.
const std::vector<ZRRect> kCandidates{kInner, kMiddle, kMiddle, kOuter};
constexpr ZRPoint kPoint{50, 50};

}

TEST(WindowWalk, GoesThroughTheWindowsAtThePoint)
{
    struct Case {
        int angle; // turned in one go from the smallest
        ZRRect expected;
    };
    const Case cases[] = {
        {0, kInner}, {119, kInner}, {120, kMiddle}, {240, kOuter}, {1200, kOuter}, {-120, kInner}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.angle);
        WindowWalk walk;
        walk.turn(kCandidates, kPoint, c.angle);
        EXPECT_EQ(walk.meant(kCandidates, kPoint), c.expected);
    }
}

TEST(WindowWalk, TurnsBackAtOnceAtTheEndsAndCollectsSmallTurns)
{
    WindowWalk walk;
    walk.turn(kCandidates, kPoint, 1200);
    walk.turn(kCandidates, kPoint, -120);
    EXPECT_EQ(walk.meant(kCandidates, kPoint), kMiddle);
    for (int i = 0; i < 8; ++i)
        walk.turn(kCandidates, kPoint, 15);
    EXPECT_EQ(walk.meant(kCandidates, kPoint), kOuter);
}

TEST(WindowWalk, LeavesAPlainHoverAsItWas)
{
    WindowWalk walk;
    EXPECT_EQ(walk.meant(kCandidates, kPoint), kInner);
    walk.turn(kCandidates, kPoint, 240);
    EXPECT_EQ(walk.meant(kCandidates, {53, 47}), kOuter) << "a hand trembles";
    EXPECT_EQ(walk.meant(kCandidates, {56, 50}), kInner);
    EXPECT_EQ(walk.meant(kCandidates, {35, 35}), kMiddle);
    EXPECT_EQ(walk.meant(kCandidates, {300, 300}), std::nullopt);
    walk.turn(kCandidates, {300, 300}, 120);
    EXPECT_EQ(walk.meant(kCandidates, {300, 300}), std::nullopt);
    EXPECT_EQ(walk.meant(kCandidates, kPoint), kInner) << "it holds at one place only";
}
