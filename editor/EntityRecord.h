#pragma once

#include "editor/TextRules.h"
#include "geometry/ZRRect.h"

#include <QColor>
#include <QImage>
#include <QString>
#include <QVariantMap>

#include <memory>
#include <optional>
#include <vector>

class TextLine;

// A place that the pointer passed while an annotation was drawn: points of the editor view.
struct DragPoint {
    float x = 0, y = 0;
    ZRPoint point() const { return {x, y}; }
    friend bool operator==(DragPoint, DragPoint) = default;
};
using DragPoints = std::vector<DragPoint>;

// Where the caret stands in a text and what is selected of it: UTF-16 units.
struct TextCursor {
    qsizetype caret = 0;
    TextRules::Range selection;
};

// What is drawn of one annotation, at one moment. Points of the editor view.
struct EntityRecord {
    ZRRect bounds;
    QString idName; // the tool that made it
    bool focusOn = false;
    const DragPoints* dragPoints = nullptr; // the annotation's own, which it outlives
    qint32 drawLineWidth = 3;
    QColor drawColor;
    bool needBorder = false;
    ZRRect pointExtent{}; // of all drag points; the zero rectangle for none
    // Another one for every annotation, and after every change of points other than one more at the end.
    quint32 revision = 0;
    std::shared_ptr<const TextLine> text{}; // of a text box
    std::optional<TextCursor> textCursor{}; // while the text is edited
    QImage picture{};                       // that hides what is below `bounds`; device pixels

    bool hasPoints() const { return dragPoints && !dragPoints->empty(); }
    // The first and the last point; only where there are points.
    ZRPoint start() const { return dragPoints->front().point(); }
    ZRPoint end() const { return dragPoints->back().point(); }

    // The record as a dictionary, its values copied.
    QVariantMap dictionary() const;
    // A rectangle in the text form of the dictionary; what cannot be read counts as 0.
    static QString boundsText(ZRRect bounds);
    static ZRRect boundsFromText(const QString& text);
};
