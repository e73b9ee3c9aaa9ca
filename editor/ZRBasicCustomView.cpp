#include "editor/ZRBasicCustomView.h"

#include "commonutils/CommLog.h"
#include "editor/HitRules.h"
#include "editor/ShapeRules.h"
#include "editor/ZRArrow.h"
#include "editor/ZREillpse.h"
#include "editor/ZRGaussianBlur.h"
#include "editor/ZRHightlight.h"
#include "editor/ZRLine.h"
#include "editor/ZRSquare.h"
#include "editor/ZRTextEditor.h"

namespace {

template <class Shape>
std::unique_ptr<ZRBasicCustomView> make()
{
    return std::make_unique<Shape>();
}

struct Tool {
    const char* id;
    std::unique_ptr<ZRBasicCustomView> (*make)();
};
constexpr Tool kTools[] = {
    {"text", make<ZRTextEditor>},
    {"square", make<ZRSquare>},
    {"eillpse", make<ZREillpse>},
    {"arrow", make<ZRArrow>},
    {"customLine", make<ZRRandomLine>},
    {"light", make<ZRHightlight>},
    {"line", make<ZRLine>},
    {"blur", make<ZRGaussianBlur>},
    {"mosic", make<ZRGaussianBlur>},
};

quint32 nextRevision()
{
    static quint32 last = 0;
    return ++last;
}

}

ZRBasicCustomView::ZRBasicCustomView()
    : m_revision(nextRevision())
{
}

std::unique_ptr<ZRBasicCustomView> ZRBasicCustomView::createNewEntityWithGratiffitID(const QString& id)
{
    for (const Tool& tool : kTools) {
        if (id != QLatin1String(tool.id))
            continue;
        auto entity = tool.make();
        entity->setGraffitViewID(id); // one class serves two tools
        return entity;
    }
    return nullptr;
}

ZRPoint ZRBasicCustomView::getPointWithEntityVctualRect(ZRRect rect, int direction)
{
    return HandleRules::handlePoint(rect, direction);
}

ZRPoint ZRBasicCustomView::getPointFromPointsList(const DragPoints& points, size_t index)
{
    return index < points.size() ? points[index].point() : ZRPoint{};
}

void ZRBasicCustomView::setGraffitViewID(const QString& id)
{
    mViewID = id.isNull() ? QStringLiteral("") : id;
}

void ZRBasicCustomView::setColor(const QColor& color)
{
    mColor = color.isValid() ? color : QColor(Qt::red);
}

void ZRBasicCustomView::setIsFocusOn(bool isOn)
{
    _isFocusOn = isOn;
}

EntityRecord ZRBasicCustomView::record() const
{
    return {.bounds = mVctualRect,
        .idName = mViewID,
        .focusOn = isFocusOn(),
        .dragPoints = &mDragePointList,
        .drawLineWidth = mLineWidth,
        .drawColor = mColor,
        .needBorder = needsBorder(),
        .pointExtent = m_extent,
        .revision = m_revision};
}

ZRPoint ZRBasicCustomView::getPointWithIndex(size_t index) const
{
    return index < mDragePointList.size() ? mDragePointList[index].point() : mBegionPoint;
}

ZRPoint ZRBasicCustomView::mostPointWithDirection(int direction) const
{
    ZRPoint point = getPointWithIndex(0);
    if (mDragePointList.empty())
        return point;
    if (direction == kSmallestX || direction == kLargestX)
        point.x = direction == kSmallestX ? m_extent.x : m_extent.maxX();
    if (direction == kSmallestY || direction == kLargestY)
        point.y = direction == kSmallestY ? m_extent.y : m_extent.maxY();
    return point;
}

ZRPoint ZRBasicCustomView::getAnglePointWithDirection(int direction) const
{
    return HandleRules::handlePoint(mVctualRect, direction);
}

int ZRBasicCustomView::getResizeDirection(ZRPoint point) const
{
    return HandleRules::handleAt(mVctualRect, point);
}

void ZRBasicCustomView::addDragPoint(ZRPoint point)
{
    const DragPoint added{float(point.x), float(point.y)};
    const bool isFirst = mDragePointList.empty();
    mDragePointList.push_back(added);
    m_extent = isFirst ? ZRRect{added.x, added.y, 0, 0} : ShapeRules::withPoint(m_extent, added.point());
    sizeToFit();
}

bool ZRBasicCustomView::isClickOn(ZRPoint)
{
    return false;
}

void ZRBasicCustomView::revoke()
{
    if (isRemoveView())
        return;
    mVctualRect = mDrageMoveList.back();
    mDrageMoveList.pop_back();
}

// The first remembered rectangle is that of an annotation not yet drawn, which lies nowhere.
void ZRBasicCustomView::shift(double dx, double dy)
{
    movePoints(dx, dy);
    mVctualRect = mVctualRect.translated(dx, dy);
    for (size_t i = 1; i < mDrageMoveList.size(); ++i)
        mDrageMoveList[i] = mDrageMoveList[i].translated(dx, dy);
}

void ZRBasicCustomView::restore(const DragPoints& points, ZRRect rect)
{
    mDragePointList = points;
    pointsChanged();
    mVctualRect = rect;
}

void ZRBasicCustomView::mouseDown(ZRPoint point)
{
    mBegionPoint = point;
    remember();
}

void ZRBasicCustomView::mouseDragged(ZRPoint point)
{
    if (!_isDrawDone) {
        if (mDragePointList.empty())
            addDragPoint(mBegionPoint); // a fast drag may be one event, far from its press
        addDragPoint(point);
        return;
    }
    if (!isFocusOn())
        return;
    const ZRPoint step = stepTo(point);
    if (resizeDirection == kNoHandle)
        return moveBy(step);
    const HandleRules::Grab grab = HandleRules::pulled({mVctualRect, resizeDirection}, step, point);
    mVctualRect = grab.rect;
    resizeDirection = grab.direction;
}

void ZRBasicCustomView::mouseUp(ZRPoint)
{
    setIsDrawDone();
    if (resizeDirection == kNoHandle)
        return;
    mVctualRect = mVctualRect.normalized();
    resizeDirection = kNoHandle;
}

Qt::CursorShape ZRBasicCustomView::mouseMoved(ZRPoint point, const QColor& colorThere)
{
    if (!HitRules::isColorValueEqualToColorValue(colorThere, mColor) || !isClickOn(point))
        return Qt::ArrowCursor;
    CommLog::log(QString::fromLatin1(className()));
    return Qt::OpenHandCursor;
}

void ZRBasicCustomView::moveBy(ZRPoint step)
{
    mVctualRect = mVctualRect.translated(step.x, step.y);
}

void ZRBasicCustomView::movePoints(double dx, double dy)
{
    for (DragPoint& p : mDragePointList)
        p = {float(p.x + dx), float(p.y + dy)};
    pointsChanged();
}

void ZRBasicCustomView::replacePoint(size_t index, ZRPoint point)
{
    mDragePointList[index] = {float(point.x), float(point.y)};
    pointsChanged();
}

ZRPoint ZRBasicCustomView::stepTo(ZRPoint point)
{
    const ZRPoint step{point.x - mBegionPoint.x, point.y - mBegionPoint.y};
    mBegionPoint = point;
    return step;
}

void ZRBasicCustomView::pointsChanged()
{
    m_extent = ShapeRules::extentOf(mDragePointList);
    m_revision = nextRevision();
}
