#include "customui/View.h"

#include "customui/DevicePixels.h"
#include "geometry/ZRServerRect.h"

#include <QImage>
#include <QtMath>

namespace {

// Halves go up, so that a rectangle keeps its size when it moves by whole pixels.
int nearestPixel(double value)
{
    return qFloor(value + 0.5);
}

}

View::View(QWidget* parent, Qt::WindowFlags flags)
    : QWidget(parent, flags)
{
}

std::optional<QColor> View::getPixlColorAtLocation(ZRPoint location)
{
    const QPoint pixel = devicePixels({location.x, location.y, 0, 0}).topLeft();
    const double scale = devicePixelRatioF();
    const QRect points = DevicePixels::pointsCovering({pixel, QSize(1, 1)}, scale);
    if (!rect().contains(points))
        return std::nullopt;
    QImage drawn(points.size() * qCeil(scale), QImage::Format_ARGB32_Premultiplied);
    drawn.setDevicePixelRatio(scale);
    drawn.fill(Qt::transparent);
    render(&drawn, {}, points, DrawChildren);
    return drawn.pixelColor(pixel - DevicePixels::covering(points, scale).topLeft());
}

void View::place(QWidget& child, ZRRect rect) const
{
    const ZRServerRect r = flippedDown(rect, exactHeight());
    child.setGeometry(qRound(r.x), qRound(r.y), qRound(r.width), qRound(r.height));
}

QRect View::devicePixels(ZRRect rect) const
{
    const ZRServerRect r = flippedDown(rect.normalized(), exactHeight());
    const double scale = devicePixelRatioF();
    const QPoint first(nearestPixel(r.x * scale), nearestPixel(r.y * scale));
    const QPoint end(nearestPixel((r.x + r.width) * scale), nearestPixel((r.y + r.height) * scale));
    return {first, QSize(end.x() - first.x(), end.y() - first.y())};
}

ZRMouseEvent View::translated(const QSinglePointEvent& event) const
{
    // Qt rounds a widget's own position to whole points; the scene position keeps the device pixel.
    const QPointF p = event.scenePosition();
    const int clickCount = event.type() == QEvent::MouseButtonDblClick ? 2 : 1;
    return {flippedUp({p.x(), p.y(), 0, 0}, windowHeight()).origin(), event.button(), clickCount};
}

ZRPoint View::ownPoint(QPointF widgetPoint) const
{
    return flippedUp({widgetPoint.x(), widgetPoint.y(), 0, 0}, exactHeight()).origin();
}

ZRRect View::frameInWindow() const
{
    const QPoint topLeft = mapTo(window(), QPoint());
    return flippedUp(
        {double(topLeft.x()), double(topLeft.y()), double(width()), double(height())}, windowHeight());
}

bool View::isUnder(ZRPoint location) const
{
    const ZRRect frame = frameInWindow();
    return location.x >= frame.x && location.x < frame.maxX() && location.y > frame.y &&
           location.y <= frame.maxY();
}

double View::windowHeight() const
{
    const auto* root = dynamic_cast<const View*>(window());
    return root ? root->exactHeight() : window()->height();
}
