#include "capture/RegionRules.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr double kHandleSide = 8;
constexpr double kReach = 4;

// Where a handle sits, in halves of the region's width and height.
struct Place {
    int x, y;
};
constexpr std::array<Place, RegionRules::kHandleCount> kPlaces{{
    {0, 2}, {1, 2}, {2, 2}, // 1-3 top: left, middle, right
    {0, 1}, {2, 1},         // 4-5 middle: left, right
    {0, 0}, {1, 0}, {2, 0}, // 6-8 bottom: left, middle, right
}};

struct Pull { // factors: x and width of dx, y and height of dy
    int x, y, width, height;
};
constexpr std::array<Pull, RegionRules::kHandleCount + 1> kPulls{{
    {1, 1, 0, 0},                                // 0 body: moves only
    {1, 0, -1, 1}, {0, 0, 0, 1}, {0, 0, 1, 1},   // 1-3 top: left, middle, right
    {1, 0, -1, 0}, {0, 0, 1, 0},                 // 4-5 middle: left, right
    {1, 1, -1, -1}, {0, 1, 0, -1}, {0, 1, 1, -1} // 6-8 bottom: left, middle, right
}};

double toDevicePixel(double value, double scale)
{
    return std::floor(value * scale + 0.5) / scale;
}

}

ZRRect RegionRules::handleRect(ZRRect region, int code)
{
    const Place place = kPlaces.at(code - 1);
    const double x = region.x + region.width * place.x / 2;
    const double y = region.y + region.height * place.y / 2;
    return {x - kHandleSide / 2, y - kHandleSide / 2, kHandleSide, kHandleSide};
}

int RegionRules::pointInResizeRect(ZRRect region, ZRPoint point)
{
    if (region.width == 0 && region.height == 0)
        return kBody;
    for (int code = 1; code <= kHandleCount; ++code)
        if (handleRect(region, code).contains(point))
            return code;
    return kBody;
}

bool RegionRules::isWithinReach(ZRRect r, ZRPoint point)
{
    return ZRRect{r.x - kReach, r.y - kReach, r.width + 2 * kReach, r.height + 2 * kReach}.contains(point);
}

ZRPoint RegionRules::cutToOverlay(ZRPoint point, double overlayWidth)
{
    return {std::fmin(point.x, overlayWidth), std::fmax(0, point.y)};
}

ZRRect RegionRules::spanned(ZRPoint press, ZRPoint pointer)
{
    return ZRRect{press.x, press.y, pointer.x - press.x, pointer.y - press.y}.normalized();
}

ZRRect RegionRules::moved(ZRRect region, float dx, float dy, ZRSize overlay)
{
    ZRRect r = pulledByHandle(region, kBody, dx, dy);
    if (r.x <= 0)
        r.x = 0;
    if (r.y <= 0)
        r.y = 0;
    if (overlay.height - r.height <= r.y)
        r.y = overlay.height - r.height;
    if (overlay.width - r.width <= r.x)
        r.x = overlay.width - r.width;
    return r;
}

ZRRect RegionRules::pulledByHandle(ZRRect r, int code, float dx, float dy)
{
    const Pull pull = kPulls.at(code);
    return {r.x + pull.x * dx, r.y + pull.y * dy, r.width + pull.width * dx, r.height + pull.height * dy};
}

QRect RegionRules::nudged(QRect region, QPoint by, QSize display)
{
    const QPoint last(display.width() - region.width(), display.height() - region.height());
    const QPoint wanted = region.topLeft() + by;
    return {QPoint(std::max(0, std::min(wanted.x(), last.x())), std::max(0, std::min(wanted.y(), last.y()))),
        region.size()};
}

QRect RegionRules::stretched(QRect region, QPoint by, QSize display)
{
    const auto kept = [](int size, int step, int room) {
        return step == 0 ? size : std::max(1, std::min(size + step, room));
    };
    return {region.topLeft(), QSize(kept(region.width(), by.x(), display.width() - region.x()),
                                  kept(region.height(), by.y(), display.height() - region.y()))};
}

ZRRect RegionRules::snapped(ZRRect r, double scale)
{
    const double x = toDevicePixel(r.x, scale);
    const double y = toDevicePixel(r.y, scale);
    return {x, y, toDevicePixel(r.maxX(), scale) - x, toDevicePixel(r.maxY(), scale) - y};
}
