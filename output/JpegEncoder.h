#pragma once

#include "output/PageBuffer.h"

class QImage;

// Writes JPEG at quality 90 with the colours at full resolution: a screen is mostly text, and thinned-out
// colour or a lower quality leaves a visible fringe around every letter.
class JpegEncoder {
public:
    // `image` is Format_RGB32. Empty when memory is short or a side is longer than the format's 65,500
    // pixels.
    static PageBuffer encode(const QImage& image);
};
