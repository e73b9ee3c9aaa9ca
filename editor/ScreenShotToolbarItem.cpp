#include "editor/ScreenShotToolbarItem.h"

#include "editor/ZRToolTips.h"

namespace {

void setWhileEmpty(QString& name, const QString& to)
{
    if (name.isEmpty())
        name = to;
}

}

void ScreenShotToolbarItem::updateNormalImage(
    const QString& normalImage, const QString& hoverImage, const QString& downImage)
{
    setWhileEmpty(mNormalImageName, normalImage);
    setWhileEmpty(mHoverImageName, hoverImage);
    setWhileEmpty(mDownImageName, downImage);
    setImage(normalImage);
    isMouseDown = false;
    m_isSelected = false;
    mControlID = QString();
}

void ScreenShotToolbarItem::mouseEntered()
{
    if (!_Tooltips.isEmpty()) {
        ZRToolTips::setToolTips(_Tooltips);
        ZRToolTips::showToolTips(*this);
    }
    if (m_isSelected || isMouseDown)
        pressed();
    else
        hover();
}

void ScreenShotToolbarItem::mouseExited()
{
    ZRToolTips::hiddenToolTips();
    if (m_isSelected)
        pressed();
    else
        normal();
}

void ScreenShotToolbarItem::mouseDown(const ZRMouseEvent& event)
{
    ZRHoverButton::mouseDown(event);
    isMouseDown = true;
    pressed();
}

void ScreenShotToolbarItem::mouseUp(const ZRMouseEvent& event)
{
    isMouseDown = false;
    if (isUnder(event.location) && !mControlID.isNull())
        pressed();
    else
        normal();
    ZRHoverButton::mouseUp(event);
}
