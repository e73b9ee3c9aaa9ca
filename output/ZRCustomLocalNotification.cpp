#include "output/ZRCustomLocalNotification.h"

#include "output/NoticePanel.h"

ZRCustomLocalNotification::ZRCustomLocalNotification(QWidget* contentView)
    : m_contentView(contentView)
{
    contentView->setParent(this);
    contentView->move(0, 0);
    contentView->show();
    resize(contentView->size());
}

void ZRCustomLocalNotification::setIsAutoHidden(bool isAutoHidden)
{
    m_isAutoHidden = isAutoHidden;
    if (isAutoHidden && onAutoHidden)
        onAutoHidden();
}

void ZRCustomLocalNotification::setBackgroundColor(const QColor& color)
{
    m_backgroundColor = color;
    update();
}

void ZRCustomLocalNotification::exitWithFadeOut() const
{
    if (onExitWithFadeOut)
        onExitWithFadeOut();
}

void ZRCustomLocalNotification::paintEvent(QPaintEvent*)
{
    paintNoticePanel(*this, m_backgroundColor);
}
