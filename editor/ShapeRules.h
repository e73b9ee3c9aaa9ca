#pragma once

#include "editor/EntityRecord.h"

#include <array>

// The geometry of the drawn shapes. Points of the editor view, y grows upwards.
namespace ShapeRules {

// The rectangle with two opposite corners; the zero rectangle where they are equal.
ZRRect spanned(ZRPoint start, ZRPoint end);
// The rectangle of a straight line or an arrow.
ZRRect lineRect(ZRPoint start, ZRPoint end, qint32 lineWidth);
// The rectangle of a stroke whose points lie within `extent`.
ZRRect strokeRect(ZRRect extent, qint32 lineWidth);

// The head's corners and those of the shaft's base; head and shaft each are a triangle, with the tip and with
// the tail.
struct Arrow {
    ZRPoint tail, tip;
    std::array<ZRPoint, 2> head;
    std::array<ZRPoint, 2> base;
};
Arrow arrow(ZRPoint start, ZRPoint end, qint32 lineWidth);

// The smallest rectangle around `extent` and one more point. It needs no walk over all points.
ZRRect withPoint(ZRRect extent, ZRPoint point);
// The zero rectangle for no point.
ZRRect extentOf(const DragPoints& points);

}
