#include "capture/EditedColour.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using ColourRules::Hsl;

std::vector<QRgb> randomColours(int count)
{
    std::mt19937 random(7);
    std::vector<QRgb> colours;
    for (int i = 0; i < count; ++i)
        colours.push_back(qRgb(0, 0, 0) | (random() & 0xffffff));
    return colours;
}

} // namespace

TEST(EditedColour, ComesBackExactlyHoweverItWasStepped)
{
    for (const QRgb colour : randomColours(300)) {
        SCOPED_TRACE(ColourRules::htmlText(colour).toStdString());
        EditedColour edited;
        edited.setRgb(colour);
        const Hsl hsl = edited.hsl();
        for (const Hsl& step : {Hsl{hsl.hue, 0, hsl.lightness}, Hsl{hsl.hue, hsl.saturation, 0},
                 Hsl{(hsl.hue + 180) % 360, 100 - hsl.saturation, 100 - hsl.lightness}}) {
            edited.setHsl(step);
            EXPECT_EQ(edited.hsl(), step); // what was typed stays, on greys too
        }
        EXPECT_NE(edited.rgb(), colour);
        edited.setHsl(hsl);
        EXPECT_EQ(edited.rgb(), colour);
    }
}

TEST(EditedColour, AGreyKeepsTheHueItHad)
{
    EditedColour edited;
    edited.setRgb(qRgb(50, 166, 255));
    edited.setRgb(qRgb(255, 255, 255));
    EXPECT_EQ(edited.hsl(), (Hsl{206, 100, 100}));
    edited.setHsl({206, 100, 50});
    EXPECT_EQ(edited.rgb(), ColourRules::toRgb({206, 100, 50}));
}
