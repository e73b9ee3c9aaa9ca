#include "capture/FrozenImageView.h"

#include "customui/DevicePixels.h"

#include <QPaintEvent>

FrozenImageView::FrozenImageView(QWidget* parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void FrozenImageView::paintEvent(QPaintEvent* event)
{
    if (!m_frame)
        return;
    QPainter painter(this);
    DevicePixels::begin(painter, *this);
    for (const QRect& points : event->region()) {
        const QRect pixels = DevicePixels::covering(points, devicePixelRatioF());
        painter.setClipRect(pixels); // a clip of several rectangles is many times as slow
        painter.drawImage(pixels.topLeft(), m_frame->image(), pixels);
    }
}
