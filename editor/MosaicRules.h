#pragma once

#include <QImage>

namespace MosaicRules {

// The picture in blocks of `mosaicLevel` by `mosaicLevel` pixels, each in the colour of its top left pixel.
// Kept: the last column and the last row stay as they are. The result is Format_RGB32, or
// ARGB32_Premultiplied where the picture has an alpha channel; a picture that nobody shares is changed in
// place. A level under 1 returns the picture.
QImage transToMosaicImage(QImage image, int mosaicLevel);

}
