#pragma once

#include <QImage>

// The picture with an ordinary mosaic over a part of it: each pixel is its block's first one, and the last
// row and column stay.
inline QImage expectedMosaic(const QImage& picture, QRect part, int block)
{
    QImage mosaic = picture.copy();
    for (int y = part.top(); y < part.bottom(); ++y)
        for (int x = part.left(); x < part.right(); ++x) {
            const QPoint p = QPoint(x, y) - part.topLeft();
            mosaic.setPixel(x, y, picture.pixel(x - p.x() % block, y - p.y() % block));
        }
    return mosaic;
}
