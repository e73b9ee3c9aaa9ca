#pragma once

#include "geometry/ZRRect.h"

// Where the two toolbars stand beside a region. Points of the overlay; the origin is its bottom-left corner,
// y grows upwards.
namespace PlacementRules {

struct Toolbars {
    ZRRect drawing;
    ZRRect output;
};

// Right-aligned with the region and 5 points below it, or 5 points above its lower edge where there is no
// room; flush with the display's right edge at most.
ZRPoint drawingToolbarOrigin(ZRRect region, ZRSize toolbar, ZRSize screen);
// 5 points right of the region, up from its lower edge; 5 points short of the display's right edge at most.
ZRPoint outputToolbarOrigin(ZRRect region, ZRSize toolbar, ZRSize screen);
// Both as they have placed themselves. Where they meet, the drawing toolbar goes to a free side of the other,
// 5 points away; without a free side they overlap. Both stay on the display, which comes before all else.
Toolbars apart(ZRRect region, Toolbars placed, ZRSize screen);

}
