#pragma once

#include <QPainter>
#include <QRegion>
#include <QWidget>

// Painting by device pixel, exact at every scale factor. All rectangles are device pixels of the widget's
// window, y growing downwards.
namespace DevicePixels {

// Makes one unit of the painter one device pixel, for a painter on a widget that fills its window.
void begin(QPainter& painter, const QWidget& widget);
// Every device pixel that a rectangle or region of whole points touches.
QRect covering(const QRect& points, double scale);
// Every whole point that a rectangle of device pixels touches.
QRect pointsCovering(const QRect& pixels, double scale);

}
