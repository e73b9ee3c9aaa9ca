#include "capture/ChromeLayer.h"

#include "customui/DevicePixels.h"

#include <QPaintEvent>

#include <cmath>

ChromeLayer::ChromeLayer(QWidget* parent)
    : View(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void ChromeLayer::coverDisplay(const DisplayRecord& display)
{
    if (parentWidget())
        setGeometry(parentWidget()->rect());
    m_exactWidth = display.pixels.width() / display.scale;
    setExactHeight(display.pixels.height() / display.scale);
    makeReady();
    for (ChromeLayer* layer : layersInside())
        layer->coverDisplay(display);
}

QRegion ChromeLayer::touchedPoints() const
{
    QRegion points = pointsOf(touchedPixels());
    for (const ChromeLayer* layer : layersInside())
        points += layer->touchedPoints();
    return points;
}

QList<ChromeLayer*> ChromeLayer::layersInside() const
{
    QList<ChromeLayer*> layers;
    for (QObject* child : children())
        if (auto* layer = dynamic_cast<ChromeLayer*>(child))
            layers.push_back(layer);
    return layers;
}

ZRSize ChromeLayer::displaySize() const
{
    return {m_exactWidth > 0 ? m_exactWidth : width(), exactHeight()};
}

QSize ChromeLayer::displayPixels() const
{
    const ZRSize size = displaySize();
    return devicePixels({0, 0, size.width, size.height}).size();
}

QRegion ChromeLayer::pointsOf(const QRegion& pixels) const
{
    QRegion points;
    for (const QRect& r : pixels)
        points += DevicePixels::pointsCovering(r, devicePixelRatioF());
    return points.intersected(rect());
}

void ChromeLayer::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    DevicePixels::begin(painter, *this);
    QRegion dirty;
    for (const QRect& points : event->region())
        dirty += DevicePixels::covering(points, devicePixelRatioF());
    paintPixels(painter, dirty);
}
