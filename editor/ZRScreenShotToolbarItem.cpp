#include "editor/ZRScreenShotToolbarItem.h"

#include "editor/ZRToolTips.h"

#include <QPainter>

namespace {

const QColor kPanel(240, 248, 255);
const QColor kHighlight(206, 224, 255);

}

ZRScreenShotToolbarItem::ZRScreenShotToolbarItem(QWidget* parent)
    : ZRCheckHoverButton(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
}

ZRScreenShotToolbarItem* ZRScreenShotToolbarItem::loadToolbarItem(QWidget* parent)
{
    auto* item = new ZRScreenShotToolbarItem(parent);
    item->resize(kSide, kSide);
    return item;
}

void ZRScreenShotToolbarItem::updateImage(const QString& base)
{
    updateNormalImage(
        base + QStringLiteral("-normal"), base + QStringLiteral("-hover"), base + QStringLiteral("-down"));
}

void ZRScreenShotToolbarItem::updateNormalImage(
    const QString& normal, const QString& hoverImage, const QString& downImage)
{
    setImage(normal);
    setHoverImage(hoverImage);
    setDownImage(downImage);
    setCheckOnImage(downImage);
    setState(false);
    setHoverBackgroundColor(kHighlight);
    setDownBackgroundColor(kHighlight);
}

void ZRScreenShotToolbarItem::setState(bool isOn)
{
    ZRCheckHoverButton::setState(isOn);
    setBackgroundColor(isOn ? kHighlight : QColor(Qt::transparent));
}

void ZRScreenShotToolbarItem::setToolTip(const QString& text)
{
    m_tooltipstring = text.isEmpty() ? QStringLiteral("") : text;
}

ZRHoverButton2& ZRScreenShotToolbarItem::keyBtn()
{
    if (!m_keyBtn) {
        m_keyBtn = new ZRHoverButton2(this);
        m_keyBtn->setGeometry(0, 0, 1, 1);
        m_keyBtn->hide();
    }
    return *m_keyBtn;
}

void ZRScreenShotToolbarItem::setKeyEquivalent(const QString& key, quint32 withKeyEquivalentModifierFlags)
{
    keyBtn().setKeyEquivalent(key);
    keyBtn().setKeyEquivalentModifierMask(withKeyEquivalentModifierFlags);
    keyBtn().onAction = [this] { selectKey(); };
}

void ZRScreenShotToolbarItem::mouseEntered()
{
    if (!m_tooltipstring.isEmpty()) {
        ZRToolTips::setToolTips(m_tooltipstring);
        ZRToolTips::showToolTips(*this);
    }
    ZRCheckHoverButton::mouseEntered();
}

void ZRScreenShotToolbarItem::mouseExited()
{
    ZRToolTips::hiddenToolTips();
    ZRCheckHoverButton::mouseExited();
}

void ZRScreenShotToolbarItem::mouseDown(const ZRMouseEvent& event)
{
    ZRToolTips::hiddenToolTips();
    ZRCheckHoverButton::mouseDown(event);
}

void ZRScreenShotToolbarItem::mouseUp(const ZRMouseEvent& event)
{
    if (m_colorItem)
        setMouseInside(true);
    ZRCheckHoverButton::mouseUp(event);
}

void ZRScreenShotToolbarItem::paintEvent(QPaintEvent* event)
{
    QPainter(this).fillRect(rect(), kPanel);
    ZRCheckHoverButton::paintEvent(event);
}
