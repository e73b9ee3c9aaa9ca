#pragma once

#include "output/PageBuffer.h"

class QImage;

// Writes TIFF: RGB without alpha, compressed by LZW over row differences, which every reader knows.
class TiffEncoder {
public:
    // `image` is Format_RGB32. Empty when memory is short.
    static PageBuffer encode(const QImage& image);
};
