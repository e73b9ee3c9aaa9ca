#include "capture/ScreenShotBackView.h"

#include "capture/RegionRules.h"
#include "customui/DevicePixels.h"

#include <QPaintEvent>

#include <cmath>

namespace {

constexpr double kBorderWidth = 2; // points
constexpr double kDash = 5;        // points; as much gap as dash
constexpr double kDashPhase = 1;   // points

QColor borderColor()
{
    return QColor::fromRgbF(0.25F, 0.67F, 0.98F);
}

QImage disc(QSize pixels)
{
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawEllipse(QRectF(image.rect()));
    return image;
}

QRect grown(const QRect& r, int by)
{
    return r.adjusted(-by, -by, by, by);
}

}

ScreenShotBackView::ScreenShotBackView(QWidget* parent)
    : View(parent)
{
}

void ScreenShotBackView::setSelectedRegionRect(ZRRect rect)
{
    if (rect == mRect)
        return;
    const QRect oldHole = devicePixels(mRect);
    const QRegion oldChrome = chromeRegion();
    mRect = rect;
    const QRegion holes = QRegion(oldHole).xored(devicePixels(mRect));
    updatePixels(holes + oldChrome + chromeRegion());
}

void ScreenShotBackView::setDrawRegionBorder(bool isNeeded)
{
    if (std::exchange(mIsNeedDrawRegionBorder, isNeeded) != isNeeded)
        update();
}

void ScreenShotBackView::setDrawResizeButton(bool isNeeded)
{
    const QRegion before = chromeRegion();
    if (std::exchange(mIsNeedDrawResizeButton, isNeeded) != isNeeded)
        updatePixels(before + chromeRegion());
}

void ScreenShotBackView::setNeedDrawDashBorder(bool isNeeded)
{
    if (std::exchange(mIsNeedDrawDashBorder, isNeeded) != isNeeded)
        updatePixels(chromeRegion());
}

int ScreenShotBackView::pointInResizeRect(ZRPoint point) const
{
    return RegionRules::pointInResizeRect(mRect, point);
}

void ScreenShotBackView::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    DevicePixels::begin(painter, *this);
    _drawBackground(painter, event->region());
}

void ScreenShotBackView::_drawBackground(QPainter& painter, const QRegion& dirty) const
{
    const QRect hole = devicePixels(mRect);
    const QColor dim(0, 0, 0, qRound(kDim * 255));
    for (const QRect& points : dirty) {
        const QRect pixels = DevicePixels::covering(points, devicePixelRatioF());
        painter.setClipRect(pixels); // a clip of several rectangles is many times as slow
        for (const QRect& dimmed : QRegion(pixels).subtracted(hole))
            painter.fillRect(dimmed, dim);
    }
    painter.setClipping(false);
    if (hasBorder())
        _drawRegionBorder(painter);
}

void ScreenShotBackView::_drawRegionBorder(QPainter& painter) const
{
    if (mIsNeedDrawDashBorder)
        _drawDashBorder(painter);
    else
        _drawSolidBorder(painter);
    if (mIsNeedDrawResizeButton)
        _drawResizeButton(painter);
}

// Whole pixels, so that the border is crisp at every scale factor.
void ScreenShotBackView::_drawSolidBorder(QPainter& painter) const
{
    const QRect hole = devicePixels(mRect);
    const int half = qMax(1, qRound(kBorderWidth / 2 * devicePixelRatioF()));
    const QRect inner = hole.adjusted(half, half, -half, -half);
    for (const QRect& edge : QRegion(grown(hole, half)).subtracted(inner))
        painter.fillRect(edge, borderColor());
}

void ScreenShotBackView::_drawDashBorder(QPainter& painter) const
{
    const double scale = devicePixelRatioF();
    QPen pen(borderColor(), kBorderWidth * scale, Qt::CustomDashLine, Qt::RoundCap, Qt::MiterJoin);
    pen.setDashPattern({kDash / kBorderWidth, kDash / kBorderWidth});
    pen.setDashOffset(kDashPhase / kBorderWidth);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(pen);
    painter.drawRect(QRectF(devicePixels(mRect)));
}

void ScreenShotBackView::_drawResizeButton(QPainter& painter) const
{
    for (int code = 1; code <= RegionRules::kHandleCount; ++code) {
        const QRect square = devicePixels(RegionRules::handleRect(mRect, code));
        if (m_handle.size() != square.size())
            m_handle = disc(square.size());
        painter.drawImage(square.topLeft(), m_handle);
    }
}

bool ScreenShotBackView::hasBorder() const
{
    return mIsNeedDrawRegionBorder && mRect.width != 0 && mRect.height != 0;
}

// The device pixels that border and handles may touch, with a pixel of room for smooth edges.
QRegion ScreenShotBackView::chromeRegion() const
{
    if (!hasBorder())
        return {};
    const QRect hole = devicePixels(mRect);
    const int half = int(std::ceil(kBorderWidth / 2 * devicePixelRatioF())) + 1;
    QRegion region = QRegion(grown(hole, half)).subtracted(hole.adjusted(half, half, -half, -half));
    if (mIsNeedDrawResizeButton)
        for (int code = 1; code <= RegionRules::kHandleCount; ++code)
            region += grown(devicePixels(RegionRules::handleRect(mRect, code)), 1);
    return region;
}

QRegion ScreenShotBackView::chromePoints() const
{
    return pointsOf(chromeRegion());
}

QRegion ScreenShotBackView::pointsOf(const QRegion& pixels) const
{
    QRegion points;
    for (const QRect& r : pixels)
        points += DevicePixels::pointsCovering(r, devicePixelRatioF());
    return points.intersected(rect());
}

void ScreenShotBackView::updatePixels(const QRegion& pixels)
{
    update(pointsOf(pixels));
}
