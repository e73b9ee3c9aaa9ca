#pragma once

#include "geometry/ZRRect.h"

#include <QColor>
#include <QMouseEvent>
#include <QWidget>

#include <optional>

// A mouse event as a View hands it on.
struct ZRMouseEvent {
    ZRPoint location;                      // points, origin bottom-left of the view's window, y grows upwards
    Qt::MouseButton button = Qt::NoButton; // the button that changed; none for a movement
    int clickCount = 1;                    // 2 for the press that makes a double click
};

// The base of what stands on the overlay: the one place where Qt's downward y is turned round. Rectangles and
// points of a View are points with the origin at its bottom-left corner and y growing upwards.
class View : public QWidget {
public:
    explicit View(QWidget* parent = nullptr, Qt::WindowFlags flags = {});

    // The exact height in points. Qt rounds a widget's size to whole points, which at a fractional scale
    // factor is not the height of the device pixels below it. Until it is set, Qt's height holds.
    void setExactHeight(double points) { m_exactHeight = points; }
    double exactHeight() const { return m_exactHeight > 0 ? m_exactHeight : height(); }
    // What the view, with those in it, draws on the device pixel that begins at a point; nothing beside it.
    std::optional<QColor> getPixlColorAtLocation(ZRPoint location);
    // Puts a child at a rectangle of this view.
    void place(QWidget& child, ZRRect rect) const;
    // A point of the widget, as Qt counts it, in the view's points.
    ZRPoint ownPoint(QPointF widgetPoint) const;
    // The view's place in its window: points, origin bottom-left of the window.
    ZRRect frameInWindow() const;
    // Whether an event at that location of the window is over the view. A location is the top left corner of
    // its pixel, so the view's left and top edges belong to it, its right and bottom edges do not.
    bool isUnder(ZRPoint location) const;

protected:
    // The device pixels of a rectangle, y growing downwards from the top; edges rounded to the nearest pixel.
    QRect devicePixels(ZRRect rect) const;
    // The event with its location in the view's window; exact at every scale factor.
    ZRMouseEvent translated(const QSinglePointEvent& event) const;

private:
    double windowHeight() const;

    double m_exactHeight = 0;
};
