#pragma once

#include "platform/DisplayRecord.h"

#include <QImage>

#include <functional>

// The system's way to the pixels of a display.
class ScreenSource {
public:
    struct Answer {
        QImage image;   // Format_RGB32; null when there is none
        QString reason; // then
    };

    virtual ~ScreenSource() = default;

    // Whether the user allows it.
    virtual bool isPermitted() const = 0;
    // Shows the system's question to the user, once for each time the program runs; whether it is allowed
    // now.
    virtual bool askForPermission() = 0;
    // Gets ready for the next read; for idle moments.
    virtual void prepare() = 0;
    // Calls `onAnswer` once, on any thread and perhaps before it returns; a system that hangs never does.
    virtual void read(const DisplayRecord& display, std::function<void(Answer)> onAnswer) = 0;
};
