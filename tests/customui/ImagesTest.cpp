#include "customui/Images.h"

#include <QImage>

#include <gtest/gtest.h>

namespace {

// Each with the states -normal, -hover and -down.
const QStringList kControls = QStringLiteral(
    "save close pin upload copy share ok brush markerPen line arrow font square mosaic blur ellipse "
    "eraser redo forward 4pxDot 6pxDot 10pxDot facebook google twinter pinster pop-upload-help "
    "pop-upload-close snapBack clearKey region fullscreen tools crosshair colorpicker record options "
    "help tutorial support forum feedback update about quit reopen")
                                  .split(QLatin1Char(' '));
// Names that stand for one picture, or are spelled in their own way.
const QStringList kSingles = QStringLiteral(
    "dinClose-nomal dinClose-hover dinClose-down dropDown-normal crossImage cross_lighter colorabc logo "
    "Icon256x256 statusbar_normal_1024 formPublic formPrivate formKnob")
                                 .split(QLatin1Char(' '));

QStringList allNames()
{
    QStringList names = kSingles;
    for (const QString& base : kControls)
        for (const char* suffix : {"", "-normal", "-hover", "-down", "-disabled"})
            names << base + QLatin1String(suffix);
    return names;
}

QImage picture(const QString& name, QSizeF size = {16, 16}, qreal scale = 1)
{
    return imageNamed(name, size, scale).toImage();
}

// The device pixels that the picture covers; empty when it shows nothing.
QRect covered(const QImage& image)
{
    QRect all;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(image.pixel(x, y)) > 30)
                all |= QRect(x, y, 1, 1);
    return all;
}

}

TEST(Images, HaveAPictureForEveryName)
{
    for (const QString& name : allNames()) {
        SCOPED_TRACE(qPrintable(name));
        EXPECT_FALSE(imageSize(name).isEmpty());
        for (const int points : {16, 20}) {
            for (const int scale : {1, 2}) {
                const QPixmap pixmap = imageNamed(name, QSizeF(points, points), scale);
                EXPECT_EQ(pixmap.size(), QSize(points, points) * scale);
                EXPECT_EQ(pixmap.devicePixelRatio(), scale);
                EXPECT_FALSE(covered(pixmap.toImage()).isEmpty());
            }
        }
    }
}

TEST(Images, StandInTheMiddleOfTheirBoxAndTellTheirStatesApartByColourAlone)
{
    for (const QString& base : kControls) {
        SCOPED_TRACE(qPrintable(base));
        const QRect drawn = covered(picture(base, {96, 96}));
        EXPECT_LE(qAbs(drawn.left() + drawn.right() - 95), 8);
        EXPECT_LE(qAbs(drawn.top() + drawn.bottom() - 95), 8);
        QList<QImage> states;
        for (const char* suffix : {"-normal", "-hover", "-down", "-disabled"})
            states << picture(base + QLatin1String(suffix));
        for (int i = 0; i < states.size(); ++i) {
            EXPECT_EQ(covered(states[i]), covered(states[0]));
            for (int j = 0; j < i; ++j)
                EXPECT_NE(states[i], states[j]);
        }
        EXPECT_EQ(picture(base), states[0]);
    }
}

TEST(Images, KeepTheirProportionsInABoxOfAnotherShape)
{
    const QRect square = covered(picture(QStringLiteral("square"), {24, 24}));
    EXPECT_EQ(covered(picture(QStringLiteral("square"), {64, 24})), square.translated(20, 0));
}

TEST(Images, AreDrawnInTheirOwnSizeWhenNoneIsGiven)
{
    for (const char* name : {"save-hover", "crossImage", "dropDown-normal", "Icon256x256"}) {
        SCOPED_TRACE(name);
        const QString text = QLatin1String(name);
        EXPECT_EQ(imageNamed(text, {}, 2).size(), (imageSize(text) * 2).toSize());
    }
}

TEST(Images, AreNullForOtherNames)
{
    for (const char* name : {"", "-hover", "nothing", "nothing-normal", "save-", "Save"}) {
        SCOPED_TRACE(name);
        const QString text = QLatin1String(name);
        EXPECT_TRUE(imageNamed(text, {16, 16}, 1).isNull());
        EXPECT_TRUE(imageSize(text).isEmpty());
        EXPECT_TRUE(iconNamed(text).isNull());
    }
}

TEST(Images, FollowTheModeOfAnIcon)
{
    const QIcon icon = iconNamed(QStringLiteral("save"));
    const std::pair<QIcon::Mode, const char*> modes[] = {{QIcon::Normal, "save-normal"},
        {QIcon::Active, "save-hover"}, {QIcon::Selected, "save-hover"}, {QIcon::Disabled, "save-disabled"}};
    for (const auto& [mode, name] : modes) {
        SCOPED_TRACE(name);
        const QPixmap pixmap = icon.pixmap(QSize(16, 16), 2, mode);
        EXPECT_EQ(pixmap.toImage(), picture(QLatin1String(name), {16, 16}, 2));
    }
}
