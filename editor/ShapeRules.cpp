#include "editor/ShapeRules.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

constexpr float kBarb = 2.8274333F; // radians, 162 degrees
constexpr float kRightAngle = std::numbers::pi_v<float> / 2;
constexpr double kStrokeMargin = 2; // points

ZRPoint fromTip(ZRPoint tip, float angle, int length)
{
    return {tip.x + double(float(length) * std::cos(angle)), tip.y + double(float(length) * std::sin(angle))};
}

}

ZRRect ShapeRules::spanned(ZRPoint start, ZRPoint end)
{
    if (start == end)
        return {};
    return {std::min(start.x, end.x), std::min(start.y, end.y), std::abs(end.x - start.x),
        std::abs(end.y - start.y)};
}

ZRRect ShapeRules::lineRect(ZRPoint start, ZRPoint end, qint32 lineWidth)
{
    const ZRRect span{std::min(start.x, end.x), std::min(start.y, end.y), std::abs(end.x - start.x),
        std::abs(end.y - start.y)};
    return span.grown(lineWidth / 2.0);
}

ZRRect ShapeRules::strokeRect(ZRRect extent, qint32 lineWidth)
{
    return extent.grown(lineWidth / 2.0 + kStrokeMargin);
}

// Kept: the angles pass through single precision and a right angle and back.
ShapeRules::Arrow ShapeRules::arrow(ZRPoint start, ZRPoint end, qint32 lineWidth)
{
    const float direction = std::atan2(float(end.y - start.y), float(end.x - start.x));
    const float first = (direction - kRightAngle - kBarb) + kRightAngle;
    const float second = (direction - kRightAngle + kBarb) + kRightAngle;
    const int headLength = 3 * lineWidth + 20;
    const int baseLength = 2 * lineWidth + 10;
    return {start, end, {fromTip(end, first, headLength), fromTip(end, second, headLength)},
        {fromTip(end, first, baseLength), fromTip(end, second, baseLength)}};
}

ZRRect ShapeRules::withPoint(ZRRect extent, ZRPoint point)
{
    const double left = std::min(extent.x, point.x);
    const double bottom = std::min(extent.y, point.y);
    return {left, bottom, std::max(extent.maxX(), point.x) - left, std::max(extent.maxY(), point.y) - bottom};
}

ZRRect ShapeRules::extentOf(const DragPoints& points)
{
    if (points.empty())
        return {};
    const auto byX = [](DragPoint a, DragPoint b) { return a.x < b.x; };
    const auto byY = [](DragPoint a, DragPoint b) { return a.y < b.y; };
    const auto [left, right] = std::minmax_element(points.begin(), points.end(), byX);
    const auto [bottom, top] = std::minmax_element(points.begin(), points.end(), byY);
    return {left->x, bottom->y, double(right->x) - left->x, double(top->y) - bottom->y};
}
