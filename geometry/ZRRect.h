#pragma once

#include "geometry/ZRPoint.h"
#include "geometry/ZRSize.h"

struct ZRRect { // points; origin bottom-left, y grows upwards
    double x = 0, y = 0;
    double width = 0, height = 0; // negative while an edge is dragged past its opposite

    double maxX() const { return x + width; }
    double maxY() const { return y + height; }
    ZRPoint origin() const { return {x, y}; }
    ZRSize size() const { return {width, height}; }
    bool isEmpty() const { return width <= 0 || height <= 0; }
    // Left and bottom edges belong to the rectangle, right and top edges do not.
    bool contains(ZRPoint p) const { return p.x >= x && p.x < maxX() && p.y >= y && p.y < maxY(); }
    // The same area with its sizes made positive.
    ZRRect normalized() const;
    // The shared area; the zero rectangle when there is none. Both sides must be normalized.
    ZRRect intersected(ZRRect other) const;
    ZRRect translated(double dx, double dy) const { return {x + dx, y + dy, width, height}; }
    // Larger by so much on every side.
    ZRRect grown(double by) const { return {x - by, y - by, width + 2 * by, height + 2 * by}; }
    friend bool operator==(ZRRect, ZRRect) = default;
};
