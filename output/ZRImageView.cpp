#include "output/ZRImageView.h"

#include "customui/DevicePixels.h"

ZRImageView::ZRImageView(QWidget* parent)
    : QWidget(parent)
{
}

void ZRImageView::setImage(const QImage& image)
{
    m_image = image;
    update();
}

void ZRImageView::setSourceRect(const QRect& pixels)
{
    m_source = pixels;
    update();
}

void ZRImageView::paintEvent(QPaintEvent*)
{
    if (m_image.isNull())
        return;
    QPainter painter(this);
    DevicePixels::begin(painter, *this);
    const QRect source = m_source.isEmpty() ? m_image.rect() : m_source;
    const QRect target({0, 0}, size() * devicePixelRatioF());
    painter.setRenderHint(QPainter::SmoothPixmapTransform, target.size() != source.size());
    painter.drawImage(target, m_image, source);
}
