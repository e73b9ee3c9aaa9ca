#include "customui/PaintGate.h"

#include <QBackingStore>
#include <QCoreApplication>
#include <QExposeEvent>
#include <QTimer>
#include <QWindow>

#include <utility>

namespace {

QList<QWidget*> withChildren(QWidget& window)
{
    return window.findChildren<QWidget*>() << &window;
}

}

PaintGate::PaintGate(QWidget& window)
    : QObject(&window)
    , m_window(window)
{
    window.winId(); // makes the native window
    window.windowHandle()->installEventFilter(this);
    // A store of the right size is not painted whole before its first small update.
    window.backingStore()->resize(window.size());
}

void PaintGate::showUnpainted()
{
    m_isPassing = true;
    for (QWidget* widget : withChildren(m_window))
        widget->setAttribute(Qt::WA_UpdatesDisabled, true);
    m_window.show();
    for (QWidget* widget : withChildren(m_window)) {
        QCoreApplication::removePostedEvents(widget, QEvent::UpdateLater);
        // setUpdatesEnabled() would ask for a whole repaint.
        widget->setAttribute(Qt::WA_UpdatesDisabled, false);
    }
}

void PaintGate::paint(const QRegion& region)
{
    if (!m_window.testAttribute(Qt::WA_Mapped)) {
        m_waiting += region;
        return;
    }
    for (QWidget* child : m_window.findChildren<QWidget*>())
        child->update(region.translated(-child->mapTo(&m_window, QPoint())));
}

bool PaintGate::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::Expose && m_window.windowHandle()->isExposed()) {
        markMapped();
        return true;
    }
    if (event->type() == QEvent::Paint)
        return answerExposed(static_cast<QPaintEvent*>(event)->region());
    return false;
}

// What Qt does for an exposed window, less its painting; what there is to paint comes as a paint event.
void PaintGate::markMapped()
{
    m_window.setAttribute(Qt::WA_Mapped);
    paint(std::exchange(m_waiting, {}));
    if (m_isPassing)
        passOverUntilIdle();
}

void PaintGate::passOverUntilIdle()
{
    QTimer::singleShot(0, this, [this] { m_isPassing = false; });
}

bool PaintGate::answerExposed(const QRegion& region)
{
    if (!m_isPassing)
        paint(region);
    return true;
}
