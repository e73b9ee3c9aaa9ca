#pragma once

#include "platform/DisplayRecord.h"

#include <QImage>

// One display, frozen: the only source of a capture's pixels. Immutable and shared; the last owner frees the
// pixels, so it may be read from any thread.
class Frame {
public:
    Frame(DisplayRecord display, QImage image)
        : m_display(std::move(display))
        , m_image(std::move(image))
    {
    }

    // The display as it was when it was frozen.
    const DisplayRecord& display() const { return m_display; }
    // Format_RGB32, display().pixels.size() large, device pixel ratio 1, its fourth byte undefined. The image
    // may borrow the window server's buffer: copies of it share the pixels and must not outlive the frame.
    const QImage& image() const { return m_image; }
    // A part of the picture, cut at the display's edges; borrows the frame's pixels. Null when nothing is
    // left.
    QImage crop(QRect pixelsOnDisplay) const;

private:
    const DisplayRecord m_display;
    const QImage m_image;
};
