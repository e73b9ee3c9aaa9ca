#include "capture/ColourRules.h"

#include <gtest/gtest.h>

using ColourRules::Hsl;

TEST(ColourRules, TurnsColoursIntoWholeHslAndBack)
{
    struct Case {
        QRgb rgb;
        Hsl hsl;
        bool isBack; // the whole numbers name this very colour
    };
    const Case cases[] = {
        {qRgb(255, 0, 0), {0, 100, 50}, true},
        {qRgb(0, 128, 0), {120, 100, 25}, true},
        {qRgb(0, 0, 255), {240, 100, 50}, true},
        {qRgb(255, 255, 0), {60, 100, 50}, true},
        {qRgb(191, 64, 191), {300, 50, 50}, true},
        {qRgb(50, 166, 255), {206, 100, 60}, false},
        {qRgb(255, 0, 1), {0, 100, 50}, false}, // 359.8 degrees are a full circle
        {qRgb(128, 128, 128), {77, 0, 50}, true},
        {qRgb(255, 255, 255), {77, 33, 100}, true},
        {qRgb(0, 0, 0), {77, 33, 0}, true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(ColourRules::htmlText(c.rgb).toStdString());
        EXPECT_EQ(ColourRules::toHsl(c.rgb, {77, 33, 99}), c.hsl);
        EXPECT_EQ(ColourRules::toRgb(c.hsl) == c.rgb, c.isBack);
    }
}

TEST(ColourRules, ReadsHtmlTextOnly)
{
    struct Case {
        const char16_t* text;
        std::optional<QRgb> colour;
    };
    const Case cases[] = {
        {u"#32a6ff", qRgb(0x32, 0xa6, 0xff)},
        {u"32A6FF", qRgb(0x32, 0xa6, 0xff)},
        {u"  #000102\n", qRgb(0, 1, 2)},
        {u"#fa0", qRgb(0xff, 0xaa, 0)},
        {u"", std::nullopt},
        {u"#", std::nullopt},
        {u"#32a6f", std::nullopt},
        {u"#32a6ff0", std::nullopt},
        {u"##32a6f", std::nullopt},
        {u"#32a6fg", std::nullopt},
        {u"-32a6f", std::nullopt},
        {u"#32 6ff", std::nullopt},
        {u"\uff13\uff12\uff10", std::nullopt}, // digits, but not ours
        {u"red", std::nullopt},
    };
    for (const Case& c : cases) {
        const QString text = QString::fromUtf16(c.text);
        SCOPED_TRACE(text.toStdString());
        EXPECT_EQ(ColourRules::fromHtmlText(text), c.colour);
    }
    for (const QRgb colour : {qRgb(1, 2, 3), qRgb(0, 0, 0), qRgb(160, 11, 255)})
        EXPECT_EQ(ColourRules::fromHtmlText(ColourRules::htmlText(colour)), colour);
}

TEST(ColourRules, KeepsTheLatestPicksOnceEach)
{
    QList<QRgb> picks;
    for (int i = 0; i < 20; ++i)
        picks = ColourRules::withPick(picks, qRgb(0, 0, i));
    EXPECT_EQ(picks.size(), ColourRules::kMostPicks);
    picks = ColourRules::withPick(picks, qRgb(0, 0, 15));
    EXPECT_EQ(picks.mid(0, 3), QList({qRgb(0, 0, 15), qRgb(0, 0, 19), qRgb(0, 0, 18)}));
    EXPECT_EQ(picks.count(qRgb(0, 0, 15)), 1);
    QStringList stored = ColourRules::storedPicks(picks);
    EXPECT_EQ(ColourRules::readPicks(stored), picks);
    stored.prepend(QStringLiteral("nonsense"));
    EXPECT_EQ(ColourRules::readPicks(stored), picks);
    EXPECT_EQ(ColourRules::readPicks(stored + stored).size(), ColourRules::kMostPicks);
}
