#pragma once

#include <QImage>

#include <string>
#include <vector>

// Pictures that encoders get wrong: Format_RGB32 with a random fourth byte.
namespace TestPictures {

struct Named {
    std::string name;
    QImage image;
};

// Plain, gradients along and across, noise, and rows of letters-like blocks.
std::vector<Named> ofSize(int width, int height);
// The widths around the vectors' ends.
std::vector<Named> ofAwkwardWidths();
// A part of a larger picture, whose rows lie further apart than they are long. Borrows `whole`.
QImage borrowedPart(const QImage& whole, QRect part);
// At most `count` different colours, each used.
QImage withColours(int count);

// What the decoder makes of the bytes, as Format_RGB32; null when it cannot read them.
QImage decoded(const QByteArray& bytes, const char* format);
// Sizes and the three colours of every pixel.
bool samePixels(const QImage& a, const QImage& b);

}
