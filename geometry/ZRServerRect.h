#pragma once

#include "geometry/ZRRect.h"

// A rectangle as the window server counts: points, y grows downwards. A type of its own, so that it cannot
// be taken for a ZRRect by accident; the two flips below are the only way across.
struct ZRServerRect {
    double x = 0, y = 0, width = 0, height = 0;
    friend bool operator==(ZRServerRect, ZRServerRect) = default;
};

// `height` is that of the space both rectangles live in: of the first display for screen rectangles, of its
// display for overlay rectangles.
ZRRect flippedUp(ZRServerRect r, double height);
ZRServerRect flippedDown(ZRRect r, double height);
