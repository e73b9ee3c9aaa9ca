#pragma once

#include "output/PageBuffer.h"
#include "output/PngRowFilters.h"

class QImage;

// How much time a picture may take: Small for files; Quick for the clipboard, some 5 % larger.
enum class PngEffort { Small, Quick };

// Writes PNG: always RGB, eight bits each, never an alpha channel, nothing beside the pixels. Rows are
// filtered by the least sum of absolute residuals on two threads, then compressed in one piece. Safe on any
// thread.
class PngEncoder {
public:
    // `image` is Format_RGB32 and may borrow its rows; its fourth byte is not read into the picture. Empty
    // when the image is null or memory is short.
    static PageBuffer encode(
        const QImage& image, PngEffort effort, const PngRowFilters& filters = PngRowFilters::best());
};
