#include "platform/DisplayRecord.h"

#include "geometry/ZRServerRect.h"

#include <cmath>

namespace {

// Rounding halves towards positive infinity keeps a rectangle's size when it moves by whole pixels.
int nearestPixel(double value)
{
    return static_cast<int>(std::floor(value + 0.5));
}

}

ZRPoint DisplayRecord::localPoint(QPoint pixel) const
{
    const QPoint p = pixel - pixels.topLeft();
    return localRect(QRect(p, QSize(0, 0))).origin();
}

QRect DisplayRecord::localPixels(ZRRect local) const
{
    const ZRServerRect r = flippedDown(local.normalized(), pixels.height() / scale);
    const int left = nearestPixel(r.x * scale);
    const int top = nearestPixel(r.y * scale);
    const int right = nearestPixel((r.x + r.width) * scale);
    const int bottom = nearestPixel((r.y + r.height) * scale);
    return {left, top, right - left, bottom - top};
}

ZRRect DisplayRecord::localRect(QRect p) const
{
    return flippedUp(
        {p.x() / scale, p.y() / scale, p.width() / scale, p.height() / scale}, pixels.height() / scale);
}
