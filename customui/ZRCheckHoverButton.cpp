#include "customui/ZRCheckHoverButton.h"

#include <QAccessible>

void ZRCheckHoverButton::setState(bool isOn)
{
    if (isOn == m_state)
        return;
    m_state = isOn;
    update();
    QAccessible::State changed;
    changed.checked = true;
    QAccessibleStateChangeEvent event(this, changed);
    QAccessible::updateAccessibility(&event);
}

void ZRCheckHoverButton::setCheckOnImage(const QString& name)
{
    m_checkOnImage = name;
    update();
}

QString ZRCheckHoverButton::shownImage() const
{
    return m_state && !m_checkOnImage.isEmpty() ? m_checkOnImage : ZRHoverButton::shownImage();
}
