#include "editor/ZREditorView.h"

#include "customui/DevicePixels.h"
#include "editor/ZRBasicCustomView.h"
#include "editor/ZREditorRequestDelegate.h"

#include <QPaintEvent>

#include <utility>

ZREditorView::ZREditorView(QWidget* parent)
    : View(parent)
{
}

void ZREditorView::setFrozenDisplay(std::shared_ptr<const Frame> display)
{
    m_display = std::move(display);
    startCanvas();
}

void ZREditorView::setFrame(ZRRect frame)
{
    if (frame == m_frame)
        return;
    updatePixels(shownPixels());
    m_frame = frame;
    startCanvas();
    redisplay();
}

void ZREditorView::setFrameAround(ZRRect frame)
{
    updatePixels(shownPixels());
    m_frame = frame;
    m_canvas.setSpace(toPixels());
    redisplay();
    updatePixels(shownPixels());
}

QImage ZREditorView::composed(const QRect& pixels)
{
    paintMovedEntity();
    return m_canvas.composed(pixels);
}

void ZREditorView::invalidate(const ZRBasicCustomView& entity)
{
    m_canvas.invalidate(entity.record());
}

void ZREditorView::redisplay()
{
    if (!requestDelegate)
        return;
    const std::vector<EntityRecord> records = requestDelegate->EditorRequest_getAllGraffitRect();
    const bool hasTop =
        m_current && !records.empty() && records.back().dragPoints == &m_current->dragPoints();
    const EntityRecord* top = hasTop ? &records.back() : nullptr;
    if (std::exchange(m_top, hasTop ? m_current : nullptr) != m_top) {
        m_canvas.invalidateTop();
        if (top)
            m_canvas.invalidate(*top);
    }
    const std::span lower(records.data(), records.size() - (hasTop ? 1 : 0));
    updatePixels(m_canvas.repaint(lower, top));
    std::vector<FocusMarks> marks;
    for (const EntityRecord& record : lower)
        if (record.focusOn)
            marks.push_back(FocusMarks::of(record));
    showMarks(std::move(marks), top ? FocusMarks::of(*top) : FocusMarks());
}

void ZREditorView::clearSelectedEntity()
{
    if (std::exchange(m_current, nullptr))
        redisplay();
}

// A release that never came is taken as come.
void ZREditorView::mouseDown(const ZRMouseEvent& event)
{
    finishGesture();
    m_current = nullptr;
    m_lastPoint = event.location;
    if (event.clickCount > 1)
        return redisplay();
    const ZRPoint point = convertPoint(event.location);
    const auto press = requestDelegate->EditorRequest_GetCurrentStatus(point);
    if (press.status == PressStatus::Nothing)
        return redisplay();
    m_current = press.graffitEntity;
    if (m_current && m_current->viewId() != QLatin1String("text"))
        m_current->mouseDown(point);
    requestDelegate->EditorRequest_DidUDownEntityWithEntity(m_current);
    redisplay();
}

void ZREditorView::mouseDragged(const ZRMouseEvent& event)
{
    _isDragging = true;
    m_lastPoint = event.location;
    const ZRPoint point = convertPoint(event.location);
    if (requestDelegate->EditorRequest_UpdateCurrentEntityDragStatus(point) == DragStatus::Ignored)
        return clearSelectedEntity();
    if (!m_current)
        return;
    m_current->mouseDragged(point);
    redisplayEntity();
}

// A movement right before a release may have been left out.
void ZREditorView::mouseUp(const ZRMouseEvent& event)
{
    if (event.location != m_lastPoint)
        mouseDragged(event);
    finishGesture();
    if (m_current && !m_current->isFocusOn())
        clearSelectedEntity();
    requestDelegate->EditorRequest_DidUpdateCurrentEntity();
}

void ZREditorView::mouseMoved(const ZRMouseEvent& event)
{
    requestDelegate->EditorRequest_UpdateCurrentEntityMoveStatus(convertPoint(event.location));
}

void ZREditorView::paintEvent(QPaintEvent* event)
{
    if (!m_display)
        return;
    paintMovedEntity();
    QPainter painter(this);
    DevicePixels::begin(painter, *this);
    _drawGraffit(painter, event->region());
}

void ZREditorView::_drawGraffit(QPainter& painter, const QRegion& dirtyPoints)
{
    for (const QRect& points : dirtyPoints) {
        const QRect pixels = DevicePixels::covering(points, devicePixelRatioF()) & regionPixels();
        m_canvas.draw(painter, pixels);
    }
    painter.setClipRect(regionPixels());
    painter.setTransform(toPixels(), true);
    for (const FocusMarks& marks : m_marks)
        marks.paint(painter);
    m_currentMarks.paint(painter);
}

ZRPoint ZREditorView::convertPoint(ZRPoint overlayPoint) const
{
    return {overlayPoint.x - m_frame.x, overlayPoint.y - m_frame.y};
}

// From points of this view to device pixels of the display, which grow downwards.
QTransform ZREditorView::toPixels() const
{
    if (!m_display)
        return {};
    const DisplayRecord& display = m_display->display();
    const double scale = display.scale;
    return {scale, 0, 0, -scale, m_frame.x * scale, display.pixels.height() - m_frame.y * scale};
}

QRect ZREditorView::regionPixels() const
{
    return m_display ? m_display->display().localPixels(m_frame) & m_display->image().rect() : QRect();
}

void ZREditorView::startCanvas()
{
    m_canvas = m_display ? GraffitCanvas(m_display->image(), toPixels()) : GraffitCanvas();
    m_top = nullptr;
    if (!requestDelegate)
        return;
    for (const EntityRecord& record : requestDelegate->EditorRequest_getAllGraffitRect())
        m_canvas.invalidate(record);
}

void ZREditorView::finishGesture()
{
    _isDragging = false;
    if (m_current)
        m_current->setIsDrawDone();
}

// One step of a drag costs no look at any other annotation.
void ZREditorView::redisplayEntity()
{
    if (m_current != m_top)
        return;
    const EntityRecord record = m_current->record();
    updatePixels(m_canvas.moveTop(record));
    updatePixels(pixelsOf(m_currentMarks));
    m_currentMarks = FocusMarks::of(record);
    updatePixels(pixelsOf(m_currentMarks));
}

void ZREditorView::paintMovedEntity()
{
    if (m_top)
        m_canvas.paintTop(m_top->record());
}

void ZREditorView::showMarks(std::vector<FocusMarks> marks, FocusMarks current)
{
    updatePixels(markPixels());
    m_marks = std::move(marks);
    m_currentMarks = std::move(current);
    updatePixels(markPixels());
}

QRegion ZREditorView::markPixels() const
{
    QRegion pixels = pixelsOf(m_currentMarks);
    for (const FocusMarks& marks : m_marks)
        pixels += pixelsOf(marks);
    return pixels;
}

// All that may differ from the frozen display.
QRegion ZREditorView::shownPixels() const
{
    return markPixels() + m_canvas.marked();
}

QRegion ZREditorView::pixelsOf(const FocusMarks& marks) const
{
    QRegion pixels;
    for (const ZRRect& r : marks.bounds())
        pixels +=
            toPixels().mapRect(QRectF(r.x, r.y, r.width, r.height)).toAlignedRect().adjusted(-1, -1, 1, 1);
    return pixels;
}

void ZREditorView::updatePixels(const QRegion& pixels)
{
    QRegion points;
    for (const QRect& r : pixels.intersected(regionPixels()))
        points += DevicePixels::pointsCovering(r, devicePixelRatioF());
    if (!points.isEmpty())
        update(points);
}
