#include "capture/RegionSizeView.h"

#include "capture/ChromeRules.h"

namespace {

constexpr ZRSize kLabelSize{88, 22}; // points; room for "16384x16384"
constexpr double kTextSize = 12;     // points

}

RegionSizeView::RegionSizeView(QWidget* parent)
    : ChromeLayer(parent)
{
}

void RegionSizeView::updateRegionSzie(ZRRect rect)
{
    if (rect == regionRect)
        return;
    repaintAround([&] {
        regionRect = rect;
        const ZRPoint origin = ChromeRules::sizeLabelOrigin(rect, kLabelSize, displaySize().height);
        m_label = {origin.x, origin.y, kLabelSize.width, kLabelSize.height};
    });
}

QString RegionSizeView::text() const
{
    const ZRSize size = regionRect.size();
    return size.width == 0 && size.height == 0 ? QString() : ChromeRules::sizeText(size);
}

QRegion RegionSizeView::touchedPixels() const
{
    return text().isEmpty() ? QRegion() : QRegion(devicePixels(m_label));
}

void RegionSizeView::makeReady()
{
    m_font.setPixelSize(qRound(kTextSize * devicePixelRatioF()));
}

void RegionSizeView::paintPixels(QPainter& painter, const QRegion& dirty)
{
    const QRect bounds = devicePixels(m_label);
    const QString size = text();
    if (size.isEmpty() || !dirty.intersects(bounds))
        return;
    _drawBackground(painter, bounds);
    painter.setPen(Qt::white);
    painter.setFont(m_font);
    painter.drawText(bounds, Qt::AlignCenter, size);
}

void RegionSizeView::_drawBackground(QPainter& painter, const QRect& bounds) const
{
    const double radius = bounds.height() / 4.0;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    painter.drawRoundedRect(bounds, radius, radius);
}
