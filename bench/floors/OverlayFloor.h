#pragma once

#include "bench/floors/GrabbedKey.h"
#include "bench/floors/SharedScreen.h"

#include <QAbstractNativeEventFilter>
#include <QWidget>

#include <vector>

// The least that a Qt program can do between a hot key and a dimmed picture of the screen, for one step of a
// region's drag on it and for one move between bright rectangles, with a cross and an enlarged sample at the
// pointer: everything is ready beforehand, nothing is decided. Escape hides it. Device pixels; for screens of
// a whole scale factor.
class OverlayFloor : public QWidget, private QAbstractNativeEventFilter {
public:
    OverlayFloor(xcb_connection_t* connection, xcb_keycode_t hotKey);

    // False when a key is another program's.
    bool begin();
    // It becomes the hole while the pointer is over it.
    void addBright(QRect pixels);

private:
    bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void paintPart(QPainter& painter, const QRect& part);
    void freezeAndShow();
    void moveAids(QPoint pointer);
    void setHole(QRect hole);
    void updatePixels(const QRegion& pixels);
    QRegion border() const;
    QRegion cross() const;
    QRect magnifier() const;

    xcb_connection_t* m_connection;
    const GrabbedKey m_hotKey;
    const GrabbedKey m_escape;
    SharedScreen m_screen;
    QImage m_picture;
    const int m_scale;
    QPoint m_start;
    QPoint m_pointer;
    QRect m_hole;
    std::vector<QRect> m_bright;
};
