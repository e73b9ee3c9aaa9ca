#include "capture/ZREventView.h"

#include "capture/ScreenCoverWindow.h"
#include "editor/ZREditorView.h"

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
        leftMouseDown(translated(*event));
    else if (event->button() == Qt::RightButton)
        m_window.rightMouseDown(translated(*event));
}

void ZREventView::mouseMoveEvent(QMouseEvent* event)
{
    if (event->buttons() & Qt::LeftButton)
        leftMouseDragged(translated(*event));
    else
        moved(translated(*event));
}

void ZREventView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    if (m_editor)
        m_editor->mouseUp(translated(*event));
    else
        m_window.mouseUp(translated(*event));
    m_editor = nullptr;
}

void ZREventView::wheelEvent(QWheelEvent* event)
{
    m_window.scrollWheel(translated(*event), event->angleDelta().y());
}

ZREditorView* ZREventView::takerOf(const ZRMouseEvent& event) const
{
    return editorAt ? editorAt(event.location) : nullptr;
}

void ZREventView::leftMouseDown(const ZRMouseEvent& event)
{
    m_editor = takerOf(event);
    if (m_editor)
        m_editor->mouseDown(event);
    else
        m_window.mouseDown(event);
}

void ZREventView::leftMouseDragged(const ZRMouseEvent& event)
{
    if (m_editor)
        m_editor->mouseDragged(event);
    else
        m_window.mouseDragged(event);
}

void ZREventView::moved(const ZRMouseEvent& event)
{
    if (ZREditorView* editor = takerOf(event))
        editor->mouseMoved(event);
    else
        m_window.mouseMoved(event);
}
