#pragma once

#include "editor/EntityRecord.h"

// Whether a press at a point hits a shape. Points of the editor view. A shape without an area or without
// points is never hit.
namespace HitRules {

// A square whose left and bottom edges belong to it.
bool isWithin(ZRPoint center, double reach, ZRPoint point);
// The stroke of a rectangle's border; not the inside.
bool hitsBorder(ZRRect rect, qint32 lineWidth, ZRPoint point);
// The stroke of an ellipse; the inside only of a small one.
bool hitsEllipse(ZRRect rect, qint32 lineWidth, ZRPoint point);
// A line or an arrow: its ends, or less than 3 points from it within `rect`.
bool hitsLine(ZRRect rect, ZRPoint start, ZRPoint end, qint32 lineWidth, ZRPoint point);
// The neighbourhood of any point of a stroke; `extent` holds all of them.
bool hitsStroke(const DragPoints& points, ZRRect extent, qint32 lineWidth, ZRPoint point);

// Whether two colours look alike; the alpha does not count.
bool isColorValueEqualToColorValue(const QColor& a, const QColor& b);

}
