#include "editor/ZRScreenShotToolbar.h"

#include "customui/PopupRules.h"
#include "editor/ZRScreenShotToolbarItem.h"
#include "platform/CommandKey.h"
#include "settings/AppSettings.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QPainter>

namespace {

constexpr int kBorderWidth = 1;     // points
constexpr int kPadding = 4;         // points around and between the items
constexpr int kSeparatorMargin = 6; // points above and below, or left and right, of a separator
const QColor kPanel(240, 248, 255);
const QColor kBorder(150, 173, 205);

bool isSeparator(const QWidget* view)
{
    return !qobject_cast<const ZRScreenShotToolbarItem*>(view);
}

// A format's "%@" replaced by the text, and the command key by what the keyboard calls it.
QString tooltipText(QStringView format, const QString& text)
{
    QString tooltip = format.toString();
    tooltip.replace(QStringLiteral("Command"), commandKeyName());
    return tooltip.replace(QStringLiteral("%@"), text);
}

}

ZRScreenShotToolbar::ZRScreenShotToolbar(QWidget* overlay)
    : View(overlay)
{
    setAttribute(Qt::WA_NoMousePropagation);
    hide();
    setCursor(Qt::ArrowCursor);
}

void ZRScreenShotToolbar::initialize()
{
    lastSelectedItem = nullptr;
    lasthoverItem = nullptr;
}

void ZRScreenShotToolbar::prepareImages()
{
    initialize();
    for (const auto* item : findChildren<ZRScreenShotToolbarItem*>())
        item->prepareImages();
}

void ZRScreenShotToolbar::setScreenShotViewController(ScreenshotActions* controller)
{
    mScreenShotViewController = controller;
}

void ZRScreenShotToolbar::showToolbar(bool show, ZRRect)
{
    setVisible(show);
}

void ZRScreenShotToolbar::close()
{
    hide();
    if (lastSelectedItem)
        lastSelectedItem->setState(false);
    lastSelectedItem = nullptr;
    lasthoverItem = nullptr;
}

bool ZRScreenShotToolbar::isUseGraffitInNeed() const
{
    return lastSelectedItem && lastSelectedItem->state();
}

void ZRScreenShotToolbar::addNewGraffitView()
{
    if (isUseGraffitInNeed() && !lastSelectedItem->controlID().isNull())
        lastSelectedItem->sendAction();
}

QString ZRScreenShotToolbar::controlToolbarID() const
{
    return lastSelectedItem ? lastSelectedItem->controlID() : QString();
}

void ZRScreenShotToolbar::mouseUp(const ZRMouseEvent& event)
{
    if (!isUnder(event.location))
        return;
    for (ZRScreenShotToolbarItem* item : items)
        if (item->isUnder(event.location))
            return item->mouseUp(event);
}

void ZRScreenShotToolbar::setFrameOrigin(ZRPoint origin)
{
    const ZRRect frame{origin.x, origin.y, double(width()), double(height())};
    static_cast<const View*>(parentWidget())->place(*this, frame);
}

ZRSize ZRScreenShotToolbar::overlaySize() const
{
    const auto* overlay = static_cast<const View*>(parentWidget());
    return {double(overlay->width()), overlay->exactHeight()};
}

void ZRScreenShotToolbar::setUp(const ItemRow& row)
{
    row.item->updateImage(row.image.toString());
    row.item->setControlID(row.controlID.toString());
    row.item->onAction = [this, item = row.item, action = row.action] {
        if (mScreenShotViewController)
            (mScreenShotViewController->*action)(*item);
    };
    setText(row);
}

void ZRScreenShotToolbar::setText(const ItemRow& row)
{
    const QString text = AppSettings::getXMLValueForKeywords(row.textKey);
    row.item->setAccessibleName(text);
    row.item->setToolTip(row.tooltip.isNull() ? text : tooltipText(row.tooltip, text));
}

void ZRScreenShotToolbar::layOut(const std::vector<QWidget*>& views, Qt::Orientation orientation)
{
    const bool isRow = orientation == Qt::Horizontal;
    constexpr int side = ZRScreenShotToolbarItem::kSide;
    int along = kPadding;
    for (QWidget* view : views) {
        if (view->isHidden())
            continue;
        const QSize size = isSeparator(view) ? QSize(1, side - 2 * kSeparatorMargin) : QSize(side, side);
        const int across = kPadding + (isSeparator(view) ? kSeparatorMargin : 0);
        view->setGeometry(isRow ? QRect({along, across}, size) : QRect({across, along}, size.transposed()));
        along += size.width() + kPadding;
    }
    const int thickness = side + 2 * kPadding;
    resize(isRow ? QSize(along, thickness) : QSize(thickness, along));
}

void ZRScreenShotToolbar::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::RightButton)
        QCoreApplication::sendEvent(window(), event);
}

void ZRScreenShotToolbar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    _drawbackground(painter);
}

// The line of the border lies inside the panel. Two fills take less time than one with a pen.
void ZRScreenShotToolbar::_drawbackground(QPainter& painter) const
{
    constexpr double half = kBorderWidth / 2.0;
    constexpr double outer = PopupRules::kCornerRadius + half, inner = PopupRules::kCornerRadius - half;
    const QRect face = rect().adjusted(kBorderWidth, kBorderWidth, -kBorderWidth, -kBorderWidth);
    painter.setPen(Qt::NoPen);
    painter.setBrush(kBorder);
    painter.drawRoundedRect(rect(), outer, outer);
    painter.setBrush(kPanel);
    painter.drawRoundedRect(face, inner, inner);
}
