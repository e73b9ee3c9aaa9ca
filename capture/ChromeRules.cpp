#include "capture/ChromeRules.h"

#include "capture/RegionRules.h"
#include "settings/AppSettings.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kLabelGap = 5;           // points between the region and its label
constexpr double kMagnifierRight = 10;    // points from the pointer
constexpr double kMagnifierBelow = 15;    // points from the pointer
constexpr double kCrossLineWidth = 2;     // points
constexpr double kHalfSample = 16;        // points
constexpr double kRoundingResidue = 1e-6; // points: what a length divided by a scale factor may lack

int wholePoints(double value)
{
    return static_cast<int>(value + std::copysign(kRoundingResidue, value));
}

}

ZRPoint ChromeRules::sizeLabelOrigin(ZRRect region, ZRSize label, double displayHeight)
{
    ZRPoint origin{region.x, region.maxY() + kLabelGap};
    if (origin.y + label.height >= displayHeight)
        origin.y = displayHeight - label.height;
    if (region.width < 0)
        origin.x = region.maxX();
    if (region.height < 0)
        origin.y = region.y + kLabelGap;
    return origin;
}

ZRPoint ChromeRules::magnifierOrigin(ZRPoint pointer, ZRSize magnifier, ZRSize display)
{
    ZRPoint origin{pointer.x + kMagnifierRight, pointer.y - magnifier.height - kMagnifierBelow};
    if (origin.x + magnifier.width >= display.width)
        origin.x = display.width - magnifier.width;
    origin.y = std::max<double>(origin.y, 0);
    return origin;
}

ZRRect ChromeRules::crossImageRect(ZRPoint pointer, ZRSize image)
{
    return {pointer.x - image.width / 2 - 0.5, pointer.y - image.height / 2 + 0.5, image.width, image.height};
}

std::array<QRect, 2> ChromeRules::crossLines(QPoint pixel, QSize displayPixels, double scale)
{
    const int width = std::max(1, static_cast<int>(std::lround(kCrossLineWidth * scale)));
    const QPoint first = pixel - QPoint(width / 2, width / 2);
    return {QRect(0, first.y(), displayPixels.width(), width),
        QRect(first.x(), 0, width, displayPixels.height())};
}

int ChromeRules::sampleSide(double scale)
{
    return 2 * std::max(1, static_cast<int>(std::lround(kHalfSample * scale)));
}

QRect ChromeRules::samplePixels(QPoint pixel, double scale)
{
    const int side = sampleSide(scale);
    return {pixel - QPoint(side / 2, side / 2), QSize(side, side)};
}

QString ChromeRules::pairText(double first, double second)
{
    return QString::asprintf("%dx%d", wholePoints(first), wholePoints(second));
}

QString ChromeRules::sizeText(ZRSize size)
{
    return pairText(std::abs(size.width), std::abs(size.height));
}

QString ChromeRules::hexText(const QColor& color)
{
    return QLatin1Char('#') + AppSettings::ToHex(color.red()) + AppSettings::ToHex(color.green()) +
           AppSettings::ToHex(color.blue());
}

Qt::CursorShape ChromeRules::pointerShape(int handle, bool isWithinReach)
{
    constexpr std::array<Qt::CursorShape, RegionRules::kHandleCount> shapes{
        Qt::SizeFDiagCursor, Qt::SizeVerCursor, Qt::SizeBDiagCursor, // 1-3 top: left, middle, right
        Qt::SizeHorCursor, Qt::SizeHorCursor,                        // 4-5 middle: left, right
        Qt::SizeBDiagCursor, Qt::SizeVerCursor, Qt::SizeFDiagCursor, // 6-8 bottom: left, middle, right
    };
    if (handle != RegionRules::kBody)
        return shapes.at(handle - 1);
    return isWithinReach ? Qt::SizeAllCursor : Qt::ArrowCursor;
}
