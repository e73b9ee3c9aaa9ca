#include "customui/ImageIconEngine.h"

#include "customui/Images.h"

#include <QPainter>

#include <utility>

namespace {

QLatin1String suffixOf(QIcon::Mode mode)
{
    switch (mode) {
    case QIcon::Disabled:
        return QLatin1String("-disabled");
    case QIcon::Active:
    case QIcon::Selected:
        return QLatin1String("-hover");
    case QIcon::Normal:
        break;
    }
    return QLatin1String("-normal");
}

}

ImageIconEngine::ImageIconEngine(QString name)
    : m_name(std::move(name))
{
}

void ImageIconEngine::paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State)
{
    const qreal scale = painter->device()->devicePixelRatioF();
    painter->drawPixmap(rect, imageNamed(m_name + suffixOf(mode), rect.size(), scale));
}

QPixmap ImageIconEngine::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state)
{
    return scaledPixmap(size, mode, state, 1);
}

// `size` is in device pixels.
QPixmap ImageIconEngine::scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State, qreal scale)
{
    return imageNamed(m_name + suffixOf(mode), QSizeF(size) / scale, scale);
}

QIconEngine* ImageIconEngine::clone() const
{
    return new ImageIconEngine(m_name);
}
