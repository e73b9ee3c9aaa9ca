#pragma once

#include "editor/TextRules.h"

#include <QPainter>
#include <QTextLayout>

// One line of text, laid out to be painted: the same on the screen and in a picture. Never wrapped, written
// in the direction of its first letter. Places in it are UTF-16 units; x in points from its left end.
class TextLine {
public:
    // `formats` of parts that do not look like the rest, such as what an input method has not yet committed.
    TextLine(const QString& text, const QFont& font, const QList<QTextLayout::FormatRange>& formats = {});

    bool isEmpty() const { return m_layout.text().isEmpty(); }
    // Italics and the like may reach beyond it.
    ZRSize size() const;
    double xOf(qsizetype location) const;
    // The place between two letters that is nearest to x.
    qsizetype locationAt(double x) const;

    // Paint with `topLeft` on the nearest device pixel: points, which `toPixels` leads to the device pixels
    // that the painter's unit is.
    void paint(QPainter& painter, const QTransform& toPixels, ZRPoint topLeft, const QColor& color) const;
    void paintSelected(
        QPainter& painter, const QTransform& toPixels, ZRPoint topLeft, TextRules::Range selected) const;
    void paintCaret(QPainter& painter, const QTransform& toPixels, ZRPoint topLeft, qsizetype location,
        const QColor& color) const;

private:
    QTextLayout m_layout;
};
