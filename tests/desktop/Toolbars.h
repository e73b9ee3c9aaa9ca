#pragma once

#include "geometry/ZRRect.h"

#include <QPoint>
#include <QRect>

// Where the toolbars of a fixed region, and the ribbon of a tool, are on the screen. All that goes in and
// comes out is in device pixels, y growing downwards; places are the middles of what is there.
class Toolbars {
public:
    Toolbars(QRect display, double scale, QRect region);

    bool covers(QPoint pixel) const;
    QRect drawing() const { return pixels(m_drawing); }
    QRect output() const { return pixels(m_output); }

    // Of the drawing toolbar.
    QPoint tool(int digit) const { return drawingItem(digit - 1, 0); }
    QPoint undo() const { return drawingItem(9, 1); }
    QPoint redo() const { return drawingItem(10, 1); }
    QPoint ok() const { return drawingItem(11, 1); }
    // Of the output toolbar.
    QPoint cancel() const { return outputItem(0, 0); }
    QPoint share() const { return outputItem(1, 1); }
    QPoint upload() const { return outputItem(2, 1); }
    QPoint pin() const { return outputItem(3, 1); }
    QPoint copy() const { return outputItem(4, 1); }
    QPoint save() const { return outputItem(5, 1); }
    // In the ribbon of the share item, from the top.
    QPoint shareTarget(int index) const;

    // In the ribbon of a tool. `index` counts from the left, colours along the upper row and then the lower
    // one: black, the first mixtures, white, the rest.
    QPoint lineWidth(int digit, int index) const;
    QPoint color(int digit, int index) const;
    QPoint fontSize(int digit) const;
    QPoint mosaicSwitch(int digit) const;
    // In the list that fontSize() opens.
    QPoint fontSizeRow(int digit, int row) const;

private:
    QPoint drawingItem(int index, int separators) const;
    QPoint outputItem(int index, int separators) const;
    ZRRect toolItem(int digit) const;
    // The ribbon's content; the width is that of its tool.
    ZRRect content(int digit) const;
    QPoint pixel(ZRPoint point) const;
    QRect pixels(ZRRect rect) const;

    QRect m_display;
    double m_scale;
    ZRRect m_drawing, m_output; // points, y growing upwards
};
