#include "editor/ZREditorView.h"

#include "customui/DevicePixels.h"
#include "editor/SecureMosaic.h"
#include "editor/ZRBasicCustomView.h"
#include "editor/ZREditorDelegate.h"
#include "editor/ZREditorRequestDelegate.h"
#include "editor/ZRGaussianBlur.h"
#include "editor/ZRTextEditor.h"
#include "settings/AppSettings.h"

#include <QPaintEvent>

#include <algorithm>
#include <utility>

namespace {

const QString kMosaicID = QStringLiteral("mosic");

}

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
    updatePixels(invalidateAll() + markPixels());
    m_frame = frame;
    m_canvas.setSpace(toPixels());
    makeAllPictures();
    invalidateAll();
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
    const std::vector<EntityRecord> records = requestDelegate->allRecords();
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
    if (const ZRTextEditor* editor = editingEditor())
        placeField(*editor);
}

void ZREditorView::clearSelectedEntity()
{
    if (std::exchange(m_current, nullptr))
        redisplay();
}

void ZREditorView::addNewTextEditorWithLocation(ZRPoint point)
{
    auto* editor = dynamic_cast<ZRTextEditor*>(m_current);
    if (!editor)
        return;
    editor->updateFrame(TextRules::newBox(point, mTextFont));
    addSubview(*editor);
    editor->changeTextColor(mTextColor);
    editor->changeTextFont(mTextFont);
    editor->becomeFirstResponder();
}

double ZREditorView::getNewEditorHeightWithTextFont(const QFont& font)
{
    return TextRules::newBox({}, font).height;
}

void ZREditorView::addSubview(ZRTextEditor& editor)
{
    m_editors.push_back(&editor);
    editor.textField()->setParent(this);
    editor.textField()->caretRect = [this, &editor] {
        return widgetRect(editor.caretRect()).translated(-editor.textField()->pos());
    };
    editor.onChange = [this, &editor] { showEditor(editor); };
    editor.onEndEdit = [this] { delegate->EditorDelegate_endEdit(); };
}

void ZREditorView::removeSubview(ZRTextEditor& editor)
{
    std::erase(m_editors, &editor);
    editor.onChange = nullptr;
    editor.onEndEdit = nullptr;
}

ZRTextEditor* ZREditorView::editingEditor() const
{
    const auto place = std::find_if(
        m_editors.begin(), m_editors.end(), [](const ZRTextEditor* each) { return each->isEditing(); });
    return place == m_editors.end() ? nullptr : *place;
}

ZRTextEditor* ZREditorView::isClickOnEditor(ZRPoint point) const
{
    const auto place = std::find_if(
        m_editors.begin(), m_editors.end(), [point](ZRTextEditor* each) { return each->isClickOn(point); });
    return place == m_editors.end() ? nullptr : *place;
}

void ZREditorView::removeEditorWitchIsNullText()
{
    for (ZRTextEditor* editor : std::vector(m_editors)) {
        if (!editor->isNullText() || editor->isFocusOn())
            continue;
        if (m_current == editor)
            clearSelectedEntity();
        removeSubview(*editor);
        delegate->EditorDelegate_deleteNullTextField(editor);
    }
}

void ZREditorView::makePicture(ZRGaussianBlur& area)
{
    if (area.viewId() == kMosaicID && area.blurLayer().isNull() && AppSettings::isMosaicSecure())
        area.setSecure(newRandom());
    cover(area);
    if (!area.isSecure())
        return;
    for (ZRGaussianBlur* other : requestDelegate->EditorRequest_coveredAreas())
        if (other != &area && pixelsBelow(*other).intersects(pixelsBelow(area).adjusted(-1, -1, 1, 1)))
            cover(*other);
}

// A release that never came is taken as come.
void ZREditorView::mouseDown(const ZRMouseEvent& event)
{
    finishGesture();
    m_lastPoint = event.location;
    const ZRPoint point = convertPoint(event.location);
    if (pressInEditor(point, event.clickCount))
        return;
    m_current = nullptr;
    if (event.clickCount > 1)
        return redisplay();
    const auto press = requestDelegate->EditorRequest_GetCurrentStatus(point);
    if (press.status == PressStatus::Nothing)
        return redisplay();
    m_current = press.graffitEntity;
    if (m_current)
        m_current->mouseDown(point);
    if (press.status == PressStatus::Created && dynamic_cast<ZRTextEditor*>(m_current))
        addNewTextEditorWithLocation(point);
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
    if (m_isInField)
        return editingEditor() ? editingEditor()->dragInField(point) : void();
    if (!m_current || dragBeyondRegion(point))
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
    paintMovedEntity();
    if (!m_display || shownPixels().isEmpty())
        return;
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
    for (const FocusMarks& marks : m_marks)
        marks.paint(painter, toPixels());
    m_currentMarks.paint(painter, toPixels());
}

