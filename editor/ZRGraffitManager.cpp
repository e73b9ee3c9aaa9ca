#include "editor/ZRGraffitManager.h"

#include "editor/EntityArchive.h"
#include "editor/ZRGaussianBlur.h"
#include "editor/ZRTextEditor.h"

#include <algorithm>

namespace {

constexpr int kFontSize = 14; // points

ZRTextEditor* textEditor(ZRBasicCustomView* entity)
{
    return dynamic_cast<ZRTextEditor*>(entity);
}

}

ZRGraffitManager::ZRGraffitManager()
    : mEditorView(new ZREditorView)
{
    mFont.setPixelSize(kFontSize); // Qt's pixels are points of the display here
    mEditorView->setRequestDelegate(this);
    mEditorView->setDelegate(this);
    mEditorView->setCurTextColor(mColor);
    mEditorView->setCurTextFont(mFont);
}

ZRGraffitManager::~ZRGraffitManager()
{
    clear();
}

void ZRGraffitManager::setMainManager(RegionImageSource* source)
{
    mTheMainManager = source;
}

void ZRGraffitManager::addGraffitViewTo(View& host, ZRRect rect)
{
    mEditorView->setParent(&host);
    mEditorView->setGeometry(host.rect());
    mEditorView->setExactHeight(host.exactHeight());
    mEditorView->setFrozenDisplay(mTheMainManager ? mTheMainManager->frame() : nullptr);
    mEditorView->setFrame(rect);
    mEditorView->show();
}

void ZRGraffitManager::updateGraffitView(ZRRect rect)
{
    const ZRRect before = mEditorView->frame();
    if (rect.size() == before.size())
        return mEditorView->setFrame(rect);
    shiftAll(before.x - rect.x, before.y - rect.y);
    mEditorView->setFrameAround(rect);
}

// The view goes with the manager, unless its host has taken it along.
void ZRGraffitManager::clear()
{
    mLastFocusOnEntity = nullptr;
    m_history.clear();
    mGraffitEntitys.clear();
    m_everyMovement.reset();
    const std::unique_ptr<ZREditorView> view(mEditorView.data());
}

void ZRGraffitManager::updateGraffitID(const QString& id)
{
    mCurGraffitID = id;
    if (id.isNull())
        m_everyMovement.reset();
    else if (!m_everyMovement)
        m_everyMovement.emplace();
}

void ZRGraffitManager::setLineWidth(qint32 points)
{
    mLineWidth = points;
    if (mLastFocusOnEntity)
        change(*mLastFocusOnEntity, [this] { mLastFocusOnEntity->setLineWidth(mLineWidth); });
}

void ZRGraffitManager::setCurColor(const QColor& color)
{
    mColor = color;
    mEditorView->setCurTextColor(color);
    if (mLastFocusOnEntity)
        change(*mLastFocusOnEntity, [this] { mLastFocusOnEntity->setColor(mColor); });
}

void ZRGraffitManager::setCurFont(const QFont& font)
{
    mFont = font;
    mEditorView->setCurTextFont(font);
    if (ZRTextEditor* text = textEditor(mLastFocusOnEntity))
        change(*text, [this, text] { text->changeTextFont(mFont); });
}

ZRBasicCustomView* ZRGraffitManager::createNewGraffitEntity()
{
    auto entity = ZRBasicCustomView::createNewEntityWithGratiffitID(mCurGraffitID);
    if (!entity)
        return nullptr;
    entity->setLineWidth(mLineWidth);
    entity->setColor(mColor);
    return mGraffitEntitys.emplace_back(std::move(entity)).get();
}

ZRBasicCustomView* ZRGraffitManager::isClickOnGraffit(ZRPoint point) const
{
    for (const auto& entity : mGraffitEntitys)
        if (entity->isClickOn(point))
            return entity.get();
    return nullptr;
}

void ZRGraffitManager::clearFocusOnGraffitView()
{
    unselect();
    mEditorView->redisplay();
}

