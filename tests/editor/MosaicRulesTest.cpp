#include "editor/MosaicRules.h"

#include "tests/editor/ExpectedMosaic.h"
#include "tests/fakes/Noise.h"

#include <gtest/gtest.h>

TEST(Mosaic, TakesEachBlocksCornerAndKeepsTheLastRowAndColumn)
{
    struct Case {
        QSize size;
        int level;
        QImage::Format format = QImage::Format_RGB32;
    };
    const Case cases[] = {{{25, 25}, 10}, {{7, 5}, 6}, {{40, 9}, 9}, {{2, 2}, 9}, {{1, 8}, 3}, {{8, 1}, 3},
        {{600, 4}, 1 << 30}, {{12, 9}, 4, QImage::Format_RGB888}, {{12, 9}, 4, QImage::Format_ARGB32},
        {{12, 9}, 4, QImage::Format_RGBA64}};
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.size.width() << "x" << c.size.height() << ", level " << c.level
                                        << ", format " << c.format);
        const QImage image = noiseImage(c.size, c.format);
        const QImage mosaic = MosaicRules::transToMosaicImage(image, c.level);
        EXPECT_EQ(mosaic.convertToFormat(c.format), expectedMosaic(image, image.rect(), c.level));
        EXPECT_EQ(mosaic.hasAlphaChannel(), image.hasAlphaChannel());
    }
}

TEST(Mosaic, ReturnsThePictureAtLevelsUnderTwo)
{
    const QImage image = noiseImage({12, 9});
    for (int level : {1, 0, -3})
        EXPECT_EQ(MosaicRules::transToMosaicImage(image, level), image) << level;
    EXPECT_TRUE(MosaicRules::transToMosaicImage({}, 3).isNull());
}

TEST(Mosaic, LeavesPicturesThatOthersShareAlone)
{
    const QImage image = noiseImage({12, 9});
    const QImage borrowing(
        image.constBits(), 5, 5, image.bytesPerLine(), image.format()); // as a frame's crop
    const QImage mosaic = MosaicRules::transToMosaicImage(borrowing, 4);
    EXPECT_EQ(mosaic.pixel(3, 3), image.pixel(0, 0));
    EXPECT_EQ(image, noiseImage({12, 9}));
}