// A press in the text that is edited, or the second click on a selected one, which starts its edit.
bool ZREditorView::pressInEditor(ZRPoint point, int clickCount)
{
    ZRTextEditor* editor = editingEditor();
    if (!editor && clickCount > 1)
        editor = dynamic_cast<ZRTextEditor*>(m_current);
    if (!editor || !editor->isClickOn(point))
        return false;
    if (!editor->isEditing())
        editor->becomeFirstResponder();
    m_isInField = true;
    editor->pressInField(point, clickCount);
    return true;
}

void ZREditorView::showEditor(ZRTextEditor& editor)
{
    if (m_current == &editor && m_top == &editor) {
        redisplayEntity();
        return placeField(editor);
    }
    invalidate(editor);
    redisplay();
}

void ZREditorView::placeField(const ZRTextEditor& editor) const
{
    editor.textField()->setGeometry(widgetRect(TextRules::fieldRect(editor.vctualRect())).toAlignedRect());
}

// In points of the widget, which grow downwards.
QRectF ZREditorView::widgetRect(ZRRect rect) const
{
    const QRectF pixels = toPixels().mapRect(QRectF(rect.x, rect.y, rect.width, rect.height));
    const double scale = devicePixelRatioF();
    return {pixels.topLeft() / scale, pixels.size() / scale};
}

// The drag of a new area ends where it leaves the region, and the area with it.
bool ZREditorView::dragBeyondRegion(ZRPoint point)
{
    const ZRPoint inside{std::clamp(point.x, 0.0, m_frame.width), std::clamp(point.y, 0.0, m_frame.height)};
    if (inside == point || m_current->isDrawDone() || !dynamic_cast<ZRGaussianBlur*>(m_current))
        return false;
    m_current->mouseDragged(inside);
    finishGesture();
    clearSelectedEntity();
    return true;
}

std::vector<ZRGaussianBlur*> ZREditorView::secureAreas() const
{
    std::vector<ZRGaussianBlur*> areas = requestDelegate->EditorRequest_coveredAreas();
    std::erase_if(areas, [](const ZRGaussianBlur* area) { return !area->isSecure(); });
    return areas;
}

// The secure ones first, which the others show where they overlap.
void ZREditorView::makeAllPictures()
{
    if (!requestDelegate)
        return;
    std::vector<ZRGaussianBlur*> areas = requestDelegate->EditorRequest_coveredAreas();
    std::stable_partition(areas.begin(), areas.end(), [](const auto* area) { return area->isSecure(); });
    for (ZRGaussianBlur* area : areas)
        cover(*area);
}

void ZREditorView::cover(ZRGaussianBlur& area)
{
    invalidate(area);
    area.clearBlurLayer();
    if (!area.vctualRect().isEmpty())
        area.setBlurLayer(coverOf(area));
    invalidate(area);
}

QImage ZREditorView::coverOf(const ZRGaussianBlur& area) const
{
    const double scale = m_display->display().scale;
    if (!area.isSecure()) {
        const QImage original = originalOf(area);
        return original.isNull() ? QImage() : area.coverOf(original, scale);
    }
    QRegion hidden;
    for (const ZRGaussianBlur* other : secureAreas())
        hidden += pixelsBelow(*other);
    return secureMosaic(m_display->image(), pixelsBelow(area), std::max(1, qRound(area.strength() * scale)),
        area.random(), hidden);
}

// The frozen pixels below an area; where a secure one hides them, its cover.
QImage ZREditorView::originalOf(const ZRGaussianBlur& area) const
{
    QImage original = requestDelegate->EditorRequest_getCurrentImageFromTheRegion(
        area.vctualRect().translated(m_frame.x, m_frame.y));
    const QRect pixels = pixelsBelow(area);
    for (const ZRGaussianBlur* secure : secureAreas()) {
        const QRect covered = pixelsBelow(*secure);
        if (original.isNull() || !covered.intersects(pixels))
            continue;
        original = original.copy(); // the frame's own pixels stay as they are
        QPainter(&original).drawImage(covered.topLeft() - pixels.topLeft(), secure->blurLayer());
    }
    return original;
}

QRect ZREditorView::pixelsBelow(const ZRGaussianBlur& area) const
{
    const ZRRect rect = area.vctualRect().translated(m_frame.x, m_frame.y);
    return m_display->display().localPixels(rect) & m_display->image().rect();
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
    invalidateAll();
}

// The pixels of all annotations.
QRegion ZREditorView::invalidateAll()
{
    QRegion pixels;
    if (requestDelegate)
        for (const EntityRecord& record : requestDelegate->allRecords())
            pixels += m_canvas.invalidate(record);
    return pixels;
}

void ZREditorView::finishGesture()
{
    _isDragging = false;
    m_isInField = false;
    if (!m_current || m_current->isDrawDone())
        return;
    m_current->setIsDrawDone();
    if (auto* area = dynamic_cast<ZRGaussianBlur*>(m_current))
        makePicture(*area);
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
