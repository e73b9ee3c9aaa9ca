#include "customui/ZRColorView.h"

#include <QPainter>

ZRColorView::ZRColorView(QWidget* parent)
    : View(parent)
{
}

void ZRColorView::setColor(const QColor& color)
{
    m_color = color;
    update();
}

void ZRColorView::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(rect(), m_color);
}
