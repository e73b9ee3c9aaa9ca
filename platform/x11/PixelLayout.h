#pragma once

#include "platform/x11/XConnection.h"

#include <QImage>

// How the root window's pixels lie in memory.
struct PixelLayout {
    int depth = 0;
    int bitsPerPixel = 0;
    int rowPadding = 32; // in bits
    bool isLittleEndian = true;
    uint32_t red = 0, green = 0, blue = 0; // where a channel's bits are; all 0 when pixels are not colours

    static PixelLayout ofRoot(const XConnection& connection);

    // Its rows are an RGB32 image's as they are.
    bool isRgb32() const;
    bool isReadable() const;
    qsizetype bytesPerLine(int width) const;
    // Writes rows as they came from the server into an RGB32 image of their width, every channel stretched to
    // 0-255. Needs isReadable().
    void convert(const uchar* rows, int count, QImage& image, int firstRow) const;
};
