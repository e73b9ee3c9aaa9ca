#pragma once

#include <QImage>

// An opaque picture in which no two neighbours are alike; the same one for a size.
inline QImage noiseImage(QSize size, QImage::Format format = QImage::Format_RGB32)
{
    QImage image(size, format);
    quint32 state = 1;
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x) {
            state = state * 1664525 + 1013904223;
            image.setPixel(x, y, 0xff000000 | (state >> 8));
        }
    return image;
}
