#pragma once

#include "geometry/ZRRect.h"

#include <QRect>

// How a press and a drag change the selected region. Overlay points: origin bottom-left of the display.
namespace RegionRules {

constexpr int kBody = 0;        // no handle: the press is on the region or beside it
constexpr int kHandleCount = 8; // handles carry the codes 1 to 8

// The 8 by 8 square of a handle, 1 to 8: top left, top, top right, left, right, bottom left, bottom, bottom
// right.
ZRRect handleRect(ZRRect region, int code);
// The code of the first handle that holds the point, kBody for none. A region without any extent has no
// handles: a drag that begins in the overlay's corner draws a new one.
int pointInResizeRect(ZRRect region, ZRPoint point);
// Whether a press at `point` takes hold of a fixed region: inside it or at most 4 points beside it.
bool isWithinReach(ZRRect region, ZRPoint point);

// A drag point as the selection uses it. Kept: x is cut at the right edge and y at the bottom edge only.
ZRPoint cutToOverlay(ZRPoint point, double overlayWidth);
// The rectangle between the press point and the pointer; its sizes are never negative.
ZRRect spanned(ZRPoint press, ZRPoint pointer);
// The region moved by one drag step and kept inside the overlay; the left and bottom edges are tried first.
ZRRect moved(ZRRect region, float dx, float dy, ZRSize overlay);
// The region after one drag step of a handle. Nothing is clamped: an edge pulled past its opposite leaves a
// negative size, which the release makes positive.
ZRRect pulledByHandle(ZRRect region, int code, float dx, float dy);
// A region in device pixels, y growing downwards, moved by a step and kept inside the display.
QRect nudged(QRect region, QPoint by, QSize display);
// Its right or bottom edge moved by a step: one pixel is left at least, the display is not left.
QRect stretched(QRect region, QPoint by, QSize display);
// Every edge on the nearest device pixel; `scale` is device pixels a point. Negative sizes stay negative.
ZRRect snapped(ZRRect region, double scale);

}
