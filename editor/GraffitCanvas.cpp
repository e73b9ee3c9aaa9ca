#include "editor/GraffitCanvas.h"

#include <utility>

namespace {

constexpr size_t kFew = 4; // more rectangles than these are painted as one

// Rectangles that overlap become one.
std::vector<QRect> merged(const QRect& a, const QRect& b)
{
    if (a.isEmpty() || b.isEmpty() || a.intersects(b))
        return {a | b};
    return {a, b};
}

QRect united(const std::vector<QRect>& rects)
{
    QRect all;
    for (const QRect& r : rects)
        all |= r;
    return all;
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
    m_painter = GraffitPainter(m_frozen.size(), toPixels);
}

void GraffitCanvas::invalidate(const EntityRecord& record)
{
    m_invalid.push_back(m_painter.pixelBounds(record) & m_frozen.rect());
}

QRegion GraffitCanvas::repaint(std::span<const EntityRecord> lower, const EntityRecord* top)
{
    std::vector<QRect> rects = std::exchange(m_invalid, {});
    if (rects.size() > kFew)
        rects = {united(rects)};
    QRegion painted;
    for (const QRect& pixels : rects) {
        if (pixels.isEmpty())
            continue;
        paintLower(pixels, lower);
        paintTop(pixels, top);
        painted += pixels;
    }
    m_top = top ? m_painter.pixelBounds(*top) & m_frozen.rect() : QRect();
    return painted;
}

QRegion GraffitCanvas::repaintTop(const EntityRecord& top)
{
    const QRect grown = m_painter.grownPixels(top) & m_frozen.rect();
    const QRect bounds = m_painter.pixelBounds(top) & m_frozen.rect();
    QRegion painted;
    for (const QRect& pixels : grown.isEmpty() ? merged(m_top, bounds) : std::vector<QRect>{grown}) {
        if (pixels.isEmpty())
            continue;
        paintTop(pixels, &top);
        painted += pixels;
    }
    m_top = bounds;
    return painted;
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

void GraffitCanvas::paintTop(const QRect& pixels, const EntityRecord* top)
{
    QImage& picture = m_all.with(pixels);
    LazyCopy::copyPixels(picture, m_lower.with(pixels), pixels);
    if (top)
        m_painter.paint(picture, *top, pixels);
    m_marked |= pixels;
}
