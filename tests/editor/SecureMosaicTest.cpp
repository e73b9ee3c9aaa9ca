#include "editor/SecureMosaic.h"

#include <gtest/gtest.h>

#include <set>

namespace {

constexpr QRect kArea(30, 20, 61, 34);
constexpr quint32 kSeed = 7;

// A screen of greys; a window of `inside` at the area, with a few lines of something darker on it.
QImage frameWith(const QRect& area, QRgb inside)
{
    QImage frame(140, 90, QImage::Format_RGB32);
    for (int y = 0; y < frame.height(); ++y) {
        for (int x = 0; x < frame.width(); ++x) {
            const int grey = (x * 3 + y * 5) % 256;
            const QRgb hidden =
                (x + y) % 7 < 3 ? qRgb(qRed(inside) / 2, qGreen(inside), qBlue(inside)) : inside;
            frame.setPixel(x, y, area.contains(x, y) ? hidden : qRgb(grey, grey, grey));
        }
    }
    return frame;
}

QImage seeded(const QImage& frame, QRect area, int blockSize)
{
    return secureMosaic(frame, area, blockSize, QRandomGenerator(kSeed));
}

std::set<QRgb> coloursOf(const QImage& image)
{
    std::set<QRgb> colours;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            colours.insert(image.pixel(x, y) | 0xff000000);
    }
    return colours;
}

const QRect kAreas[] = {
    kArea,
    {0, 0, 50, 40},     // in a corner: the ring has two sides
    {0, 0, 140, 90},    // all of the frame: there is no ring
    {100, 60, 40, 30},  // in the opposite corner
    {-20, -10, 70, 50}, // over the edge
    {30, 20, 1, 34},
    {30, 20, 1, 1},
};

}

TEST(SecureMosaic, IsTheSameWhateverTheAreaHidesAndLeavesNoPixelOfIt)
{
    for (const QRect& area : kAreas) {
        for (int blockSize : {1, 6, 500}) {
            SCOPED_TRACE(testing::Message() << area.x() << "," << area.y() << ", blocks of " << blockSize);
            const QImage frame = frameWith(area, qRgb(255, 0, 120)); // a colour that greys cannot be mixed to
            const QImage mosaic = seeded(frame, area, blockSize);
            EXPECT_EQ(mosaic.size(), area.size());
            EXPECT_EQ(mosaic, seeded(frameWith(area, qRgb(20, 200, 90)), area, blockSize));
            for (QRgb hidden : coloursOf(frame.copy(area.intersected(frame.rect()))))
                EXPECT_FALSE(coloursOf(mosaic).contains(hidden)) << std::hex << hidden;
        }
    }
}

TEST(SecureMosaic, FollowsItsSurroundings)
{
    QImage frame(200, 100, QImage::Format_RGB32);
    frame.fill(Qt::blue);
    for (int y = 0; y < 100; ++y)
        std::fill_n(reinterpret_cast<QRgb*>(frame.scanLine(y)), 100, qRgb(255, 255, 0));
    const QImage mosaic = seeded(frame, {40, 20, 120, 60}, 6);
    EXPECT_GT(qRed(mosaic.pixel(2, 30)), 150);
    EXPECT_LT(qBlue(mosaic.pixel(2, 30)), 100);
    EXPECT_LT(qRed(mosaic.pixel(117, 30)), 100);
    EXPECT_GT(qBlue(mosaic.pixel(117, 30)), 150);
}

TEST(SecureMosaic, ShowsItsBlocksOnAPlainGround)
{
    for (Qt::GlobalColor ground : {Qt::white, Qt::black}) {
        QImage frame(100, 60, QImage::Format_RGB32);
        frame.fill(ground);
        const QImage mosaic = seeded(frame, {20, 10, 60, 36}, 6);
        EXPECT_GE(coloursOf(mosaic).size(), 15u); // of 60 blocks in 41 levels
        EXPECT_EQ(mosaic.pixel(6, 6), mosaic.pixel(11, 11));
    }
}

TEST(SecureMosaic, IsFreshAtEachCallAndNullForNothing)
{
    const QImage frame = frameWith(kArea, qRgb(255, 0, 0));
    EXPECT_NE(secureMosaic(frame, kArea, 6), secureMosaic(frame, kArea, 6));
    EXPECT_TRUE(seeded(frame, {30, 20, -5, 10}, 6).isNull());
    EXPECT_TRUE(seeded(frame, kArea, 0).isNull());
    EXPECT_FALSE(seeded({}, kArea, 6).isNull()); // grey, where there is no frame
}
