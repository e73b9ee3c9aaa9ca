#pragma once

#include "output/CaptureJournal.h"

class ZRGraffitManager;

// What is kept of a capture, so that it can be opened again.
namespace LastCapture {

// `region` in points of the frame's display. Where an area is hidden for good, the picture with all
// annotations painted is kept instead of what is below them.
JournalEntry entryOf(
    const std::shared_ptr<const Frame>& frame, ZRRect region, const ZRGraffitManager& annotations);

}
