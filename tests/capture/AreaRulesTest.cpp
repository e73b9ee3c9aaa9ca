#include "capture/AreaRules.h"

#include "tests/fakes/FakeDisplays.h"

#include <gtest/gtest.h>

namespace {

// The second one lies left of and above the first, and the virtual screen begins above both.
const std::vector<DisplayRecord> kDisplays{
    FakeDisplays::display(1, {0, 0, 800, 600}, 1), FakeDisplays::display(2, {-640, -100, 640, 480}, 2)};
constexpr QRect kScreen{-640, -150, 1440, 750};

}

TEST(AreaRules, ReadTheNotationOfXPrograms)
{
    struct Case {
        const char* text;
        QRect pixels; // empty for what is none
    };
    const Case cases[] = {
        {"200x100+10+20", {-630, -130, 200, 100}},
        {"200x100-10+20", {590, -130, 200, 100}},
        {"200x100+10-20", {-630, 480, 200, 100}},
        {"1x1-0-0", {799, 599, 1, 1}},
        {"200x100+-10+-20", {-650, -170, 200, 100}},
        {"200x100--10+0", {610, -150, 200, 100}},
        {"0x100+10+20", {}},
        {"200x100", {}},
        {"200x100+10", {}},
        {"+10+20", {}},
        {" 200x100+10+20", {}},
        {"200X100+10+20", {}},
        {"200x100+10+20x", {}},
        {"200000x100+10+20", {}},
        {"-5x100+10+20", {}},
        {"", {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        const auto geometry = AreaRules::parsed(QString::fromLatin1(c.text));
        EXPECT_EQ(geometry.has_value(), !c.pixels.isNull());
        if (geometry) {
            EXPECT_EQ(AreaRules::placed(*geometry, kScreen), c.pixels);
        }
    }
}

TEST(AreaRules, ARectangleBelongsToTheDisplayThatHoldsMostOfIt)
{
    struct Case {
        QRect pixels;
        int display; // 0 for none
        QRect onDisplay;
    };
    const Case cases[] = {
        {{10, 20, 30, 40}, 1, {10, 20, 30, 40}},
        {{-10, 20, 100, 40}, 1, {0, 20, 90, 40}},
        {{-90, 20, 100, 40}, 2, {550, 120, 90, 40}},
        {{700, 500, 300, 300}, 1, {700, 500, 100, 100}},
        {{-5000, -5000, 20000, 20000}, 1, {0, 0, 800, 600}},
        {{0, -150, 100, 150}, 0, {}},
        {{5000, 0, 10, 10}, 0, {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.pixels.x() << ',' << c.pixels.y());
        const auto area = AreaRules::onMainDisplay(c.pixels, kDisplays);
        EXPECT_EQ(area ? area->display.id : 0, c.display);
        if (area) {
            EXPECT_EQ(area->pixels, c.onDisplay);
        }
    }
    EXPECT_FALSE(AreaRules::onMainDisplay({0, 0, 10, 10}, {}));
}

TEST(AreaRules, DisplaysHaveNumbersAndNames)
{
    const std::pair<const char*, int> cases[] = {
        {"1", 1}, {"2", 2}, {"Display 2", 2}, {"0", 0}, {"3", 0}, {"-1", 0}, {"Display", 0}, {"", 0}};
    for (const auto& [name, id] : cases) {
        SCOPED_TRACE(name);
        const auto display = AreaRules::displayNamed(QString::fromLatin1(name), kDisplays);
        EXPECT_EQ(display ? display->id : 0, id);
    }
    EXPECT_EQ(AreaRules::list(kDisplays, kScreen).toStdString(),
        "1 Display 1 800x600+640+150, 2 Display 2 640x480+0+50");
}

TEST(AreaRules, AnAreaComesBackWhileItsDisplayHasRoomForIt)
{
    const CaptureArea area{kDisplays[1], {600, 400, 40, 80}};
    const QString text = AreaRules::stored(area);
    EXPECT_EQ(AreaRules::restored(text, kDisplays), area);
    EXPECT_FALSE(AreaRules::restored(text, {kDisplays[0]}));
    EXPECT_FALSE(AreaRules::restored(text, {FakeDisplays::display(2, {0, 0, 639, 480}, 1)}));
    EXPECT_FALSE(AreaRules::restored(QStringLiteral("40x80+0+0"), kDisplays));
    EXPECT_FALSE(AreaRules::restored(QString(), kDisplays));
}
