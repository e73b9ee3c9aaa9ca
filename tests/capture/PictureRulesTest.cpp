#include "capture/PictureRules.h"

#include "tests/fakes/Noise.h"

#include <gtest/gtest.h>

TEST(PictureRules, MeanOfFourPixelsIsOnePointAtScaleTwo)
{
    const QImage picture = noiseImage({10, 6});
    const QImage result = PictureRules::averagedToPoints(picture, 2);
    ASSERT_EQ(result.size(), QSize(5, 3));
    for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 5; ++x) {
            int red = 0;
            for (const QPoint p : {QPoint(0, 0), QPoint(1, 0), QPoint(0, 1), QPoint(1, 1)})
                red += qRed(picture.pixel(2 * x + p.x(), 2 * y + p.y()));
            EXPECT_NEAR(qRed(result.pixel(x, y)), red / 4.0, 0.5);
        }
}

TEST(PictureRules, KeepsAFlatColourAndTheSizeInPointsAtEveryScale)
{
    for (const double scale : {1.25, 1.5, 2.0, 3.0}) {
        SCOPED_TRACE(scale);
        QImage flat(31, 17, QImage::Format_RGB32);
        flat.fill(QColor(12, 200, 255));
        const QImage result = PictureRules::averagedToPoints(flat, scale);
        EXPECT_EQ(result.size(), QSize(qRound(31 / scale), qRound(17 / scale)));
        EXPECT_EQ(result.pixelColor(result.width() - 1, result.height() - 1), QColor(12, 200, 255));
        EXPECT_EQ(result.pixelColor(0, 0), QColor(12, 200, 255));
    }
}

TEST(PictureRules, LeavesAPictureAtScaleOneAlone)
{
    const QImage picture = noiseImage({7, 7});
    EXPECT_EQ(PictureRules::averagedToPoints(picture, 1).constBits(), picture.constBits());
}
