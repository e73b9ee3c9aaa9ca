#include "editor/ZRCustomPopUpButton.h"

#include "commonutils/NotificationCenter.h"
#include "editor/ZRCustomPopUpMenu.h"
#include "editor/ZRCustomPopUpMenuItem.h"

#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

namespace {

constexpr double kRadius = 4;      // points
constexpr double kInset = 2;       // points between the ring's edges
constexpr int kArrowArea = 20;     // points at the right
constexpr int kTextX = 10;         // points
constexpr int kTextMargins = 30;   // points left and right of the value together
constexpr double kChevronHalf = 4; // points, half the width and the height of a chevron
constexpr unsigned kLeftMouseDown = 1;
constexpr unsigned kMouseMoved = 5;
constexpr int kTint = 130; // percent of the background's lightness at the top

}

const QString ZRCustomPopUpButton::acceptMouseEventRegister = QStringLiteral("acceptMouseEventRegister");

ZRCustomPopUpButton::ZRCustomPopUpButton(QSize size, const QStringList& withItemArray, QWidget* parent)
    : View(parent)
    , mPopMenu(new ZRCustomPopUpMenu(size.width(), withItemArray, this))
{
    resize(size);
    mPopMenu->sendSelectedValue = [this](const QString& value) { sendSelectedValue(value); };
}

ZRCustomPopUpButton::~ZRCustomPopUpButton()
{
    if (mPopMenu)
        mPopMenu->release();
}

void ZRCustomPopUpButton::setDefaultValue(const QString& value)
{
    mSelectedValue = value.isNull() ? QStringLiteral("") : value;
    setAccessibleName(mSelectedValue);
    update();
}

void ZRCustomPopUpButton::sendSelectedValue(const QString& value)
{
    setDefaultValue(value);
    sendAction();
}

void ZRCustomPopUpButton::popUp()
{
    if (mPopMenu)
        mPopMenu->popUpWithRelativeView(*this);
}

void ZRCustomPopUpButton::pullsDown()
{
    if (mPopMenu)
        mPopMenu->pullsDown();
}

void ZRCustomPopUpButton::setBackgroundColor(const QColor& color)
{
    mBackColor = color;
    update();
}

void ZRCustomPopUpButton::setTitleColor(const QColor& color)
{
    m_titleColor = color;
    update();
}

void ZRCustomPopUpButton::setBorderColor(const QColor& color)
{
    m_borderColor = color;
    update();
}

void ZRCustomPopUpButton::setBorderLineWith(double points)
{
    m_borderLineWith = points;
    update();
}

void ZRCustomPopUpButton::registerAcceptMouseEvent()
{
    m_acceptsMouseEvents = true;
    if (std::exchange(m_isObserving, true))
        return;
    NotificationCenter::defaultCenter().addObserver(
        *this, acceptMouseEventRegister, [this](const QVariantMap& object) {
            if (m_acceptsMouseEvents)
                mouseEvent(object);
        });
}

void ZRCustomPopUpButton::unregisterAcceptMouseEvent()
{
    m_acceptsMouseEvents = false;
}

void ZRCustomPopUpButton::mouseEvent(const QVariantMap& object)
{
    const QPoint place(
        object[QStringLiteral("eventLocationX")].toInt(), object[QStringLiteral("eventLocationY")].toInt());
    if (!mPopMenu || !mPopMenu->screenFrame().contains(place))
        return;
    const ZRPoint point = mPopMenu->ownPoint(mPopMenu->mapFromGlobal(place));
    const auto type = object[QStringLiteral("eventType")].toUInt();
    if (type == kMouseMoved)
        mPopMenu->mouseMoved(point);
    else if (type == kLeftMouseDown)
        chooseForwarded(point);
}

void ZRCustomPopUpButton::chooseForwarded(ZRPoint point)
{
    mPopMenu->mouseDown(point);
    setDefaultValue(mSelectedValue + QStringLiteral(" pt"));
    unregisterAcceptMouseEvent();
    sendAction();
}

void ZRCustomPopUpButton::sendAction() const
{
    if (onAction)
        onAction();
}

// Taken, so that the release comes here.
void ZRCustomPopUpButton::mousePressEvent(QMouseEvent* event)
{
    event->setAccepted(event->button() == Qt::LeftButton);
}

void ZRCustomPopUpButton::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        popUp();
    else
        event->ignore();
}

void ZRCustomPopUpButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    drawBackground(painter);
    drawArrow(painter);
    drawValue(painter);
}

void ZRCustomPopUpButton::drawBackground(QPainter& painter) const
{
    const QRectF outer(rect());
    const QRectF inner = outer.adjusted(kInset, kInset, -kInset, -kInset);
    QPainterPath filled;
    filled.addRoundedRect(inner, kRadius, kRadius);
    QLinearGradient gradient(inner.topLeft(), inner.bottomLeft());
    gradient.setColorAt(0, mBackColor.lighter(kTint));
    gradient.setColorAt(1, mBackColor);
    painter.fillPath(filled, gradient);
    QPainterPath ring = filled;
    ring.addRoundedRect(outer, kRadius, kRadius);
    painter.fillPath(ring, QColor::fromRgbF(0, 0, 0, 0.1F)); // the path fills by the even-odd rule
    if (m_borderLineWith > 0)
        painter.strokePath(filled, QPen(m_borderColor, m_borderLineWith));
}

void ZRCustomPopUpButton::drawArrow(QPainter& painter) const
{
    painter.setPen(QPen(Qt::black, 2, Qt::SolidLine, Qt::RoundCap));
    const QPointF middle(width() - kArrowArea / 2.0, height() / 2.0);
    for (const int direction : {-1, 1}) {
        const double base = middle.y() + direction * kInset;
        const QPointF tip(middle.x(), base + direction * kChevronHalf);
        painter.drawLine(QPointF(middle.x() - kChevronHalf, base), tip);
        painter.drawLine(tip, QPointF(middle.x() + kChevronHalf, base));
    }
}

void ZRCustomPopUpButton::drawValue(QPainter& painter) const
{
    painter.setFont(ZRCustomPopUpMenuItem::sharedFont());
    painter.setPen(m_titleColor);
    const QRect place(kTextX, 0, width() - kTextMargins, height());
    painter.drawText(place, Qt::AlignVCenter | Qt::TextSingleLine,
        painter.fontMetrics().elidedText(mSelectedValue, Qt::ElideRight, place.width()));
}
