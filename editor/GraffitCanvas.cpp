#include "editor/GraffitCanvas.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace {

constexpr size_t kFew = 4; // rectangles; more are painted as one

// Empties the list. Rectangles that overlap become one, and all of them where many are left; none is empty.
std::vector<QRect> takeFew(std::vector<QRect>& list)
{
    std::vector<QRect> few;
    for (QRect rect : std::exchange(list, {})) {
        if (rect.isEmpty())
            continue;
        const auto overlaps = [&rect](const QRect& other) { return other.intersects(rect); };
        for (auto found = std::ranges::find_if(few, overlaps); found != few.end();
             found = std::ranges::find_if(few, overlaps)) {
            rect |= *found;
            few.erase(found);
        }
        few.push_back(rect);
    }
    if (few.size() <= kFew)
        return few;
    return {std::accumulate(few.begin(), few.end(), QRect(), [](QRect all, QRect r) { return all | r; })};
}

}

GraffitCanvas::GraffitCanvas(const QImage& frozen, const QTransform& toPixels)
    : m_frozen(frozen)
    , m_painter(frozen.size(), toPixels)
    , m_lower(frozen)
    , m_all(frozen)
{
}

void GraffitCanvas::setSpace(const QTransform& toPixels)
{
    m_painter.setSpace(toPixels);
}

QRect GraffitCanvas::invalidate(const EntityRecord& record)
{
    return m_invalid.emplace_back(m_painter.pixelBounds(record) & m_frozen.rect());
}

QRegion GraffitCanvas::repaint(std::span<const EntityRecord> lower, const EntityRecord* top)
{
    m_invalid.insert(m_invalid.end(), m_moved.begin(), m_moved.end());
    m_moved.clear();
    QRegion painted;
    for (const QRect& pixels : takeFew(m_invalid)) {
        paintLower(pixels, lower);
        paintAll(pixels, top);
        painted += pixels;
    }
    m_top = top ? m_painter.pixelBounds(*top) & m_frozen.rect() : QRect();
    return painted;
}

QRegion GraffitCanvas::moveTop(const EntityRecord& top)
{
    const QRect before = std::exchange(m_top, m_painter.pixelBounds(top) & m_frozen.rect());
    const QRect grown = m_painter.grownPixels(top) & m_frozen.rect();
    if (!grown.isEmpty()) {
        m_moved.push_back(grown);
        return grown;
    }
    m_moved.insert(m_moved.end(), {before, m_top});
    return QRegion(before) + m_top;
}

void GraffitCanvas::paintTop(const EntityRecord& top)
{
    for (const QRect& pixels : takeFew(m_moved))
        paintAll(pixels, &top);
}

void GraffitCanvas::draw(QPainter& painter, const QRect& pixels)
{
    const QRect area = pixels & m_marked;
    if (!area.isEmpty())
        painter.drawImage(area.topLeft(), m_all.with(area), area);
}

QImage GraffitCanvas::composed(const QRect& pixels)
{
    if (pixels.isEmpty())
        return {};
    QImage picture = m_frozen.copy(pixels);
    QPainter painter(&picture);
    painter.translate(-pixels.topLeft());
    draw(painter, pixels);
    return picture;
}

void GraffitCanvas::paintLower(const QRect& pixels, std::span<const EntityRecord> lower)
{
    QImage& picture = m_lower.with(pixels);
    LazyCopy::copyPixels(picture, m_frozen, pixels);
    for (const EntityRecord& record : lower) {
        const QRect clip = m_painter.pixelBounds(record) & pixels;
        if (!clip.isEmpty())
            m_painter.paint(picture, record, clip);
    }
    m_marked |= pixels;
}

void GraffitCanvas::paintAll(const QRect& pixels, const EntityRecord* top)
{
    QImage& picture = m_all.with(pixels);
    LazyCopy::copyPixels(picture, m_lower.with(pixels), pixels);
    if (top)
        m_painter.paint(picture, *top, pixels);
    m_marked |= pixels;
}