void ZRGraffitManager::deleteGraffitFromBackSpace()
{
    if (ZRTextEditor* text = textEditor(mLastFocusOnEntity); text && text->isEditing())
        return text->deleteText();
    const auto place = find(mLastFocusOnEntity);
    if (place == mGraffitEntitys.end())
        return;
    const auto index = size_t(place - mGraffitEntitys.begin());
    m_history.removed(take(place), index);
}

bool ZRGraffitManager::isCanRevoke() const
{
    return static_cast<signed char>(mGraffitEntitys.size()) != 0;
}

void ZRGraffitManager::goBackDrawView()
{
    revokeLast();
}

void ZRGraffitManager::revokeDrawView()
{
    if (mGraffitEntitys.empty())
        return;
    m_history.takePress(*mGraffitEntitys.back());
    auto last = take(std::prev(mGraffitEntitys.end()));
    if (const ZRTextEditor* text = textEditor(last.get()); text && text->isNullText())
        return;
    m_history.undone({.kind = GraffitHistory::Undone::Kind::Made, .made = std::move(last)});
}

void ZRGraffitManager::undoDrawView()
{
    if (m_history.isRemovalLast()) {
        auto [entity, index] = m_history.takeRemoved();
        return insert(std::move(entity), index);
    }
    const size_t count = mGraffitEntitys.size();
    const DragPoints points = revokeLast();
    if (count == 0 || mGraffitEntitys.size() < count)
        return;
    ZRBasicCustomView& last = *mGraffitEntitys.back();
    change(last, [&last, &points] { last.restore(points, last.vctualRect()); });
}

void ZRGraffitManager::goForwardDrawView()
{
    using Kind = GraffitHistory::Undone::Kind;
    auto step = m_history.takeUndone();
    if (!step)
        return;
    if (step->kind == Kind::Made) {
        m_history.pressedAgain(*step->made);
        insert(std::move(step->made), mGraffitEntitys.size());
    } else if (step->kind == Kind::Removed) {
        const auto place = find(step->entity);
        const auto index = size_t(place - mGraffitEntitys.begin());
        m_history.removedAgain(take(place), index);
    } else {
        m_history.pressedAgain(*step->entity);
        step->entity->remember();
        change(*step->entity, [&step] { step->entity->restore(step->points, step->rect); });
    }
}

QByteArray ZRGraffitManager::archived() const
{
    std::vector<EntityArchive> archives;
    archives.reserve(mGraffitEntitys.size());
    for (const auto& entity : mGraffitEntitys)
        archives.push_back(EntityArchive::of(*entity));
    return EntityArchive::encoded(archives);
}

bool ZRGraffitManager::restore(const QByteArray& archive)
{
    const auto archives = EntityArchive::decoded(archive);
    if (!archives)
        return false;
    mLastFocusOnEntity = nullptr;
    mGraffitEntitys.clear();
    m_history.clear();
    for (const EntityArchive& each : *archives) {
        auto entity = each.restored();
        if (!entity)
            continue;
        m_history.pressed(*entity);
        insert(std::move(entity), mGraffitEntitys.size());
    }
    return true;
}

bool ZRGraffitManager::hasMosaic() const
{
    return std::any_of(mGraffitEntitys.begin(), mGraffitEntitys.end(),
        [](const auto& entity) { return entity->viewId() == QLatin1String("mosic"); });
}

QImage ZRGraffitManager::composed(const QRect& pixels) const
{
    return mGraffitEntitys.empty() || !mEditorView ? QImage() : mEditorView->composed(pixels);
}

// Kept: a selection that another one follows stays marked, nobody unfocuses it.
ZREditorRequestDelegate::Press ZRGraffitManager::EditorRequest_GetCurrentStatus(ZRPoint point)
{
    if (mCurGraffitID.isNull())
        return {};
    if (ZRBasicCustomView* entity = isClickOnGraffit(point)) {
        select(entity);
        return {PressStatus::Hit, entity};
    }
    if (mLastFocusOnEntity) {
        unselect();
        return {};
    }
    ZRBasicCustomView* entity = createNewGraffitEntity();
    mLastFocusOnEntity = textEditor(entity);
    return {PressStatus::Created, entity};
}

