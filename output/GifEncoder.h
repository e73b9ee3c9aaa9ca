#pragma once

#include "output/PageBuffer.h"

class QImage;

// Writes a still GIF. A picture of at most 256 colours keeps every one; others get the 256 that suit them
// best.
class GifEncoder {
public:
    // `image` is Format_RGB32. Empty when memory is short or a side is longer than the format's 65,535
    // pixels.
    static PageBuffer encode(const QImage& image);
};
