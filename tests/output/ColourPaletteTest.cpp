#include "output/ColourPalette.h"
#include "tests/output/TestPictures.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace TestPictures;

namespace {

// The root of the mean squared difference between the picture and what the palette makes of it, 0 to 255.
double error(const QImage& image)
{
    const ColourPalette palette(image);
    std::vector<uint8_t> indices(size_t(image.width()));
    double squares = 0;
    for (int y = 0; y < image.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        palette.mapRow(row, indices.data(), indices.size());
        for (size_t x = 0; x < indices.size(); ++x) {
            const QRgb chosen = palette.colours().at(indices[x]);
            squares += std::pow(qRed(row[x]) - qRed(chosen), 2) +
                       std::pow(qGreen(row[x]) - qGreen(chosen), 2) +
                       std::pow(qBlue(row[x]) - qBlue(chosen), 2);
        }
    }
    return std::sqrt(squares / (3.0 * image.width() * image.height()));
}

}

TEST(ColourPalette, StaysNearThePictureWhereColoursAreMore)
{
    const struct {
        QImage image;
        double most; // a regular cube of 6x6x6 colours errs by 15
    } cases[] = {
        {withColours(257), 3}, {ofSize(300, 200)[3].image, 13}, // curved
        {ofSize(300, 200)[4].image, 13},                        // noise, the worst there is
    };
    for (const auto& c : cases) {
        EXPECT_LE(ColourPalette(c.image).colours().size(), 256u);
        EXPECT_GT(error(c.image), 0);
        EXPECT_LT(error(c.image), c.most) << error(c.image);
    }
}