void ZRGraffitManager::EditorRequest_DidUDownEntityWithEntity(ZRBasicCustomView* entity)
{
    if (mCurGraffitID == QLatin1String("rubber"))
        return erase(entity);
    if (!entity)
        return;
    bringToFront(entity);
    if (entity->isUndoneWhole() && m_history.knows(*entity))
        m_history.changed();
    else
        m_history.pressed(*entity);
}

// Kept: of all handles only the middle right one shows the closed hand.
ZRBasicCustomView* ZRGraffitManager::EditorRequest_UpdateCurrentEntityMoveStatus(ZRPoint point)
{
    if (mCurGraffitID.isNull())
        return nullptr;
    ZRBasicCustomView* entity = isClickOnGraffit(point);
    if (!entity)
        setCursor(Qt::CrossCursor);
    else if (ZRTextEditor* text = textEditor(entity); text && text->isEditing())
        setCursor(Qt::IBeamCursor);
    else
        setCursor(
            entity->getResizeDirection(point) == kMiddleRight ? Qt::ClosedHandCursor : Qt::OpenHandCursor);
    return entity;
}

DragStatus ZRGraffitManager::EditorRequest_UpdateCurrentEntityDragStatus(ZRPoint)
{
    if (mCurGraffitID.isNull()) {
        mLastFocusOnEntity = nullptr;
        return DragStatus::Ignored;
    }
    if (isTextEdited())
        setCursor(Qt::IBeamCursor);
    else if (mLastFocusOnEntity)
        setCursor(mLastFocusOnEntity->isDrawDone() ? Qt::ClosedHandCursor : Qt::CrossCursor);
    return DragStatus::Forwarded;
}

void ZRGraffitManager::EditorRequest_DidUpdateCurrentEntity()
{
    if (isTextEdited())
        setCursor(Qt::IBeamCursor);
    else
        setCursor(mLastFocusOnEntity ? Qt::OpenHandCursor : Qt::CrossCursor);
    tellOfChange();
}

std::vector<EntityRecord> ZRGraffitManager::EditorRequest_getAllGraffitRect() const
{
    std::vector<EntityRecord> records = allRecords();
    std::erase_if(records, [](const EntityRecord& record) { return record.text != nullptr; });
    return records;
}

std::vector<EntityRecord> ZRGraffitManager::allRecords() const
{
    std::vector<EntityRecord> records;
    records.reserve(mGraffitEntitys.size());
    for (const auto& entity : mGraffitEntitys)
        records.push_back(entity->record());
    return records;
}

std::vector<ZRGaussianBlur*> ZRGraffitManager::EditorRequest_coveredAreas() const
{
    std::vector<ZRGaussianBlur*> areas;
    for (const auto& entity : mGraffitEntitys)
        if (auto* area = dynamic_cast<ZRGaussianBlur*>(entity.get()); area && area->isDrawDone())
            areas.push_back(area);
    return areas;
}

QImage ZRGraffitManager::EditorRequest_getCurrentImageFromTheRegion(ZRRect rect) const
{
    return mTheMainManager ? mTheMainManager->getCurrentImageFromTheRegion(rect) : QImage();
}

void ZRGraffitManager::EditorDelegate_deleteNullTextField(ZRBasicCustomView* textField)
{
    const auto place = find(textField);
    if (place == mGraffitEntitys.end())
        return;
    if (mLastFocusOnEntity == textField)
        mLastFocusOnEntity = nullptr;
    m_history.takePress(*textField);
    mGraffitEntitys.erase(place);
}

void ZRGraffitManager::EditorDelegate_endEdit()
{
    clearFocusOnGraffitView();
    setCursor(Qt::CrossCursor);
    tellOfChange();
}

void ZRGraffitManager::tellOfChange() const
{
    if (onChange)
        onChange();
}

