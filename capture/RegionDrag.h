#pragma once

#include "geometry/ZRRect.h"

// What the mouse does with the region from a press to its release: it spans a new one, or moves a fixed one
// or pulls at a handle of it. Overlay points.
class RegionDrag {
public:
    // The drag belongs to the overlay that its press began on.
    void press(ZRPoint location);
    bool isPressed() const { return m_isPressed; }
    void follow(ZRPoint location) { m_lastLocation = location; }
    ZRPoint lastLocation() const { return m_lastLocation; }
    void release() { m_isPressed = false; }

    // `handle` as RegionRules has it.
    void takeHold(ZRPoint point, int handle);
    void letGo() { mDirection = 0; }
    int handle() const { return int(mDirection); }
    bool isByHandle() const;
    // Whether the press reaches a fixed region.
    bool holds(ZRRect region) const;

    // Both on whole device pixels; `scale` is device pixels a point.
    ZRRect spanned(ZRPoint to, double scale) const;
    // The fixed region after one step. Kept: the step is rounded to single precision.
    ZRRect pulled(ZRRect region, ZRPoint to, ZRSize overlay, double scale);

private:
    ZRPoint mRegionBeginPoint; // of the press or of the step before
    ZRPoint m_lastLocation;    // of the press or the drag
    unsigned mDirection = 0;   // the handle that was pressed, 0 for the body
    bool m_isPressed = false;
};
