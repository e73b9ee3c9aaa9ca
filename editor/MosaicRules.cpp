#include "editor/MosaicRules.h"

#include <cstring>

// Blocks along one row; each takes the colour of its first pixel.
static void spreadAcross(quint32* row, int width, int level)
{
    quint32 colour = 0;
    int left = 0; // pixels of the block
    for (int x = 0; x < width; ++x, --left) {
        if (left == 0) {
            colour = row[x];
            left = level;
        }
        row[x] = colour;
    }
}

QImage MosaicRules::transToMosaicImage(QImage image, int mosaicLevel)
{
    if (mosaicLevel < 1 || image.isNull())
        return image;
    image.convertTo(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
    const int width = image.width() - 1;
    uchar* const pixels = image.bits();
    const quint32* blockRow = nullptr;
    for (int y = 0; pixels && y < image.height() - 1; ++y) {
        auto* row = reinterpret_cast<quint32*>(pixels + y * image.bytesPerLine());
        if (y % mosaicLevel == 0) {
            spreadAcross(row, width, mosaicLevel);
            blockRow = row;
        } else {
            std::memcpy(row, blockRow, size_t(width) * sizeof *row);
        }
    }
    return image;
}
