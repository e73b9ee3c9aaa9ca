#pragma once

#include "geometry/ZRRect.h"

// A place on a rectangle or among drag points.
enum ZRResizeDirection : int {
    kSmallestX = 0,
    kLargestX = 1,
    kLargestY = 2,
    kSmallestY = 3,
    kTopLeft = 4,
    kTopMiddle = 5,
    kTopRight = 6,
    kMiddleLeft = 7,
    kMiddleRight = 8,
    kBottomLeft = 9,
    kBottomMiddle = 10,
    kBottomRight = 11,
    kNoHandle = 12,
};

// The eight handles of an annotation's rectangle. Points, y grows upwards.
namespace HandleRules {

constexpr double kHandleSize = 8; // points a side

// The zero point for what is not a handle.
ZRPoint handlePoint(ZRRect rect, int direction);
// The square around a point that belongs to its handle.
ZRRect handleSquare(ZRPoint point);
// The handle at a point, kNoHandle for none. Where handles overlap, the one with the lower number.
int handleAt(ZRRect rect, ZRPoint point);

// A rectangle and the handle that is held on it.
struct Grab {
    ZRRect rect;
    int direction = kNoHandle;
};
// One step of a drag by a handle: `by` is the step, `pointer` the place it leads to. An edge pulled past its
// opposite leaves a positive size, and the drag goes on with the mirrored handle.
Grab pulled(Grab grab, ZRPoint by, ZRPoint pointer);

}
