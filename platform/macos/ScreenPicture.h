#pragma once

#include <QImage>

#include <CoreGraphics/CoreGraphics.h>

// The picture's pixels in Format_RGB32, without a conversion of their colours; null when there is not enough
// memory. Any thread.
QImage pictureOf(CGImageRef image);
