#include "customui/DevicePixels.h"

#include <cmath>

namespace {

// A hair of tolerance, so that 1.25 * 0.8 counts as 1 and not as a little more.
constexpr double kTolerance = 1e-6;

QRect outwards(double left, double top, double right, double bottom)
{
    const QPoint first(int(std::floor(left + kTolerance)), int(std::floor(top + kTolerance)));
    const QPoint end(int(std::ceil(right - kTolerance)), int(std::ceil(bottom - kTolerance)));
    return {first, QSize(end.x() - first.x(), end.y() - first.y())};
}

QRect scaledOutwards(const QRect& r, double factor)
{
    return outwards(
        r.x() * factor, r.y() * factor, (r.x() + r.width()) * factor, (r.y() + r.height()) * factor);
}

}

void DevicePixels::begin(QPainter& painter, const QWidget& widget)
{
    const double scale = widget.devicePixelRatioF();
    painter.scale(1 / scale, 1 / scale);
}

QRect DevicePixels::covering(const QRect& points, double scale)
{
    return scaledOutwards(points, scale);
}

QRect DevicePixels::pointsCovering(const QRect& pixels, double scale)
{
    return scaledOutwards(pixels, 1 / scale);
}
