#pragma once

#include <QImage>

// What becomes of a picture's pixels on their way out.
namespace PictureRules {

// The picture at one pixel a point: every new pixel is the mean of the area it covers. `scale` is the
// picture's device pixels a point; a picture at scale 1 comes back as it is. Format_RGB32 in and out.
QImage averagedToPoints(const QImage& picture, double scale);

}
