#pragma once

#include "editor/EntityRecord.h"

#include <QPainter>

#include <optional>

// The handles and the border of a selected annotation, and the caret of a text, which only the screen shows.
// Points, in the space of the record.
struct FocusMarks {
    enum class Look {
        Circles,
        Squares
    }; // that resize, with a red border; or that only tell, with a dashed one
    Look look = Look::Circles;
    std::vector<ZRPoint> handles; // their middles
    std::optional<ZRRect> border;
    double borderWidth = 0;
    // The text whose caret and selection are shown.
    std::shared_ptr<const TextLine> text{};
    TextCursor textCursor{};
    ZRPoint textCorner{};
    QColor textColor{};

    // Nothing for an annotation that is not selected, or of which nothing is to be seen.
    static FocusMarks of(const EntityRecord& record);

    // `toPixels` leads from the points to the units of the painter, its device pixels.
    void paint(QPainter& painter, const QTransform& toPixels) const;
    // Rectangles that hold all that paint() touches.
    std::vector<ZRRect> bounds() const;

private:
    ZRRect handleRect(ZRPoint middle) const;
    void paintCircles(QPainter& painter) const;
    void paintSquares(QPainter& painter) const;
    void paintText(QPainter& painter, const QTransform& toPixels) const;
};
