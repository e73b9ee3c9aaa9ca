#include "output/PinRules.h"

#include "geometry/ZRServerRect.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kInset = 1;        // points, at the left and at the bottom
constexpr double kTolerance = 1e-6; // points, of sums of halves and thirds
constexpr double kZoomStep = 1.1;
constexpr double kOpacityStep = 0.1;
constexpr int kMostOpacitySteps = 8; // leaves enough to be found again
constexpr double kSmallestSide = 16; // points
constexpr double kLargestSide = 8192;
constexpr int kMostZoomSteps = 24; // about ten times

int wholeAbove(double points)
{
    return int(std::ceil(points - kTolerance));
}

int wholeBelow(double points)
{
    return int(std::floor(points + kTolerance));
}

}

namespace PinRules {

Place placeOf(const DisplayRecord& display, ZRRect region)
{
    const double scale = display.scale;
    const QRect picture = display.localPixels(region) & QRect(QPoint(0, 0), display.pixels.size());
    const ZRServerRect r = flippedDown(display.localRect(picture), display.pixels.height() / scale);
    const QPoint first(wholeAbove(r.x + kInset), wholeAbove(r.y));
    const QPoint end(wholeBelow(r.x + r.width), wholeBelow(r.y + r.height - kInset));
    const QRect window(first, QSize(std::max(end.x() - first.x(), 1), std::max(end.y() - first.y(), 1)));
    return {window, QRect(window.topLeft() * scale - picture.topLeft(), window.size() * scale)};
}

double zoomAfter(int steps)
{
    return std::pow(kZoomStep, steps);
}

double opacityAfter(int steps)
{
    return 1 - steps * kOpacityStep;
}

int cutZoomSteps(int steps, QSize size)
{
    const double shorter = std::max(std::min(size.width(), size.height()), 1);
    const double longer = std::max({size.width(), size.height(), 1});
    const auto stepsTo = [](double factor) { return std::log(factor) / std::log(kZoomStep); };
    const int least = std::min(wholeAbove(stepsTo(kSmallestSide / shorter)), 0);
    const int most = std::max(wholeBelow(stepsTo(kLargestSide / longer)), 0);
    return std::clamp(steps, std::max(least, -kMostZoomSteps), std::min(most, kMostZoomSteps));
}

int cutOpacitySteps(int steps)
{
    return std::clamp(steps, 0, kMostOpacitySteps);
}

QRect zoomedAround(const QRect& window, QPoint point, QSize size)
{
    const QPointF part(double(point.x() - window.x()) / std::max(window.width(), 1),
        double(point.y() - window.y()) / std::max(window.height(), 1));
    return {point - QPointF(part.x() * size.width(), part.y() * size.height()).toPoint(), size};
}

}
