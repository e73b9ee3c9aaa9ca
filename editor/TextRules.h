#pragma once

#include "geometry/ZRRect.h"

#include <QFont>
#include <QString>

#include <functional>

// The sizes of a text box, of the field inside it and of the text inside that. Points, y grows upwards.
namespace TextRules {

// A part of a text: UTF-16 units.
struct Range {
    qsizetype location = 0;
    qsizetype length = 0;
    friend bool operator==(Range, Range) = default;
};

// One step of editing: in the text of before, `range` gives way to `replacement`.
struct Change {
    QString before;
    Range range;
    QString replacement;
    friend bool operator==(const Change&, const Change&) = default;
};
// The step that led from one text to another. Where it replaced what was selected before it, that is its
// range; else it is the smallest one that does.
Change changeBetween(const QString& before, Range selected, const QString& after);
// The word, or what stands between two words, at a place in a text.
Range wordAt(const QString& text, qsizetype location);

using Measure = std::function<double(const QString&)>; // the width of a text
// The field's width after a step. Kept: the minimum is 95 after a deletion and 90 otherwise, the margin of 5
// begins at a width of 80, and a replaced selection counts with its last character.
double fieldWidth(const Change& change, const Measure& width);

ZRSize measured(const QString& text, const QFont& font);
// The box of a new text at a press: the pointer stands before its first letter, half-way up.
ZRRect newBox(ZRPoint press, const QFont& font);
// The box's size for a text in a new font.
ZRSize boxSize(const QString& text, const QFont& font);
// The field inside a box.
ZRRect fieldRect(ZRRect box);
double boxWidth(double fieldWidth);
// The top left corner of the text inside a box.
ZRPoint textCorner(ZRRect box);

}
