#pragma once

#include "editor/EntityRecord.h"
#include "editor/StrokeMask.h"

#include <QPainter>
#include <QTransform>

// Paints annotations into a picture: the one routine for what the user sees and for what
// goes out. It never reads the focus, so no handle gets into a picture. Format_RGB32, device pixels.
class GraffitPainter {
public:
    GraffitPainter() = default;
    // For pictures of a size; `toPixels` leads from the records' points to their device pixels.
    GraffitPainter(QSize pixels, const QTransform& toPixels);

    void setSpace(const QTransform& toPixels) { m_toPixels = toPixels; }

    // The pixels that an annotation may touch; empty for one that draws nothing.
    QRect pixelBounds(const EntityRecord& record) const;
    // Where a stroke that was painted last has grown by points at its end, the pixels of the new pieces; they
    // are all that changed. Empty for everything else.
    QRect grownPixels(const EntityRecord& record);
    void paint(QImage& picture, const EntityRecord& record, const QRect& clip);

private:
    struct Canvas {
        QImage& picture;
        QRect clip;
    };
    void _drawSquareWithRect(QPainter& painter, const EntityRecord& record) const;
    void _drawEillpseWithRect(QPainter& painter, const EntityRecord& record) const;
    void _drawArrowWithDragPoints(QPainter& painter, const EntityRecord& record) const;
    void _drawLineWithDragPoints(QPainter& painter, const EntityRecord& record) const;
    void drawText(const Canvas& canvas, const EntityRecord& record) const;
    void drawPicture(const Canvas& canvas, const EntityRecord& record) const;
    void drawStroke(const Canvas& canvas, const EntityRecord& record);
    StrokeMask::Stroke stroke(const EntityRecord& record) const;

    QTransform m_toPixels;
    StrokeMask m_mask; // of the stroke that was painted last
};
