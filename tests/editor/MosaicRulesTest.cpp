#include "editor/MosaicRules.h"

#include <gtest/gtest.h>

namespace {

// No two pixels are equal.
QImage numbered(QSize size, QImage::Format format = QImage::Format_RGB32)
{
    QImage image(size, format);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y, 0xff000000 | QRgb(y * size.width() + x));
    }
    return image;
}

}

TEST(Mosaic, TakesEachBlocksCornerAndKeepsTheLastRowAndColumn)
{
    struct Case {
        QSize size;
        int level;
    };
    const Case cases[] = {{{25, 25}, 10}, {{24, 31}, 3}, {{7, 5}, 6}, {{40, 9}, 9}, {{3, 3}, 2}, {{2, 2}, 9},
        {{1, 8}, 3}, {{8, 1}, 3}, {{600, 4}, 1 << 30}};
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.size.width() << "x" << c.size.height() << ", level " << c.level);
        const QImage image = numbered(c.size);
        const QImage mosaic = MosaicRules::transToMosaicImage(image, c.level);
        ASSERT_EQ(mosaic.size(), c.size);
        for (int y = 0; y < c.size.height(); ++y) {
            for (int x = 0; x < c.size.width(); ++x) {
                const bool isKept = x == c.size.width() - 1 || y == c.size.height() - 1;
                const QPoint corner(x / c.level * c.level, y / c.level * c.level);
                ASSERT_EQ(mosaic.pixel(x, y), image.pixel(isKept ? QPoint(x, y) : corner)) << x << "," << y;
            }
        }
    }
}

TEST(Mosaic, ReturnsThePictureAtLevelsUnderTwo)
{
    const QImage image = numbered({12, 9});
    for (int level : {1, 0, -3}) {
        SCOPED_TRACE(level);
        EXPECT_EQ(MosaicRules::transToMosaicImage(image, level), image);
    }
    EXPECT_TRUE(MosaicRules::transToMosaicImage({}, 3).isNull());
}

TEST(Mosaic, LeavesPicturesThatOthersShareAlone)
{
    const QImage image = numbered({12, 9});
    const QImage borrowing(
        image.constBits(), 5, 5, image.bytesPerLine(), image.format()); // as a frame's crop
    const QImage mosaic = MosaicRules::transToMosaicImage(borrowing, 4);
    EXPECT_EQ(mosaic.pixel(3, 3), image.pixel(0, 0));
    EXPECT_EQ(image, numbered({12, 9}));
}

TEST(Mosaic, TakesPicturesOfEveryDepth)
{
    for (QImage::Format format : {QImage::Format_RGB888, QImage::Format_ARGB32, QImage::Format_RGBA64}) {
        SCOPED_TRACE(format);
        const QImage image = numbered({12, 9}, format);
        const QImage mosaic = MosaicRules::transToMosaicImage(image, 4);
        EXPECT_EQ(mosaic.pixel(7, 7), image.pixel(4, 4));
        EXPECT_EQ(mosaic.hasAlphaChannel(), image.hasAlphaChannel());
    }
}
