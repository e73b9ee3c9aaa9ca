#pragma once

#include <QImage>

// Screen contents to measure encoders with, Format_RGB32, the same at every run.
namespace ScreenPictures {

// Windows and text on a plain desktop: prose, code and a table, in grey and subpixel smoothing, icons, a
// panel.
QImage flatDesktop(QSize size);
// The same windows, fewer, over a photograph-like wallpaper: octaves of noise plus grain.
QImage noisyDesktop(QSize size);

}
