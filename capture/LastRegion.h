#pragma once

#include "capture/CaptureOrder.h"

// The region that was captured last, in this run of the program or the one before.
class LastRegion {
public:
    // Nothing before the first one, nor while its display is gone or too small.
    static std::optional<CaptureArea> area();

    // A region's picture was taken; it is written once the capture is over.
    void wasTaken(const CaptureArea& region);
    void write();

private:
    QString m_taken; // to be written; empty for none
};
