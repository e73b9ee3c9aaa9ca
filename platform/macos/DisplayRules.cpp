#include "platform/macos/DisplayRules.h"

#include <algorithm>
#include <cmath>

namespace {

double largestScale(const std::vector<ScreenFacts>& screens)
{
    double largest = 1;
    for (const ScreenFacts& screen : screens)
        largest = std::max(largest, screen.scale);
    return largest;
}

QRect pixelsOf(const ZRServerRect& r, double cornerScale, double scale)
{
    const auto pixels = [](double points, double factor) { return int(std::lround(points * factor)); };
    return {
        pixels(r.x, cornerScale), pixels(r.y, cornerScale), pixels(r.width, scale), pixels(r.height, scale)};
}

bool holds(const ZRServerRect& r, double x, double y)
{
    return x >= r.x && x < r.x + r.width && y >= r.y && y < r.y + r.height;
}

}

std::vector<DisplayRecord> arrangedDisplays(const std::vector<ScreenFacts>& screens)
{
    std::vector<DisplayRecord> displays;
    const double cornerScale = largestScale(screens);
    for (const ScreenFacts& s : screens) {
        const ZRServerRect onServer = flippedDown(s.frame, screens.front().frame.height);
        const QRect pixels = pixelsOf(onServer, cornerScale, s.scale);
        displays.push_back({s.id, s.name, pixels, s.scale, s.frame, s.productName});
    }
    return displays;
}

ZRServerRect serverRect(const DisplayRecord& display, const DisplayRecord& first)
{
    return flippedDown(display.frame, first.frame.height);
}

std::optional<QPoint> pixelAt(const std::vector<DisplayRecord>& displays, double x, double y)
{
    for (const DisplayRecord& display : displays) {
        const ZRServerRect r = serverRect(display, displays.front());
        if (holds(r, x, y)) {
            const QPoint local(int((x - r.x) * display.scale), int((y - r.y) * display.scale));
            return display.pixels.topLeft() + local;
        }
    }
    return std::nullopt;
}
