#include "capture/ZREventView.h"

#include "capture/ZRStaticScreenShotWindow.h"

ZREventView::ZREventView(ZRStaticScreenShotWindow& overlay)
    : View(&overlay)
    , m_overlay(overlay)
{
    setMouseTracking(true);
}

void ZREventView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        m_overlay.mouseDown(translated(*event));
    else if (event->button() == Qt::RightButton)
        m_overlay.rightMouseDown(translated(*event));
}

void ZREventView::mouseMoveEvent(QMouseEvent* event)
{
    if (event->buttons() & Qt::LeftButton)
        m_overlay.mouseDragged(translated(*event));
    else
        m_overlay.mouseMoved(translated(*event));
}

void ZREventView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        m_overlay.mouseUp(translated(*event));
}
