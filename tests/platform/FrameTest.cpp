#include "platform/Frame.h"

#include <gtest/gtest.h>

namespace {

Frame numberedFrame(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, qRgb(x, y, 0));
    return Frame({1, QStringLiteral("first"), QRect(0, 0, width, height), 1, {}}, image);
}

}

TEST(Frame, CropsAtItsEdgesAndHasNothingBesideItself)
{
    const Frame frame = numberedFrame(20, 10);
    struct Case {
        QRect asked;
        QSize size;
        QRgb firstPixel;
    };
    const Case cases[] = {
        {{3, 4, 5, 6}, {5, 6}, qRgb(3, 4, 0)},
        {{-3, -4, 5, 6}, {2, 2}, qRgb(0, 0, 0)},
        {{18, 8, 50, 50}, {2, 2}, qRgb(18, 8, 0)},
        {{0, 0, 20, 10}, {20, 10}, qRgb(0, 0, 0)},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.asked.x());
        const QImage crop = frame.crop(c.asked);
        EXPECT_EQ(crop.size(), c.size);
        EXPECT_EQ(crop.pixel(0, 0), c.firstPixel);
        EXPECT_EQ(crop.pixel(crop.width() - 1, 0), c.firstPixel + ((c.size.width() - 1) << 16));
    }
    for (const QRect& rect : {QRect(20, 0, 5, 5), QRect(0, -5, 5, 5), QRect(4, 4, 0, 3)})
        EXPECT_TRUE(frame.crop(rect).isNull());
}
