#pragma once

#include "platform/DisplayRecord.h"

#include <QRect>

// Where a pinned picture stands and how it is zoomed.
namespace PinRules {

// The windows of a desktop begin and end with whole points, and regions with device pixels.
struct Place {
    QRect window;  // points; origin top-left of the display, y grows downwards
    QRect showing; // device pixels of the picture that lie below the window, pixel for pixel
};
// A region's pin: a point inside its left and bottom edges, and so much smaller; where these are not whole
// points, as little further inside as it takes. What lies beyond the display has no picture. `region` in
// points of the display, origin bottom-left, y up.
Place placeOf(const DisplayRecord& display, ZRRect region);

constexpr int kWheelStep = 120; // of the wheel's angle, in eighths of a degree
// Zoom after so many steps; 0 steps show the picture as it was. Opacity after so many steps down.
double zoomAfter(int steps);
double opacityAfter(int steps);
// The steps cut to what is sensible, for a picture of that size in points.
int cutZoomSteps(int steps, QSize size);
int cutOpacitySteps(int steps);

// A window of another size that keeps the place of its picture below a point; all in points of the screen.
QRect zoomedAround(const QRect& window, QPoint point, QSize size);

}
