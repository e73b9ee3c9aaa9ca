#include "geometry/ZRRect.h"

#include <algorithm>

ZRRect ZRRect::normalized() const
{
    ZRRect r = *this;
    if (r.width < 0) {
        r.x += r.width;
        r.width = -r.width;
    }
    if (r.height < 0) {
        r.y += r.height;
        r.height = -r.height;
    }
    return r;
}

ZRRect ZRRect::intersected(ZRRect other) const
{
    const double left = std::max(x, other.x);
    const double bottom = std::max(y, other.y);
    const double right = std::min(maxX(), other.maxX());
    const double top = std::min(maxY(), other.maxY());
    if (right <= left || top <= bottom)
        return {};
    return {left, bottom, right - left, top - bottom};
}
