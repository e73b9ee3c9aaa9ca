#include "platform/x11/PixelLayout.h"

#include <gtest/gtest.h>

namespace {

QImage converted(const PixelLayout& layout, const uchar* rows, QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    layout.convert(rows, size.height(), image, 0);
    return image;
}

}

TEST(PixelLayout, StretchesEveryChannelToAByte)
{
    struct Case {
        const char* name;
        PixelLayout layout;
        std::vector<uchar> pixel; // as in memory
        QRgb expected;
    };
    const PixelLayout rgb565{16, 16, 32, true, 0xf800, 0x07e0, 0x001f};
    const PixelLayout rgb30{30, 32, 32, true, 0x3ff00000, 0x000ffc00, 0x000003ff};
    const PixelLayout bgr{24, 32, 32, true, 0x0000ff, 0x00ff00, 0xff0000};
    const PixelLayout bigEndian{24, 32, 32, false, 0xff0000, 0x00ff00, 0x0000ff};
    const Case cases[] = {
        {"565 white", rgb565, {0xff, 0xff}, qRgb(255, 255, 255)},
        {"565 middle", rgb565, {0x10, 0x84}, qRgb(132, 130, 132)},
        {"30 bits green", rgb30, {0x00, 0xfc, 0x0f, 0x00}, qRgb(0, 255, 0)},
        {"blue first", bgr, {0x11, 0x22, 0x33, 0x00}, qRgb(0x11, 0x22, 0x33)},
        {"big endian", bigEndian, {0x00, 0x11, 0x22, 0x33}, qRgb(0x11, 0x22, 0x33)},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        ASSERT_TRUE(c.layout.isReadable());
        EXPECT_FALSE(c.layout.isRgb32());
        EXPECT_EQ(converted(c.layout, c.pixel.data(), QSize(1, 1)).pixel(0, 0), c.expected);
    }
}

TEST(PixelLayout, SkipsThePaddingOfARow)
{
    const PixelLayout rgb565{16, 16, 32, true, 0xf800, 0x07e0, 0x001f};
    EXPECT_EQ(rgb565.bytesPerLine(3), 8);
    EXPECT_EQ(rgb565.bytesPerLine(4), 8);
    const uchar rows[] = {0, 0, 0, 0, 0, 0, 0xee, 0xee, 0x00, 0xf8, 0, 0, 0, 0, 0xee, 0xee};
    EXPECT_EQ(converted(rgb565, rows, QSize(3, 2)).pixel(0, 1), qRgb(255, 0, 0));
}