void ZRGraffitManager::change(ZRBasicCustomView& entity, const std::function<void()>& how)
{
    mEditorView->invalidate(entity);
    how();
    mEditorView->invalidate(entity);
    mEditorView->redisplay();
}

ZRGraffitManager::Entities::iterator ZRGraffitManager::find(const ZRBasicCustomView* entity)
{
    return std::find_if(mGraffitEntitys.begin(), mGraffitEntitys.end(),
        [entity](const auto& each) { return each.get() == entity; });
}

// What comes back may lie above the annotation in hand, which therefore is none any more.
void ZRGraffitManager::insert(std::unique_ptr<ZRBasicCustomView> entity, size_t index)
{
    clearFocusOnGraffitView();
    if (ZRTextEditor* text = textEditor(entity.get()))
        mEditorView->addSubview(*text);
    const size_t place = std::min(index, mGraffitEntitys.size());
    ZRBasicCustomView& inserted =
        **mGraffitEntitys.insert(mGraffitEntitys.begin() + std::ptrdiff_t(place), std::move(entity));
    if (auto* area = dynamic_cast<ZRGaussianBlur*>(&inserted))
        mEditorView->makePicture(*area); // the region may have been elsewhere
    mEditorView->invalidate(inserted);
    mEditorView->redisplay();
}

// Neither selected nor in hand nor half drawn, should it come back.
std::unique_ptr<ZRBasicCustomView> ZRGraffitManager::take(Entities::iterator place)
{
    std::unique_ptr<ZRBasicCustomView> entity = std::move(*place);
    mEditorView->invalidate(*entity);
    mGraffitEntitys.erase(place);
    entity->setIsDrawDone();
    entity->unregisterFocusOn();
    mLastFocusOnEntity = nullptr;
    mEditorView->clearSelectedEntity();
    mEditorView->redisplay();
    if (ZRTextEditor* text = textEditor(entity.get()))
        mEditorView->removeSubview(*text);
    return entity;
}

// The press itself was remembered as the beginning of a drag.
void ZRGraffitManager::erase(ZRBasicCustomView* entity)
{
    const auto place = find(entity);
    if (place == mGraffitEntitys.end())
        return;
    entity->revoke();
    const auto index = size_t(place - mGraffitEntitys.begin());
    m_history.removed(take(place), index);
}

// A text that is edited is left by any press beside it.
void ZRGraffitManager::select(ZRBasicCustomView* entity)
{
    if (isTextEdited() && mEditorView->editingEditor() != entity)
        unselect();
    entity->registerFocusOn();
    mLastFocusOnEntity = entity;
    setCursor(Qt::ClosedHandCursor);
}

// A text that was left empty goes.
void ZRGraffitManager::unselect()
{
    if (mLastFocusOnEntity)
        mLastFocusOnEntity->unregisterFocusOn();
    mLastFocusOnEntity = nullptr;
    mEditorView->clearSelectedEntity();
    mEditorView->removeEditorWitchIsNullText();
}

void ZRGraffitManager::bringToFront(const ZRBasicCustomView* entity)
{
    const auto place = find(entity);
    if (place != mGraffitEntitys.end())
        std::rotate(place, std::next(place), mGraffitEntitys.end());
}

// The points that the undone press found on the annotation that is the last one.
DragPoints ZRGraffitManager::revokeLast()
{
    if (mGraffitEntitys.empty()) {
        mEditorView->clearSelectedEntity();
        return {};
    }
    ZRBasicCustomView& last = *mGraffitEntitys.back();
    if (last.isRemoveView()) {
        revokeDrawView();
        return {};
    }
    m_history.undone({.entity = &last, .points = last.dragPoints(), .rect = last.vctualRect()});
    change(last, [&last] { last.revoke(); });
    return m_history.takePress(last);
}

void ZRGraffitManager::shiftAll(double dx, double dy)
{
    for (const auto& entity : mGraffitEntitys)
        entity->shift(dx, dy);
    m_history.shift(dx, dy);
}

void ZRGraffitManager::setCursor(Qt::CursorShape shape) const
{
    if (onCursor)
        onCursor(shape);
}
