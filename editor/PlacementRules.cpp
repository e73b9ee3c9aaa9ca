#include "editor/PlacementRules.h"

#include <algorithm>
#include <array>

namespace PlacementRules {

namespace {

constexpr double kGap = 5;    // points between a toolbar and what it stands beside
constexpr double kProbe = 10; // points from the region's right and lower edge to where the toolbars may meet

double movedInside(double start, double length, double space)
{
    return std::max(0.0, std::min(start, space - length));
}

ZRRect movedInside(ZRRect r, ZRSize screen)
{
    return {movedInside(r.x, r.width, screen.width), movedInside(r.y, r.height, screen.height), r.width,
        r.height};
}

bool isInside(ZRRect r, ZRSize screen)
{
    return movedInside(r, screen) == r;
}

ZRRect leftOf(ZRRect output, ZRRect drawing)
{
    return {output.x - drawing.width - kGap, drawing.y, drawing.width, drawing.height};
}

// The drawing toolbar left of, right of, above and below the output toolbar, the first that the display
// holds.
ZRRect onFreeSide(ZRRect output, ZRRect drawing, ZRSize screen)
{
    ZRRect right = drawing, above = drawing, below = drawing;
    right.x = output.maxX() + kGap;
    above.y = output.maxY() + kGap;
    below.y = output.y - drawing.height - kGap;
    for (const ZRRect side : std::array{leftOf(output, drawing), right, above, below})
        if (isInside(side, screen))
            return side;
    return drawing;
}

}

ZRPoint drawingToolbarOrigin(ZRRect region, ZRSize toolbar, ZRSize screen)
{
    ZRPoint origin{region.maxX() - toolbar.width, region.y - kGap - toolbar.height};
    if (origin.y <= 0)
        origin.y = region.y + kGap;
    origin.x = std::max(origin.x, 0.0);
    origin.x = std::min(origin.x, screen.width - toolbar.width);
    return origin;
}

// Kept: the margin at the display's right edge, which the drawing toolbar does not have.
ZRPoint outputToolbarOrigin(ZRRect region, ZRSize toolbar, ZRSize screen)
{
    ZRPoint origin{region.maxX() + kGap, region.y};
    if (origin.y <= 0)
        origin.y = region.y + kGap;
    origin.y = std::min(origin.y, screen.height - toolbar.height);
    origin.x = std::max(origin.x, 0.0);
    if (origin.x + toolbar.width > screen.width)
        origin.x = screen.width - toolbar.width - kGap;
    return origin;
}

Toolbars apart(ZRRect region, Toolbars placed, ZRSize screen)
{
    for (const double dy : {kProbe, -kProbe}) {
        const ZRPoint probe{region.maxX() - kProbe, region.y + dy};
        if (placed.drawing.contains(probe) && placed.output.contains(probe))
            placed.drawing = leftOf(placed.output, placed.drawing);
    }
    placed.output = movedInside(placed.output, screen);
    placed.drawing = movedInside(placed.drawing, screen);
    if (!placed.drawing.intersected(placed.output).isEmpty())
        placed.drawing = onFreeSide(placed.output, placed.drawing, screen);
    return placed;
}

}
