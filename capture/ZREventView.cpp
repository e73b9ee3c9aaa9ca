#include "capture/ZREventView.h"

#include "capture/ScreenCoverWindow.h"

#include <QWheelEvent>

ZREventView::ZREventView(ScreenCoverWindow& window)
    : View(&window)
    , m_window(window)
{
    setMouseTracking(true);
}

void ZREventView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        m_window.mouseDown(translated(*event));
    else if (event->button() == Qt::RightButton)
        m_window.rightMouseDown(translated(*event));
}

void ZREventView::mouseMoveEvent(QMouseEvent* event)
{
    if (event->buttons() & Qt::LeftButton)
        m_window.mouseDragged(translated(*event));
    else
        m_window.mouseMoved(translated(*event));
}

void ZREventView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        m_window.mouseUp(translated(*event));
}

void ZREventView::wheelEvent(QWheelEvent* event)
{
    m_window.scrollWheel(translated(*event), event->angleDelta().y());
}
