#include "editor/GraffitHistory.h"

#include <algorithm>
#include <utility>

namespace {

void shiftPoints(DragPoints& points, double dx, double dy)
{
    for (DragPoint& p : points)
        p = {float(p.x + dx), float(p.y + dy)};
}

}

void GraffitHistory::pressed(const ZRBasicCustomView& entity)
{
    changed();
    pressedAgain(entity);
}

bool GraffitHistory::knows(const ZRBasicCustomView& entity) const
{
    return std::any_of(
        m_done.begin(), m_done.end(), [&entity](const Done& step) { return step.pressed == &entity; });
}

void GraffitHistory::removed(std::unique_ptr<ZRBasicCustomView> entity, size_t index)
{
    changed();
    removedAgain(std::move(entity), index);
}

void GraffitHistory::clear()
{
    m_done.clear();
    m_undone.clear();
}

GraffitHistory::Place GraffitHistory::takeRemoved()
{
    Done step = std::move(m_done.back());
    m_done.pop_back();
    undone({.kind = Undone::Kind::Removed, .entity = step.removed.get()});
    return {std::move(step.removed), step.index};
}

DragPoints GraffitHistory::takePress(const ZRBasicCustomView& entity)
{
    const auto step = std::find_if(
        m_done.rbegin(), m_done.rend(), [&entity](const Done& done) { return done.pressed == &entity; });
    if (step == m_done.rend())
        return entity.dragPoints();
    DragPoints points = std::move(step->points);
    m_done.erase(std::next(step).base());
    return points;
}

std::optional<GraffitHistory::Undone> GraffitHistory::takeUndone()
{
    if (m_undone.empty())
        return {};
    std::optional<Undone> step = std::move(m_undone.back());
    m_undone.pop_back();
    return step;
}

void GraffitHistory::pressedAgain(const ZRBasicCustomView& entity)
{
    m_done.push_back({.pressed = &entity, .points = entity.dragPoints()});
}

void GraffitHistory::removedAgain(std::unique_ptr<ZRBasicCustomView> entity, size_t index)
{
    m_done.push_back({.removed = std::move(entity), .index = index});
}

void GraffitHistory::shift(double dx, double dy)
{
    for (Done& step : m_done) {
        shiftPoints(step.points, dx, dy);
        if (step.removed)
            step.removed->shift(dx, dy);
    }
    for (Undone& step : m_undone) {
        shiftPoints(step.points, dx, dy);
        step.rect = step.rect.translated(dx, dy);
        if (step.made)
            step.made->shift(dx, dy);
    }
}
