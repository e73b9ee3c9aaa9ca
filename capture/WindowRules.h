#pragma once

#include "platform/DisplayRecord.h"
#include "platform/WindowRecord.h"

#include <optional>
#include <vector>

// Which window a pointer means. Overlay points: origin bottom-left of the display, y grows upwards.
namespace WindowRules {

// Sorted by area, the smallest first.
std::vector<WindowRecord> sortedByArea(std::vector<WindowRecord> windows);
// Whether a window may be recognised at all. Kept: the opacity is cut to a whole number, so that any
// translucent window is passed over.
bool isRecognisable(const WindowRecord& window);
// A window's rectangle on its display, not cut at the display's edges.
ZRRect overlayRect(const WindowRecord& window, const DisplayRecord& display);

// What recognition may pick on a display, cut at its edges, in the order of the windows; made once a
// display, so that a pointer's move costs one walk over rectangles.
std::vector<ZRRect> candidates(const std::vector<WindowRecord>& windows, const DisplayRecord& display);
// The first rectangle that holds the point.
std::optional<ZRRect> recognised(const std::vector<ZRRect>& candidates, ZRPoint point);

}
