#pragma once

#include "editor/EntityRecord.h"

#include <QImage>
#include <QTransform>

#include <cstdlib>
#include <memory>

// How much of each device pixel one freehand stroke covers. A stroke that grows only adds its new pieces, and
// where pieces overlap the larger coverage counts: so a transparent stroke is even along its whole way, and
// what is painted does not depend on how many steps it came in. Device pixels, y grows downwards.
class StrokeMask {
public:
    // An empty mask for pictures of a size.
    explicit StrokeMask(QSize pixels = {});

    // The stroke through all points of the record. `width` is in points.
    struct Stroke {
        const EntityRecord& record;
        double width;
        QTransform toPixels; // from the space of the points, which it scales alike in both directions
    };
    // Whether the mask holds the beginning of the stroke, but not yet all of it.
    bool isContinuedBy(const Stroke& stroke) const;
    // Makes the mask that of the stroke; the pixels of the pieces that were added for it.
    QRect cover(const Stroke& stroke);
    // Paints the stroke in one colour, which may be transparent. Format_RGB32 of the mask's size.
    void paint(QImage& picture, const QColor& color, const QRect& clip) const;

private:
    struct Columns {
        int first = 0, end = 0; // end is not among them
    };

    bool holdsBeginningOf(const Stroke& stroke) const;
    void clear();
    Columns columnsOf(double first, double last) const;
    QRect addPiece(QPointF from, QPointF to);
    void addToRow(int row, QPointF from, QPointF to);
    uchar* row(int y) const { return m_bytes.get() + size_t(y) * size_t(m_size.width()); }

    QSize m_size;
    std::unique_ptr<uchar, decltype(&std::free)> m_bytes; // memory that is not touched costs nothing
    std::vector<Columns> m_touched;                       // a row each
    QRect m_bounds;                                       // of all that was touched
    double m_radius = 0;                                  // device pixels
    quint32 m_revision = 0;
    size_t m_count = 0; // points that are covered
    QTransform m_toPixels;
};
