#include "capture/PixelSample.h"

#include "capture/ChromeRules.h"

#include <algorithm>
#include <cstring>

namespace {

QPoint nearestOn(const Frame& frame, ZRPoint point)
{
    const QPoint pixel = frame.display().localPixels({point.x, point.y, 0, 0}).topLeft();
    return {std::clamp(pixel.x(), 0, frame.image().width() - 1),
        std::clamp(pixel.y(), 0, frame.image().height() - 1)};
}

}

const QImage& PixelSample::around(const Frame& frame, ZRPoint point)
{
    const QRect wanted = ChromeRules::samplePixels(nearestOn(frame, point), frame.display().scale);
    const QRect inside = wanted.intersected(frame.image().rect());
    if (m_picture.size() != wanted.size())
        m_picture = QImage(wanted.size(), QImage::Format_RGB32);
    if (inside != wanted)
        m_picture.fill(kOutside);
    const QPoint place = inside.topLeft() - wanted.topLeft();
    for (int row = 0; row < inside.height(); ++row) {
        const uchar* from = frame.image().constScanLine(inside.y() + row) + qsizetype(inside.x()) * 4;
        uchar* to = m_picture.scanLine(place.y() + row) + qsizetype(place.x()) * 4;
        std::memcpy(to, from, size_t(inside.width()) * 4);
    }
    return m_picture;
}
