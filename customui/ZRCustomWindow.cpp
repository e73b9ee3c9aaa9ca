#include "customui/ZRCustomWindow.h"

#include "geometry/ZRServerRect.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QPainter>

using PopupRules::Placement;
using PopupRules::Side;

namespace {

constexpr int kMargin = 12;       // points around a panel, for its arrow and shadow
constexpr int kRibbonPadding = 8; // points between a panel and its content
constexpr int kListPadding = 4;
constexpr int kShadowDepth = 4; // points that the shadow reaches
const QColor kShadowColor(11, 42, 99, 12);
const QColor kBorderColor(150, 173, 205);

Qt::WindowFlags flagsFor(const QWidget* parent, unsigned styleMask)
{
    if (parent)
        return Qt::Widget;
    if (styleMask == ZRCustomWindow::kBorderless)
        return Qt::Window | Qt::FramelessWindowHint;
    return Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
           Qt::WindowCloseButtonHint;
}

QRect downwards(ZRRect r, double height)
{
    const ZRServerRect down = flippedDown(r, height);
    return {qRound(down.x), qRound(down.y), qRound(down.width), qRound(down.height)};
}

// The arrow of a panel whose outline is `panel`, y downwards; it reaches a point into the panel.
QPolygonF arrowOf(const QRectF& panel, Side side, double tip)
{
    const double half = PopupRules::kArrowHalfWidth;
    const double length = PopupRules::kArrowLength;
    const double x = panel.left() + tip;
    const double y = panel.bottom() - tip;
    switch (side) {
    case Side::Below:
        return {{{x - half, panel.top() + 1}, {x, panel.top() - length}, {x + half, panel.top() + 1}}};
    case Side::Above:
        return {
            {{x - half, panel.bottom() - 1}, {x, panel.bottom() + length}, {x + half, panel.bottom() - 1}}};
    case Side::Right:
        return {{{panel.left() + 1, y - half}, {panel.left() - length, y}, {panel.left() + 1, y + half}}};
    case Side::Left:
        return {{{panel.right() - 1, y - half}, {panel.right() + length, y}, {panel.right() - 1, y + half}}};
    }
    return {};
}

QPainterPath panelShape(const QRectF& panel)
{
    QPainterPath shape;
    shape.addRoundedRect(panel, PopupRules::kCornerRadius, PopupRules::kCornerRadius);
    return shape;
}

QPainterPath arrowShape(const QPolygonF& arrow)
{
    QPainterPath shape;
    shape.addPolygon(arrow);
    shape.closeSubpath();
    return shape;
}

}

ZRCustomWindow::ZRCustomWindow(ZRRect contentRect, unsigned styleMask, bool isNeedPopupArrow,
    const QColor& backgroundColor, QWidget* parent)
    : View(parent, flagsFor(parent, styleMask))
    , m_backgroundColor(backgroundColor)
    , m_isNeedPopupArrow(isNeedPopupArrow)
{
    setAttribute(Qt::WA_NoMousePropagation);
    if (parent)
        setCursor(Qt::ArrowCursor);
    hide(); // until it is asked for; a child would appear with its parent
    if (!contentRect.isEmpty())
        resize(qRound(contentRect.width), qRound(contentRect.height));
}

void ZRCustomWindow::setContentView(QWidget* view)
{
    if (m_contentView && m_contentView != view)
        m_contentView->deleteLater();
    m_contentView = view;
    view->setParent(this);
    view->move(0, 0);
    view->show();
    if (!isPopup())
        setFixedSize(view->size());
}

void ZRCustomWindow::popupWithContentView(QWidget* view, QWidget* relativeTo, int popupDirection)
{
    const QWidget* bar = relativeTo->parentWidget();
    const ZRRect anchor = frameInParent(*relativeTo);
    const ZRSize panel{view->width() + 2.0 * kRibbonPadding, view->height() + 2.0 * kRibbonPadding};
    const Placement placement = PopupRules::besideAnchor(
        anchor, bar == parentWidget() ? anchor : frameInParent(*bar), panel, spaceInParent(), popupDirection);
    setContentView(view);
    standAt(placement.panel, kRibbonPadding);
    if (m_isNeedPopupArrow)
        m_shape = m_shape.united(arrowShape(arrowOf(m_shape.boundingRect(), placement.side, placement.tip)));
    orderFront();
}

void ZRCustomWindow::popUpContentView(QWidget* view, QWidget* forPopUpButton)
{
    const ZRSize panel{view->width() + 2.0 * kListPadding, view->height() + 2.0 * kListPadding};
    const ZRRect place = PopupRules::underButton(frameInParent(*forPopUpButton), panel, spaceInParent());
    setContentView(view);
    standAt(place, kListPadding);
    orderFront();
}

void ZRCustomWindow::orderFront()
{
    show();
    raise();
    if (!isPopup())
        activateWindow();
}

void ZRCustomWindow::release(ZRCustomWindow* popup)
{
    popup->orderOut();
    popup->deleteLater();
}

ZRRect ZRCustomWindow::panelInWindow() const
{
    const ZRRect frame = frameInWindow();
    return {frame.x + kMargin, frame.y + kMargin, frame.width - 2 * kMargin, frame.height - 2 * kMargin};
}

void ZRCustomWindow::keyPressEvent(QKeyEvent* event)
{
    if (!isPopup() && event->key() == Qt::Key_Escape)
        close();
    else
        event->ignore();
}

void ZRCustomWindow::mousePressEvent(QMouseEvent* event)
{
    if (isPopup() && event->button() == Qt::RightButton)
        QCoreApplication::sendEvent(window(), event);
}

void ZRCustomWindow::closeEvent(QCloseEvent* event)
{
    event->accept();
    if (onClose)
        onClose();
}

void ZRCustomWindow::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (isPopup())
        drawPopup(painter);
    else
        painter.fillRect(rect(), m_backgroundColor);
}

// In the parent: origin bottom-left, y up.
ZRRect ZRCustomWindow::frameInParent(const QWidget& widget) const
{
    const QPointF corner = widget.mapTo(parentWidget(), QPoint());
    return flippedUp(
        {corner.x(), corner.y(), double(widget.width()), double(widget.height())}, parentWidget()->height());
}

ZRSize ZRCustomWindow::spaceInParent() const
{
    return {double(parentWidget()->width()), double(parentWidget()->height())};
}

// `panel` in the parent, y up.
void ZRCustomWindow::standAt(ZRRect panel, int padding)
{
    setGeometry(downwards(panel, parentWidget()->height()).adjusted(-kMargin, -kMargin, kMargin, kMargin));
    m_contentView->move(kMargin + padding, kMargin + padding);
    // The line of the border is one point wide and lies inside the panel.
    m_shape =
        panelShape(QRectF(rect()).adjusted(kMargin + 0.5, kMargin + 0.5, -kMargin - 0.5, -kMargin - 0.5));
}

void ZRCustomWindow::drawPopup(QPainter& painter) const
{
    painter.setRenderHint(QPainter::Antialiasing);
    for (int depth = 1; depth <= kShadowDepth; ++depth)
        painter.strokePath(m_shape.translated(0, 1), QPen(kShadowColor, 2 * depth));
    painter.setPen(kBorderColor);
    painter.setBrush(m_backgroundColor);
    painter.drawPath(m_shape);
}
