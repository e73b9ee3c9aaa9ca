#pragma once

#include "geometry/ZRRect.h"

#include <optional>
#include <vector>

// The wheel's walk through the windows that lie over each other at the pointer: up to the next larger one,
// down to the next smaller. It holds while the pointer stays where the wheel was turned, give or take what a
// hand trembles; elsewhere the smallest window is meant again. Overlay points.
class WindowWalk {
public:
    // Turns the wheel by an angle in eighths of a degree; a part of a notch waits for the rest of it.
    // `candidates` as WindowRules gives them.
    void turn(const std::vector<ZRRect>& candidates, ZRPoint point, int angle);
    // The window that is meant at a point; nothing where there is none.
    std::optional<ZRRect> meant(const std::vector<ZRRect>& candidates, ZRPoint point) const;
    void reset() { *this = {}; }

private:
    bool holdsAt(ZRPoint point) const;

    std::optional<ZRPoint> m_place; // where the wheel was turned
    size_t m_depth = 0;             // windows passed over
    int m_angle = 0;                // of the unfinished notch
};
