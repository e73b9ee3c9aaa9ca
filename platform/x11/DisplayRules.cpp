#include "platform/x11/DisplayRules.h"

#include "geometry/ZRServerRect.h"

std::vector<DisplayRecord> arrangedDisplays(std::vector<DisplayRecord> displays)
{
    if (displays.empty())
        return displays;
    const QPoint origin = displays.front().pixels.topLeft();
    const double firstHeight = displays.front().pixels.height() / displays.front().scale;
    for (DisplayRecord& d : displays) {
        d.pixels.translate(-origin);
        const QRect p = d.pixels;
        d.frame =
            flippedUp({double(p.x()), double(p.y()), p.width() / d.scale, p.height() / d.scale}, firstHeight);
    }
    return displays;
}
