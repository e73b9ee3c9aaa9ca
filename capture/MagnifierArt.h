#pragma once

#include "geometry/ZRSize.h"

#include <QImage>
#include <QRect>

// The magnifier's fixed parts: a ring around the lens, a mark around its middle pixel, a plate for the labels
// below it. Device pixels of the magnifier, origin top-left.
namespace MagnifierArt {

constexpr ZRSize kSize{170, 206}; // points

// Where the picture of a lens goes.
QPoint lensCorner(int lensDiameter, double scale);
QRect plate(double scale);
// What lies over the lens; premultiplied, transparent where nothing does. `middleCell` is the lens's.
QImage drawn(int lensDiameter, QRect middleCell, double scale);

}
