#pragma once

#include "editor/EntityRecord.h"

#include <QPainter>

#include <optional>

// The handles and the border of a selected annotation, which only the screen shows. Points, in the space of
// the record.
struct FocusMarks {
    std::vector<ZRPoint> handles; // their middles
    std::optional<ZRRect> border;

    // Nothing for an annotation that is not selected, or of which nothing is to be seen.
    static FocusMarks of(const EntityRecord& record);

    void paint(QPainter& painter) const;
    // Rectangles that hold all that paint() touches.
    std::vector<ZRRect> bounds() const;
};
