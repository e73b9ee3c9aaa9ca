#pragma once

#include "output/PageBuffer.h"

class QImage;

// Writes BMP with 24 bits a pixel, which every reader takes as opaque; 32 bits would carry the unused byte
// along.
class BmpEncoder {
public:
    // `image` is Format_RGB32. Empty when memory is short or the file would pass the format's 4 GB.
    static PageBuffer encode(const QImage& image);
};
