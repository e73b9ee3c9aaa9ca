#pragma once

#include "geometry/ZRRect.h"

#include <QColor>
#include <QRect>
#include <QString>

#include <array>

// Where the chrome of a selection stands and what it says. Overlay points, origin bottom-left of the display,
// y growing upwards, unless a name says pixels: those are device pixels, origin top-left of the display.
namespace ChromeRules {

// Above the region's top edge and flush with its left one; inside the display at the display's top. A region
// pulled over its own edges keeps its label above what is its top edge now.
ZRPoint sizeLabelOrigin(ZRRect region, ZRSize label, double displayHeight);
// Right of and below the pointer, held at the display's right and bottom edge. Kept: it never changes sides.
ZRPoint magnifierOrigin(ZRPoint pointer, ZRSize magnifier, ZRSize display);
// The image at the middle of the cross. Kept: half a point left of and above the pointer.
ZRRect crossImageRect(ZRPoint pointer, ZRSize image);
// The horizontal and the vertical line of the cross over a pixel, in pixels: of one thickness everywhere, the
// corner of the pixel in their middle.
std::array<QRect, 2> crossLines(QPoint pixel, QSize displayPixels, double scale);

// How many pixels the magnifier samples across: 32 points. Even, so that one of them is the middle one.
int sampleSide(double scale);
// The pixels that the magnifier samples around one: that one is in column and row sampleSide() / 2.
QRect samplePixels(QPoint pixel, double scale);

// "%dx%d" of two lengths or coordinates, cut towards zero.
QString pairText(double first, double second);
// "%dx%d" of a region's extent, which may be negative while it is dragged.
QString sizeText(ZRSize size);
// "#rrggbb".
QString hexText(const QColor& color);

// The pointer over a fixed region: `handle` is the one it points at or drags, 0 for none.
Qt::CursorShape pointerShape(int handle, bool isWithinReach);

}
