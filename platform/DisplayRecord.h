#pragma once

#include "geometry/ZRRect.h"

#include <QPoint>
#include <QRect>
#include <QString>

// One display as the desktop has it. A value: it stays as it was when the display changes or goes.
// `Display` alone is a name that Qt's headers declare for X11.
struct DisplayRecord {
    int id = 0;            // the same for as long as the display stays connected
    QString name;          // the name Qt's screen of this display carries too
    QRect pixels;          // device pixels; origin top-left of the first display, y grows downwards
    double scale = 1;      // device pixels a point
    ZRRect frame;          // points; origin bottom-left of the first display, y grows upwards
    QString productName{}; // as its maker calls it; empty where the desktop does not tell

    bool isValid() const { return !pixels.isEmpty(); }
    // `pixel` in the space of `pixels`.
    bool holds(QPoint pixel) const { return pixels.contains(pixel); }
    // Where a device pixel's top-left corner lies on this display: points, origin bottom-left of the display.
    ZRPoint localPoint(QPoint pixel) const;
    // The device pixels of a rectangle on this display (points, origin its bottom-left corner), counted from
    // the display's top-left pixel: edges rounded to the nearest pixel, not cut at the display.
    QRect localPixels(ZRRect local) const;
    // The inverse of localPixels.
    ZRRect localRect(QRect pixelsOnDisplay) const;

    friend bool operator==(const DisplayRecord&, const DisplayRecord&) = default;
};
