#include "editor/OutsideClickWatch.h"

#include <QCoreApplication>
#include <QMouseEvent>

OutsideClickWatch::OutsideClickWatch(QWidget& popup, std::function<void()> onOutside)
    : QObject(&popup)
    , m_popup(popup)
    , m_onOutside(std::move(onOutside))
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool OutsideClickWatch::eventFilter(QObject* watched, QEvent* event)
{
    const bool isClick =
        event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonRelease;
    if (!isClick || !watched->isWidgetType() || !m_popup.isVisible())
        return false;
    const auto* mouse = static_cast<const QMouseEvent*>(event);
    const QPoint place = m_popup.mapFromGlobal(mouse->globalPosition().toPoint());
    if (mouse->button() == Qt::LeftButton && !m_popup.rect().contains(place))
        m_onOutside();
    return false;
}
