#include "capture/MagnifierLens.h"

#include <gtest/gtest.h>

namespace {

// Every pixel tells its place.
QImage sample(int side)
{
    QImage image(side, side, QImage::Format_RGB32);
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            image.setPixel(x, y, qRgb(x, y, 200));
    return image;
}

QColor cellColour(const QImage& lens, int column, int row)
{
    const QPoint first(column * MagnifierLens::kCell, row * MagnifierLens::kCell);
    const QColor colour = lens.pixelColor(first);
    for (int y = 0; y < MagnifierLens::kCell - 1; ++y)
        for (int x = 0; x < MagnifierLens::kCell - 1; ++x)
            EXPECT_EQ(lens.pixelColor(first + QPoint(x, y)), colour);
    return colour;
}

}

TEST(MagnifierLens, ShowsTheMiddlePixelOfTheSampleInTheMiddle)
{
    for (const int side : {2, 32, 40, 48, 64}) {
        SCOPED_TRACE(side);
        MagnifierLens lens;
        lens.setContent(sample(side));
        const QImage& picture = lens.picture();
        ASSERT_EQ(picture.size(), QSize(MagnifierLens::diameter(side), MagnifierLens::diameter(side)));
        const QRect cell = MagnifierLens::middleCell(side);
        EXPECT_EQ(picture.pixelColor(cell.center()), QColor(side / 2, side / 2, 200));
        EXPECT_TRUE(cell.adjusted(0, 0, 1, 1).contains(picture.rect().center()));
    }
}

TEST(MagnifierLens, EnlargesWithoutSmoothingAndSeparatesThePixels)
{
    MagnifierLens lens;
    lens.setContent(sample(32));
    for (const auto& [column, row] :
        {std::pair(15, 15), std::pair(1, 15), std::pair(29, 15), std::pair(8, 22)}) {
        SCOPED_TRACE(testing::Message() << column << ',' << row);
        const QColor pixel = cellColour(lens.picture(), column, row);
        EXPECT_EQ(pixel, QColor(column + 1, row + 1, 200));
        const QPoint corner(column * MagnifierLens::kCell, row * MagnifierLens::kCell);
        EXPECT_NE(lens.picture().pixelColor(corner + QPoint(MagnifierLens::kCell - 1, 1)), pixel);
        EXPECT_NE(lens.picture().pixelColor(corner + QPoint(1, MagnifierLens::kCell - 1)), pixel);
    }
}

TEST(MagnifierLens, IsRoundAndEmptyWithoutContent)
{
    MagnifierLens lens;
    EXPECT_TRUE(lens.picture().isNull());
    lens.setContent(sample(32));
    const QImage& picture = lens.picture();
    const int last = picture.width() - 1;
    for (const QPoint corner : {QPoint(0, 0), QPoint(last, 0), QPoint(20, 20), QPoint(last, last)})
        EXPECT_EQ(qAlpha(picture.pixel(corner)), 0) << corner.x();
    for (const QPoint inside : {QPoint(25, 25), QPoint(last / 2, 0), QPoint(0, last / 2)})
        EXPECT_EQ(qAlpha(picture.pixel(inside)), 255) << inside.x();
    lens.setContent({});
    EXPECT_TRUE(lens.picture().isNull());
}
