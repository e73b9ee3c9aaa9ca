#pragma once

#include <QImage>
#include <QRandomGenerator>
#include <QRegion>

// A mosaic for `area` of `frame`, both in pixels with y down, that tells nothing about what lies there: its
// pixels follow from the area's size, the ring of pixels around the area, less those in `hidden`, the block
// size and `random`, and from nothing else. No pixel of the area shows through, its edges included.
// Format_RGB32, as large as the area, parts beyond the frame included; null for an empty area, a block size
// under 1 or when there is no memory.
QImage secureMosaic(const QImage& frame, QRect area, int blockSize,
    QRandomGenerator random = QRandomGenerator::securelySeeded(), const QRegion& hidden = {});
