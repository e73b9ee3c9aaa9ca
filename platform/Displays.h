#pragma once

#include "platform/DisplayRecord.h"

#include <functional>
#include <optional>
#include <vector>

// The connected displays and the pointer on them. Main thread only.
class Displays {
public:
    virtual ~Displays() = default;

    // The first display first, the others in the desktop's order; empty when there is none. Cheap: kept until
    // something changes.
    virtual std::vector<DisplayRecord> all() const = 0;
    // The device pixel under the pointer, in the space of DisplayRecord::pixels; empty when it cannot be
    // told.
    virtual std::optional<QPoint> pointer() const = 0;
    // The rectangle around all displays, in the same space: other programs count the desktop's pixels from
    // its top-left corner.
    virtual QRect virtualScreen() const
    {
        QRect around;
        for (const DisplayRecord& display : all())
            around |= display.pixels;
        return around;
    }

    // Called after a display was added, removed, moved or resized.
    std::function<void()> onChange;
};
