#include "customui/ZRHoverButton.h"

#include "customui/AccessibleHoverButton.h"
#include "customui/Images.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QPainter>
#include <QPen>

namespace {

const QColor kFocusColor(42, 123, 244);
constexpr double kFocusLineWidth = 1.5;
constexpr double kDisabledOpacity = 0.4;
constexpr int kTitleMargin = 12; // points left and right of a title
constexpr int kTitleHeight = 32; // points

// A rectangle whose outline of `lineWidth` lies inside `bounds`.
QRectF outlineInside(const QRect& bounds, double lineWidth)
{
    const double half = lineWidth / 2;
    return QRectF(bounds).adjusted(half, half, -half, -half);
}

}

ZRHoverButton::ZRHoverButton(QWidget* parent)
    : View(parent)
{
    AccessibleHoverButton::install();
    setFocusPolicy(Qt::TabFocus);
}

void ZRHoverButton::sendAction()
{
    if (isEnabled() && onAction)
        onAction();
}

// Repaints for a change only.
template <typename T>
void ZRHoverButton::change(T& field, const T& value)
{
    if (field == value)
        return;
    field = value;
    update();
}

void ZRHoverButton::setImage(const QString& name)
{
    change(m_image, name);
    updateGeometry();
}

void ZRHoverButton::setHoverImage(const QString& name)
{
    change(m_hoverImage, name);
}

void ZRHoverButton::setDownImage(const QString& name)
{
    change(m_downImage, name);
}

void ZRHoverButton::prepareImages() const
{
    for (const QString& name : {m_image, m_hoverImage, m_downImage})
        imageNamed(name, shownImageSize(), devicePixelRatioF());
}

void ZRHoverButton::setImageSize(QSizeF size)
{
    change(m_imageSize, size);
    updateGeometry();
}

void ZRHoverButton::setBackgroundColor(const QColor& color)
{
    change(m_background, color);
}

void ZRHoverButton::setHoverBackgroundColor(const QColor& color)
{
    change(m_hoverBackground, color);
}

void ZRHoverButton::setDownBackgroundColor(const QColor& color)
{
    change(m_downBackground, color);
}

void ZRHoverButton::setBorderColor(const QColor& color)
{
    change(m_borderColor, color);
}

void ZRHoverButton::setBorderLineWith(double points)
{
    change(m_borderLineWidth, points);
}

void ZRHoverButton::setCornerRadius(double points)
{
    change(m_cornerRadius, points);
}

void ZRHoverButton::setTitle(const QString& title)
{
    change(m_title, title);
    updateGeometry();
}

void ZRHoverButton::setTitleColor(const QColor& color)
{
    change(m_titleColor, color);
}

void ZRHoverButton::setMouseInside(bool isInside)
{
    change(m_isMouseInside, isInside);
}

void ZRHoverButton::mouseEntered()
{
    setMouseInside(true);
}

void ZRHoverButton::mouseExited()
{
    setMouseInside(false);
}

void ZRHoverButton::mouseDown(const ZRMouseEvent&)
{
    setMouseDown(true);
}

void ZRHoverButton::mouseDragged(const ZRMouseEvent& event)
{
    setMouseInside(isUnder(event.location));
}

void ZRHoverButton::mouseUp(const ZRMouseEvent& event)
{
    setMouseDown(false);
    if (isUnder(event.location))
        click();
}

QSize ZRHoverButton::sizeHint() const
{
    if (!m_title.isEmpty())
        return {QFontMetrics(font()).horizontalAdvance(m_title) + 2 * kTitleMargin, kTitleHeight};
    return (m_imageSize.isEmpty() ? imageSize(m_image) : m_imageSize).toSize();
}

QString ZRHoverButton::shownImage() const
{
    if (isPressedDown() && !m_downImage.isEmpty())
        return m_downImage;
    if (m_isMouseInside && !m_hoverImage.isEmpty())
        return m_hoverImage;
    return m_image;
}

QColor ZRHoverButton::shownBackground() const
{
    if (isPressedDown())
        return m_downBackground;
    return m_isMouseInside ? m_hoverBackground : m_background;
}

void ZRHoverButton::enterEvent(QEnterEvent*)
{
    mouseEntered();
}

void ZRHoverButton::leaveEvent(QEvent*)
{
    mouseExited();
}

void ZRHoverButton::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        mouseDown(translated(*event));
    else
        event->ignore();
}

void ZRHoverButton::mouseMoveEvent(QMouseEvent* event)
{
    if (m_isMouseDown)
        mouseDragged(translated(*event));
    else
        event->ignore();
}

void ZRHoverButton::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && m_isMouseDown)
        mouseUp(translated(*event));
    else
        event->ignore();
}

void ZRHoverButton::keyPressEvent(QKeyEvent* event)
{
    const bool isPress =
        event->key() == Qt::Key_Space || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isPress && !event->isAutoRepeat())
        click();
    else
        event->ignore();
}

void ZRHoverButton::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::EnabledChange)
        update();
    View::changeEvent(event);
}

void ZRHoverButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (!isEnabled())
        painter.setOpacity(kDisabledOpacity);
    drawBackground(painter);
    drawImage(painter);
    if (!m_title.isEmpty()) {
        painter.setPen(m_titleColor);
        painter.drawText(titleRect(), Qt::AlignCenter, m_title);
    }
    if (hasFocus())
        drawFocus(painter);
}

void ZRHoverButton::drawBackground(QPainter& painter) const
{
    if (shownBackground().alpha() == 0 && m_borderLineWidth <= 0)
        return; // what cannot be seen takes as long to draw
    painter.setPen(m_borderLineWidth > 0 ? QPen(m_borderColor, m_borderLineWidth) : QPen(Qt::NoPen));
    painter.setBrush(shownBackground());
    painter.drawRoundedRect(outlineInside(panelRect(), m_borderLineWidth), m_cornerRadius, m_cornerRadius);
}

void ZRHoverButton::drawImage(QPainter& painter) const
{
    const QSizeF size = shownImageSize();
    QPixmap image = imageNamed(shownImage(), size, devicePixelRatioF());
    if (image.isNull())
        image = imageNamed(m_image, size, devicePixelRatioF());
    const QPoint corner(qRound((width() - size.width()) / 2), qRound((height() - size.height()) / 2));
    painter.drawPixmap(corner, image);
}

// Points.
QSizeF ZRHoverButton::shownImageSize() const
{
    const QSizeF wanted = m_imageSize.isEmpty() ? imageSize(m_image) : m_imageSize;
    return wanted.boundedTo(QSizeF(size()));
}

void ZRHoverButton::drawFocus(QPainter& painter) const
{
    painter.setPen(QPen(kFocusColor, kFocusLineWidth));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(outlineInside(panelRect(), kFocusLineWidth), m_cornerRadius, m_cornerRadius);
}
