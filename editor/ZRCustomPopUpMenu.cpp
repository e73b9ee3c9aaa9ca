#include "editor/ZRCustomPopUpMenu.h"

#include "customui/ZRCustomWindow.h"
#include "editor/OutsideClickWatch.h"
#include "editor/ZRCustomPopUpMenuItem.h"

#include <QFontMetricsF>
#include <QMouseEvent>
#include <QtMath>

#include <ranges>

namespace {

constexpr double kTextMargin = 10; // points that a text leaves at least, else the menu is widened

}

ZRCustomPopUpMenu::ZRCustomPopUpMenu(int width, const QStringList& withItemArray, QWidget* parent)
    : View(parent)
{
    hide();
    resize(width, 0);
    setMouseTracking(true);
    _setupItems(withItemArray);
}

// Kept: a menu is widened to the bare width of the text.
void ZRCustomPopUpMenu::_setupItems(const QStringList& texts)
{
    const QFontMetricsF metrics(ZRCustomPopUpMenuItem::sharedFont());
    double widest = width();
    for (const QString& text : texts | std::views::reverse) {
        m_items.push_back(new ZRCustomPopUpMenuItem(text, this));
        const double textWidth = metrics.horizontalAdvance(text);
        if (textWidth + kTextMargin >= widest)
            widest = textWidth;
    }
    constexpr int rowHeight = ZRCustomPopUpMenuItem::kHeight;
    resize(qCeil(widest), rowHeight * int(m_items.size()));
    double y = 0;
    for (ZRCustomPopUpMenuItem* item : m_items) {
        place(*item, {0, y, double(width()), double(rowHeight)});
        y += rowHeight;
    }
}

void ZRCustomPopUpMenu::popUpWithRelativeView(QWidget& view)
{
    if (!mPopWindow) {
        mPopWindow = new ZRCustomWindow({}, ZRCustomWindow::kBorderless, false, Qt::white, view.window());
        if (m_mouseDown)
            new OutsideClickWatch(*mPopWindow, [this] { pullsDown(); });
    }
    mPopWindow->popUpContentView(this, &view);
}

void ZRCustomPopUpMenu::pullsDown()
{
    unHoverAll();
    if (mPopWindow)
        mPopWindow->orderOut();
}

bool ZRCustomPopUpMenu::isOpen() const
{
    return mPopWindow && mPopWindow->isVisible();
}

QRect ZRCustomPopUpMenu::screenFrame() const
{
    return isOpen() ? QRect(mapToGlobal(QPoint()), size()) : QRect();
}

void ZRCustomPopUpMenu::mouseMoved(ZRPoint point)
{
    ZRCustomPopUpMenuItem* under = itemAt(point);
    for (ZRCustomPopUpMenuItem* item : m_items)
        if (item != under)
            item->unHover();
    if (under)
        under->hover();
}

void ZRCustomPopUpMenu::mouseDown(ZRPoint point)
{
    const ZRCustomPopUpMenuItem* item = itemAt(point);
    pullsDown();
    if (item && sendSelectedValue)
        sendSelectedValue(item->title());
}

void ZRCustomPopUpMenu::release()
{
    if (mPopWindow)
        ZRCustomWindow::release(mPopWindow);
    else
        deleteLater();
}

// A point is the top left corner of its pixel, so the upper edge of a row belongs to it.
ZRCustomPopUpMenuItem* ZRCustomPopUpMenu::itemAt(ZRPoint point) const
{
    const int row = qCeil(point.y / ZRCustomPopUpMenuItem::kHeight) - 1;
    const bool isInside = point.x >= 0 && point.x < width() && row >= 0 && row < int(m_items.size());
    return isInside ? m_items[size_t(row)] : nullptr;
}

void ZRCustomPopUpMenu::unHoverAll()
{
    for (ZRCustomPopUpMenuItem* item : m_items)
        item->unHover();
}

void ZRCustomPopUpMenu::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        mouseDown(ownPoint(event->position()));
    else
        event->ignore();
}

void ZRCustomPopUpMenu::mouseMoveEvent(QMouseEvent* event)
{
    mouseMoved(ownPoint(event->position()));
}

void ZRCustomPopUpMenu::leaveEvent(QEvent*)
{
    unHoverAll();
}
