#include "editor/HitRules.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr double kSmallEllipse = 15; // points; up to this size the inside counts
constexpr double kInnermost = 0.85;  // of the ellipse's equation, 1 on the line itself
constexpr double kOutermost = 1.3;
constexpr double kLineReach = 3; // points
constexpr float kColorReach = 0.2F;

double distance(ZRPoint a, ZRPoint b)
{
    return std::hypot(b.x - a.x, b.y - a.y);
}

// By the area of the triangle (Heron). `start` and `end` differ.
double distanceFromLine(ZRPoint point, ZRPoint start, ZRPoint end)
{
    const double a = distance(point, start);
    const double b = distance(start, end);
    const double c = distance(end, point);
    const double s = (a + b + c) / 2;
    const double square = s * (s - a) * (s - b) * (s - c);
    return 2 * std::sqrt(std::max(0.0, square)) / b; // rounding may leave a little less than zero
}

}

bool HitRules::isWithin(ZRPoint center, double reach, ZRPoint point)
{
    return ZRRect{center.x, center.y, 0, 0}.grown(reach).contains(point);
}

bool HitRules::hitsBorder(ZRRect rect, qint32 lineWidth, ZRPoint point)
{
    if (rect.width == 0 && rect.height == 0)
        return false;
    return rect.grown(lineWidth / 2.0).contains(point) && !rect.grown(-lineWidth / 2.0).contains(point);
}

// Kept: the distances from the middle are cut to whole points, the value is narrowed to single precision.
bool HitRules::hitsEllipse(ZRRect rect, qint32 lineWidth, ZRPoint point)
{
    const bool isNothing = rect.width == 0 && rect.height == 0;
    if (isNothing || !rect.grown(lineWidth / 2.0).contains(point))
        return false;
    if (rect.width <= kSmallEllipse || rect.height <= kSmallEllipse)
        return true;
    const double dx = std::trunc(point.x - (rect.x + rect.width / 2));
    const double dy = std::trunc(point.y - (rect.y + rect.height / 2));
    const double a = (rect.width - lineWidth) / 2;
    const double b = (rect.height - lineWidth) / 2;
    const auto value = float(dy * dy / (b * b) + dx * dx / (a * a)); // may be no number, which is no hit
    return value >= kInnermost && value <= kOutermost;
}

bool HitRules::hitsLine(ZRRect rect, ZRPoint start, ZRPoint end, qint32 lineWidth, ZRPoint point)
{
    if (!rect.contains(point))
        return false;
    if (isWithin(start, lineWidth, point) || isWithin(end, lineWidth, point))
        return true;
    return start != end && distanceFromLine(point, start, end) < kLineReach;
}

bool HitRules::hitsStroke(const DragPoints& points, ZRRect extent, qint32 lineWidth, ZRPoint point)
{
    const double reach = 2.0 * lineWidth;
    if (points.empty() || !extent.grown(reach).contains(point))
        return false;
    return std::any_of(points.begin(), points.end(),
        [reach, point](DragPoint p) { return isWithin(p.point(), reach, point); });
}

bool HitRules::isColorValueEqualToColorValue(const QColor& a, const QColor& b)
{
    const std::array<float, 3> differences{std::abs(float(a.redF()) - float(b.redF())),
        std::abs(float(a.greenF()) - float(b.greenF())), std::abs(float(a.blueF()) - float(b.blueF()))};
    return std::all_of(
        differences.begin(), differences.end(), [](float difference) { return difference < kColorReach; });
}
