#pragma once

#include "customui/View.h"
#include "platform/DisplayRecord.h"

#include <QPainter>
#include <QRegion>

// A transparent view over a whole display that draws on small parts of it: what changes is repainted and
// nothing else, by device pixel at every scale factor. It takes no mouse events. Its coordinates are overlay
// points; regions are y down from the top.
class ChromeLayer : public View {
public:
    explicit ChromeLayer(QWidget* parent);

    // Fits the view, which its parent or its own size makes as large as the display's widget, and the layers
    // in it to a display, and makes ready what the first painting needs.
    void coverDisplay(const DisplayRecord& display);
    // The points that this layer and those in it draw on now.
    QRegion touchedPoints() const;

protected:
    // Draws a kept picture anew for this device pixel ratio.
    virtual void makeReady() { }
    // The device pixels that the layer draws on now.
    virtual QRegion touchedPixels() const = 0;
    // The painter's unit is a device pixel; `dirty` are device pixels.
    virtual void paintPixels(QPainter& painter, const QRegion& dirty) = 0;

    // The display's size: its exact one once coverDisplay() has told, the widget's before.
    ZRSize displaySize() const;
    QSize displayPixels() const;
    // The device pixel that begins at a point.
    QPoint pixelAt(ZRPoint point) const { return devicePixels({point.x, point.y, 0, 0}).topLeft(); }
    void updatePixels(const QRegion& pixels) { update(pointsOf(pixels)); }
    // Carries out a change and repaints what was and what is now drawn on.
    template <class Change>
    void repaintAround(Change change)
    {
        const QRegion before = touchedPixels();
        change();
        updatePixels(before + touchedPixels());
    }

private:
    void paintEvent(QPaintEvent* event) final;
    QList<ChromeLayer*> layersInside() const;
    QRegion pointsOf(const QRegion& pixels) const;

    double m_exactWidth = 0; // points
};
