#include "editor/ZRLineWidthControlItem.h"

#include "editor/ZRToolTips.h"

ZRLineWidthControlItem::ZRLineWidthControlItem(const QString& normalImage, const QString& hoverImage,
    const QString& downImage, std::function<void()> action, QWidget* parent)
    : ZRHoverButton(parent)
    , mNormalName(normalImage)
    , mHoverName(hoverImage)
    , mDownName(downImage)
{
    onAction = std::move(action);
    normal();
}

void ZRLineWidthControlItem::normal()
{
    bIsPressed = false;
    if (!mNormalName.isEmpty())
        setImage(mNormalName);
}

void ZRLineWidthControlItem::hover()
{
    bIsPressed = false;
    if (!mHoverName.isEmpty())
        setImage(mHoverName);
}

void ZRLineWidthControlItem::pressed()
{
    bIsPressed = true;
    if (!mDownName.isEmpty())
        setImage(mDownName);
}

void ZRLineWidthControlItem::mouseEntered()
{
    if (!_ToolTips.isEmpty()) {
        ZRToolTips::setToolTips(_ToolTips);
        ZRToolTips::showToolTips(*this);
    }
    if (m_isSelected || bIsMouseDown)
        pressed();
    else
        hover();
}

void ZRLineWidthControlItem::mouseExited()
{
    if (!_ToolTips.isEmpty())
        ZRToolTips::hiddenToolTips();
    if (m_isSelected)
        pressed();
    else
        normal();
}

void ZRLineWidthControlItem::mouseDown(const ZRMouseEvent& event)
{
    ZRHoverButton::mouseDown(event);
    bIsMouseDown = true;
    pressed();
}

void ZRLineWidthControlItem::mouseUp(const ZRMouseEvent& event)
{
    bIsMouseDown = false;
    ZRHoverButton::mouseUp(event);
}
