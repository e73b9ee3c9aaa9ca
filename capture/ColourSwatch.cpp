#include "capture/ColourSwatch.h"

#include "capture/ColourRules.h"

#include <QPainter>

namespace {

constexpr double kRadius = 4;        // points
constexpr QColor kEdge(0, 0, 0, 56); // seen on every colour, the panel's own included

}

ColourSwatch::ColourSwatch(QSize size, Qt::FocusPolicy focus, QWidget* parent)
    : QAbstractButton(parent)
    , m_size(size)
{
    setFocusPolicy(focus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    if (focus != Qt::NoFocus)
        setCursor(Qt::PointingHandCursor);
}

void ColourSwatch::setColour(QRgb colour)
{
    m_colour = colour;
    setAccessibleName(ColourRules::htmlText(colour));
    update();
}

void ColourSwatch::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(QColor::fromRgb(m_colour));
    painter.setPen(edge());
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
}

void ColourSwatch::enterEvent(QEnterEvent*)
{
    update();
}

void ColourSwatch::leaveEvent(QEvent*)
{
    update();
}

QColor ColourSwatch::edge() const
{
    const bool isAsked = focusPolicy() != Qt::NoFocus && (hasFocus() || underMouse());
    return isAsked ? palette().color(QPalette::Highlight) : kEdge;
}
