#pragma once

#include "geometry/ZRRect.h"

// Where a pop-up stands beside what it belongs to. Points; the origin is the bottom-left corner of the space
// that holds both, y grows upwards.
namespace PopupRules {

enum class Side { Below, Above, Right, Left };

struct Placement {
    ZRRect panel;
    Side side = Side::Below; // of the anchor that the panel stands on
    double tip = 0; // where the arrow points along the panel's edge: from its left, or from its bottom
};

inline constexpr double kArrowLength = 7;    // from the panel's edge to the tip
inline constexpr double kArrowHalfWidth = 8; // along the panel's edge
inline constexpr double kCornerRadius = 6;
inline constexpr double kGap = 2; // between the tip and what it points at, or the panel and its button

// Direction 1 prefers the side below and takes the one above where there is no room; 2 prefers the right and
// takes the left. The panel clears `bar`, which holds the anchor, stands centred on the anchor, and is moved
// into `space`, which comes first: in one too small for both, bar and panel overlap.
Placement besideAnchor(ZRRect anchor, ZRRect bar, ZRSize panel, ZRSize space, int direction);
// A list without an arrow: below its button and as far left, above it where there is no room.
ZRRect underButton(ZRRect button, ZRSize panel, ZRSize space);

}
