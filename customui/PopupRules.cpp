#include "customui/PopupRules.h"

#include <algorithm>

namespace PopupRules {

namespace {

// A stretch along one axis.
struct Span {
    double start, length;
    double end() const { return start + length; }
    double middle() const { return start + length / 2; }
};

// The nearest start within a space; its beginning when the space is too small.
double movedInside(double start, double length, double space)
{
    return std::max(0.0, std::min(start, space - length));
}

bool fits(double start, double length, double space)
{
    return start >= 0 && start + length <= space;
}

struct Beside {
    double start;
    bool isAfter; // the panel lies towards greater coordinates
};

Beside beside(Span bar, double length, double gap, double space, bool prefersAfter)
{
    const double after = bar.end() + gap;
    const double before = bar.start - gap - length;
    const bool isAfter = prefersAfter ? fits(after, length, space) || !fits(before, length, space)
                                      : !fits(before, length, space) && fits(after, length, space);
    return {movedInside(isAfter ? after : before, length, space), isAfter};
}

struct Across {
    double start, tip;
};

// Centred on the anchor; the tip stays on the straight part of the edge.
Across across(Span anchor, double length, double space)
{
    const double start = movedInside(anchor.middle() - length / 2, length, space);
    const double first = std::min(kCornerRadius + kArrowHalfWidth, length / 2);
    return {start, std::clamp(anchor.middle() - start, first, length - first)};
}

}

Placement besideAnchor(ZRRect anchor, ZRRect bar, ZRSize panel, ZRSize space, int direction)
{
    constexpr double gap = kArrowLength + kGap;
    if (direction == 2) {
        const Beside x = beside({bar.x, bar.width}, panel.width, gap, space.width, true);
        const Across y = across({anchor.y, anchor.height}, panel.height, space.height);
        return {{x.start, y.start, panel.width, panel.height}, x.isAfter ? Side::Right : Side::Left, y.tip};
    }
    const Beside y = beside({bar.y, bar.height}, panel.height, gap, space.height, false);
    const Across x = across({anchor.x, anchor.width}, panel.width, space.width);
    return {{x.start, y.start, panel.width, panel.height}, y.isAfter ? Side::Above : Side::Below, x.tip};
}

ZRRect underButton(ZRRect button, ZRSize panel, ZRSize space)
{
    const Beside y = beside({button.y, button.height}, panel.height, kGap, space.height, false);
    return {movedInside(button.x, panel.width, space.width), y.start, panel.width, panel.height};
}

}
