#pragma once

#include "editor/GraffitPainter.h"
#include "editor/LazyCopy.h"

#include <QRegion>

#include <span>

// The frozen display with the annotations painted over it. The annotation in hand, which lies above all
// others, can change at the cost of its own pixels: a second picture holds all but it. Device pixels of the
// display.
class GraffitCanvas {
public:
    GraffitCanvas() = default;
    // Nothing is painted yet. Holds the picture, whose pixels must stay; `toPixels` leads from the records'
    // points to them.
    GraffitCanvas(const QImage& frozen, const QTransform& toPixels);

    // Records are counted in another space from now on. What is painted stays: what differs in the new space
    // has to be invalidated before and after.
    void setSpace(const QTransform& toPixels);
    // What is painted there is out of date: the record's pixels.
    QRect invalidate(const EntityRecord& record);
    void invalidateTop() { m_invalid.push_back(m_top); }
    // Paints what is out of date, `lower` first; `top` is the annotation in hand or null. The pixels that it
    // painted.
    QRegion repaint(std::span<const EntityRecord> lower, const EntityRecord* top);
    // The annotation in hand has changed: the pixels where it was and where it is. They are painted by the
    // next paintTop(), so that of many movements between two pictures only the last one costs a painting.
    QRegion moveTop(const EntityRecord& top);
    void paintTop(const EntityRecord& top);

    // Holds everything that differs from the frozen picture.
    QRect marked() const { return m_marked; }
    // Draws what differs from the frozen picture; one unit of the painter is one device pixel.
    void draw(QPainter& painter, const QRect& pixels);
    // A picture of its own; `pixels` lies inside the display.
    QImage composed(const QRect& pixels);

private:
    void paintLower(const QRect& pixels, std::span<const EntityRecord> lower);
    void paintAll(const QRect& pixels, const EntityRecord* top);

    QImage m_frozen;
    GraffitPainter m_painter;
    LazyCopy m_lower; // all but the annotation in hand
    LazyCopy m_all;
    std::vector<QRect> m_invalid; // to be painted in both pictures
    std::vector<QRect> m_moved;   // to be painted in that of all
    QRect m_top;                  // where the annotation in hand is
    QRect m_marked;
};
