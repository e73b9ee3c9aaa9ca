#include "capture/WindowRules.h"

#include "tests/fakes/FakeDisplays.h"

#include <gtest/gtest.h>

namespace {

WindowRecord window(QRect pixels, const char* owner = "program", double alpha = 1)
{
    return {pixels, QLatin1String(owner), {}, alpha};
}

const DisplayRecord kDisplay = FakeDisplays::display(1, QRect(0, 0, 800, 600), 1);

std::optional<ZRRect> pick(std::vector<WindowRecord> windows, ZRPoint point)
{
    return WindowRules::recognised(
        WindowRules::candidates(WindowRules::sortedByArea(std::move(windows)), kDisplay), point);
}

}

TEST(WindowRules, PickTheSmallestQualifyingWindowUnderThePointer)
{
    const QRect outer{100, 100, 400, 300}, inner{200, 150, 50, 60};
    const ZRRect outerRect{100, 200, 400, 300}, innerRect{200, 390, 50, 60};
    WindowRecord menubar = window(inner);
    menubar.name = QStringLiteral("Backstop Menubar");
    struct Case {
        const char* what;
        std::vector<WindowRecord> windows;
        ZRPoint point;
        std::optional<ZRRect> expected;
    };
    const Case cases[] = {
        {"the inner of two", {window(outer), window(inner)}, {210, 400}, innerRect},
        {"the outer beside it", {window(outer), window(inner)}, {110, 400}, outerRect},
        {"below a translucent one", {window(inner, "program", 0.99), window(outer)}, {210, 400}, outerRect},
        {"below a dock", {window(inner, "Dock"), window(outer)}, {210, 400}, outerRect},
        {"below the menu bar's backstop", {menubar, window(outer)}, {210, 400}, outerRect},
        {"none", {window(inner)}, {10, 10}, std::nullopt},
        {"the lowest row is its own", {window(inner)}, {200, 390}, innerRect},
        {"the row above its top is not", {window(inner)}, {200, 450}, std::nullopt},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(pick(c.windows, c.point), c.expected);
    }
}

TEST(WindowRules, CutAWindowAtItsDisplay)
{
    EXPECT_EQ(pick({window({-50, -40, 200, 100})}, {10, 590}), (ZRRect{0, 540, 150, 60}));
    EXPECT_EQ(pick({window({900, 0, 200, 100})}, {950, 590}), std::nullopt);
}

TEST(WindowRules, FindTheSameDevicePixelsOnAnyDisplayAndScale)
{
    const DisplayRecord displays[] = {FakeDisplays::display(1, QRect(0, 0, 1501, 1001), 1.25),
        FakeDisplays::display(2, QRect(-300, -200, 1501, 1001), 1.5),
        FakeDisplays::display(3, QRect(90, 40, 1500, 1000), 2)};
    for (const DisplayRecord& display : displays) {
        SCOPED_TRACE(display.id);
        const QRect pixels(101, 51, 100, 45);
        const auto rects = WindowRules::candidates({window(pixels)}, display);
        ASSERT_EQ(rects.size(), 1U);
        EXPECT_EQ(display.localPixels(rects[0]), pixels.translated(-display.pixels.topLeft()));
    }
}
