#pragma once

#include "platform/Frame.h"

#include <QWindow>

#include <memory>

// What a capture asks of the desktop's window server. Main thread only. Nothing throws.
class WindowServer {
public:
    virtual ~WindowServer() = default;

    // The display as it is now, in its own device pixels. Null when the screen cannot be read; `reason` then
    // says why.
    virtual std::shared_ptr<const Frame> freeze(const DisplayRecord& display, QString* reason) = 0;
    // Lets the server itself put the frame, dimmed by black of opacity `dim` (0 to 1), into a mapped window
    // that covers the frame's display. False when it cannot: the window must then paint the picture itself.
    virtual bool present(const Frame& frame, const QWindow& window, double dim) = 0;
};
