#include "capture/ScreenShotBackView.h"

#include "capture/RegionRules.h"
#include "capture/RegionSizeView.h"
#include "capture/ZRMagnifierView.h"
#include "capture/ZRScreenshotCursorView.h"

#include <cmath>

namespace {

constexpr double kBorderWidth = 2; // points
constexpr double kDash = 5;        // points; as much gap as dash
constexpr double kDashPhase = 1;   // points

QColor borderColor()
{
    return QColor::fromRgbF(0.25F, 0.67F, 0.98F);
}

// A white handle with a thin rim that shows it on white too.
QImage handlePicture(QSize pixels, double scale)
{
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(borderColor(), scale));
    painter.setBrush(Qt::white);
    const double half = scale / 2;
    painter.drawEllipse(QRectF(image.rect()).adjusted(half, half, -half, -half));
    return image;
}

// Qt hands a translucent fill of more rows to its threads, which takes longer than to do it.
void fillInSlices(QPainter& painter, const QRect& rect, const QColor& color)
{
    constexpr int kRows = 64;
    for (int y = rect.top(); y <= rect.bottom(); y += kRows)
        painter.fillRect(QRect(rect.left(), y, rect.width(), qMin(kRows, rect.bottom() + 1 - y)), color);
}

QRect grown(const QRect& r, int by)
{
    return r.adjusted(-by, -by, by, by);
}

}

ScreenShotBackView::ScreenShotBackView(QWidget* parent)
    : ChromeLayer(parent)
    , m_regionSizeView(new RegionSizeView(this))
    , m_crossView(new ZRScreenshotCursorView(this))
    , m_magnifierView(ZRMagnifierView::loadForNib(this))
{
}

void ScreenShotBackView::setSelectedRegionRect(ZRRect rect)
{
    if (rect == mRect)
        return;
    const QRect oldHole = devicePixels(mRect);
    repaintAround([&] { mRect = rect; });
    updatePixels(QRegion(oldHole).xored(devicePixels(mRect)));
}

void ScreenShotBackView::setDrawRegionBorder(bool isNeeded)
{
    if (isNeeded != mIsNeedDrawRegionBorder)
        repaintAround([&] { mIsNeedDrawRegionBorder = isNeeded; });
}

void ScreenShotBackView::setDrawResizeButton(bool isNeeded)
{
    if (isNeeded != mIsNeedDrawResizeButton)
        repaintAround([&] { mIsNeedDrawResizeButton = isNeeded; });
}

void ScreenShotBackView::setNeedDrawDashBorder(bool isNeeded)
{
    if (isNeeded != mIsNeedDrawDashBorder)
        repaintAround([&] { mIsNeedDrawDashBorder = isNeeded; });
}

int ScreenShotBackView::pointInResizeRect(ZRPoint point) const
{
    return RegionRules::pointInResizeRect(mRect, point);
}

void ScreenShotBackView::paintPixels(QPainter& painter, const QRegion& dirty)
{
    _drawBackground(painter, dirty);
}

void ScreenShotBackView::_drawBackground(QPainter& painter, const QRegion& dirty) const
{
    const QRect hole = devicePixels(mRect);
    const QColor dim(0, 0, 0, qRound(kDim * 255));
    for (const QRect& pixels : dirty) {
        painter.setClipRect(pixels); // a clip of several rectangles is many times as slow
        for (const QRect& dimmed : QRegion(pixels).subtracted(hole))
            fillInSlices(painter, dimmed, dim);
    }
    painter.setClipping(false);
    if (hasBorder())
        _drawRegionBorder(painter, dirty);
}

void ScreenShotBackView::_drawRegionBorder(QPainter& painter, const QRegion& dirty) const
{
    if (mIsNeedDrawDashBorder)
        _drawDashBorder(painter);
    else
        _drawSolidBorder(painter, dirty);
    if (mIsNeedDrawResizeButton)
        _drawResizeButton(painter);
}

// Whole pixels, so that the border is crisp at every scale factor.
void ScreenShotBackView::_drawSolidBorder(QPainter& painter, const QRegion& dirty) const
{
    const QRect hole = devicePixels(mRect);
    const int half = qMax(1, qRound(kBorderWidth / 2 * devicePixelRatioF()));
    const QRect inner = hole.adjusted(half, half, -half, -half);
    for (const QRect& part : QRegion(grown(hole, half)).subtracted(inner) & dirty) {
        painter.setClipRect(part); // a clip of several rectangles is many times as slow
        painter.fillRect(part, borderColor());
    }
    painter.setClipping(false);
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
            m_handle = handlePicture(square.size(), devicePixelRatioF());
        painter.drawImage(square.topLeft(), m_handle);
    }
}

bool ScreenShotBackView::hasBorder() const
{
    return mIsNeedDrawRegionBorder && mRect.width != 0 && mRect.height != 0;
}

// The device pixels that border and handles may touch, with a pixel of room for smooth edges.
QRegion ScreenShotBackView::touchedPixels() const
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
