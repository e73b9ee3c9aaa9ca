#pragma once

#include "geometry/ZRServerRect.h"
#include "platform/DisplayRecord.h"

#include <optional>
#include <vector>

// A display as the system tells of it.
struct ScreenFacts {
    int id = 0;
    QString name;        // as Qt's screen has it
    QString productName; // empty when it is not told
    ZRRect frame;        // points; origin bottom-left of the first display
    double scale = 1;    // device pixels a point
};

// The displays in their order. A display's corner in `pixels` is its distance in points times the largest
// scale of all, only its size is in its own device pixels: neighbours of different scales may stand apart but
// never overlap.
std::vector<DisplayRecord> arrangedDisplays(const std::vector<ScreenFacts>& screens);
// The display as the window server counts: points, origin top-left of the first display.
ZRServerRect serverRect(const DisplayRecord& display, const DisplayRecord& first);
// The device pixel at a place that the window server tells, x and y as serverRect counts; empty beside all
// displays.
std::optional<QPoint> pixelAt(const std::vector<DisplayRecord>& displays, double x, double y);
