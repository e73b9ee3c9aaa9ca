#pragma once

#include "geometry/ZRPoint.h"
#include "platform/Frame.h"

#include <QColor>

// The part of a frozen display that a magnifier shows. Keeps its picture between two looks.
class PixelSample {
public:
    // The pixels around the one that begins at `point`, an overlay point; beside the display the nearest
    // pixel of it counts. What lies outside the display is kOutside. The picture is good until the next look.
    const QImage& around(const Frame& frame, ZRPoint point);

    static constexpr QRgb kOutside = 0xff3a3f47;

private:
    QImage m_picture; // Format_RGB32, sampleSide() large
};
