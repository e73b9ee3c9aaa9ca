#include "editor/ZRColorControlItem.h"

#include <QPainter>

namespace {

const QColor kBorder = QColor::fromRgbF(0.76F, 0.82F, 0.87F);
const QColor kHoverBorder(42, 123, 244);
const QColor kDefaultColor = QColor::fromRgbF(1.0F, 0.0F, 0.0F);

}

ZRColorControlItem::ZRColorControlItem(QWidget* parent)
    : ZRHoverButton(parent)
{
    setSelectColor(kDefaultColor);
}

void ZRColorControlItem::setSelectColor(const QColor& color)
{
    mColor = color.isValid() ? color : kDefaultColor;
    setAccessibleName(mColor.name());
    update();
}

void ZRColorControlItem::setBorderLineWidth(qint32 points)
{
    mBorderLineWidth = points;
    update();
}

void ZRColorControlItem::setBorderRadius(double points)
{
    mRadius = points;
    update();
}

void ZRColorControlItem::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor border = isMouseInside() || hasFocus() ? kHoverBorder : kBorder;
    painter.setPen(QPen(border, mBorderLineWidth, Qt::SolidLine, Qt::RoundCap));
    painter.setBrush(mColor);
    const double half = mBorderLineWidth / 2.0;
    painter.drawRoundedRect(QRectF(rect()).adjusted(half, half, -half, -half), mRadius, mRadius);
}
