#include "capture/MagnifierArt.h"

#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

#include <algorithm>

namespace {

constexpr double kPlateMargin = 5;  // points beside the plate and below it
constexpr double kPlateHeight = 26; // points
constexpr double kPlateRadius = 7;  // points
constexpr double kRingWidth = 3;    // points
constexpr double kShadowWidth = 4;  // points
constexpr QColor kInk(24, 50, 79);
constexpr QColor kGuide(42, 123, 244, 210);
constexpr QColor kPlate(22, 27, 34, 236);

int toPixels(double points, double scale)
{
    return qRound(points * scale);
}

// Four lines along the grid, one pixel thin, past both sides of the middle pixel's row and column.
void drawGuides(QPainter& painter, QRect lens, QRect cell)
{
    for (const int y : {cell.top() - 1, cell.bottom() + 1})
        painter.fillRect(lens.left(), y, lens.width(), 1, kGuide);
    for (const int x : {cell.left() - 1, cell.right() + 1})
        painter.fillRect(x, lens.top(), 1, lens.height(), kGuide);
}

// Light and dark, so that it shows on every colour; the pixel itself stays free.
void drawMark(QPainter& painter, QRect cell, double scale)
{
    const int width = std::max(1, toPixels(1, scale));
    const QRect light = cell.adjusted(-width, -width, width, width);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(light.adjusted(-width, -width, width, width), kInk);
    painter.fillRect(light, Qt::white);
    painter.fillRect(cell, Qt::transparent);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
}

void drawShadow(QPainter& painter, QPointF middle, double radius, double width)
{
    QRadialGradient shadow(middle, radius + width);
    shadow.setColorAt(radius / (radius + width), QColor(0, 0, 0, 90));
    shadow.setColorAt(1, Qt::transparent);
    painter.setPen(Qt::NoPen);
    painter.setBrush(shadow);
    QPainterPath path;
    path.addEllipse(middle, radius + width, radius + width);
    path.addEllipse(middle, radius, radius);
    painter.drawPath(path);
}

// Covers the lens's unsmooth edge.
void drawRing(QPainter& painter, QRect lens, double scale)
{
    const QPointF middle = QRectF(lens).center();
    const double inner = lens.width() / 2.0 - 1;
    const double width = kRingWidth * scale;
    drawShadow(painter, middle, inner + width, kShadowWidth * scale);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::white, width));
    painter.drawEllipse(middle, inner + width / 2, inner + width / 2);
    painter.setPen(QPen(QColor(0, 0, 0, 70), scale));
    painter.drawEllipse(middle, inner, inner);
}

void drawPlate(QPainter& painter, QRect plate, double scale)
{
    const double half = scale / 2;
    painter.setPen(QPen(QColor(255, 255, 255, 46), scale));
    painter.setBrush(kPlate);
    painter.drawRoundedRect(
        QRectF(plate).adjusted(half, half, -half, -half), kPlateRadius * scale, kPlateRadius * scale);
}

}

QPoint MagnifierArt::lensCorner(int lensDiameter, double scale)
{
    const int margin = (toPixels(kSize.width, scale) - lensDiameter) / 2;
    return {margin, margin};
}

QRect MagnifierArt::plate(double scale)
{
    const double top = kSize.height - kPlateMargin - kPlateHeight;
    return {toPixels(kPlateMargin, scale), toPixels(top, scale),
        toPixels(kSize.width - 2 * kPlateMargin, scale), toPixels(kPlateHeight, scale)};
}

QImage MagnifierArt::drawn(int lensDiameter, QRect middleCell, double scale)
{
    const QPoint corner = lensCorner(lensDiameter, scale);
    const QRect lens(corner, QSize(lensDiameter, lensDiameter));
    const QRect cell = middleCell.translated(corner);
    QImage picture(
        toPixels(kSize.width, scale), toPixels(kSize.height, scale), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    drawGuides(painter, lens, cell);
    drawMark(painter, cell, scale);
    painter.setRenderHint(QPainter::Antialiasing);
    drawRing(painter, lens, scale);
    drawPlate(painter, plate(scale), scale);
    return picture;
}
