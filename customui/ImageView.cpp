#include "customui/ImageView.h"

#include "customui/Images.h"

#include <QPainter>

ImageView::ImageView(const QString& imageName, QWidget* parent)
    : View(parent)
    , m_imageName(imageName)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void ImageView::paintEvent(QPaintEvent*)
{
    QPainter(this).drawPixmap(0, 0, imageNamed(m_imageName, size(), devicePixelRatioF()));
}
