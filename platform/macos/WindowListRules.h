#pragma once

#include "geometry/ZRServerRect.h"
#include "platform/DisplayRecord.h"
#include "platform/WindowRecord.h"

#include <vector>

// A window as the window server lists it.
struct ListedWindow {
    ZRServerRect bounds; // points; origin top-left of the first display
    QString owner;
    QString name;
    double alpha = 1;
};

// The windows in their order, each cut to the displays it reaches: one record a display, since every display
// has a scale of its own. Windows beside all displays are left out.
std::vector<WindowRecord> recordsOf(
    const std::vector<ListedWindow>& windows, const std::vector<DisplayRecord>& displays);
