#pragma once

#include <QByteArray>

class QSvgRenderer;

// The drawing as a PNG of so many pixels in width and height, clear where nothing is drawn.
QByteArray iconPicture(QSvgRenderer& drawing, int pixels);
