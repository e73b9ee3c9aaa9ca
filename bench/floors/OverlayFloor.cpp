#include "bench/floors/OverlayFloor.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>

namespace {

constexpr xcb_keycode_t kEscape = 9;

}

OverlayFloor::OverlayFloor(xcb_connection_t* connection, xcb_keycode_t hotKey)
    : QWidget(nullptr,
          Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::BypassWindowManagerHint | Qt::Tool)
    , m_connection(connection)
    , m_hotKey(hotKey, XCB_MOD_MASK_4)
    , m_escape(kEscape, 0)
    , m_screen(connection)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setGeometry(QGuiApplication::primaryScreen()->geometry());
    createWinId();
}

bool OverlayFloor::begin()
{
    QCoreApplication::instance()->installNativeEventFilter(this);
    return m_hotKey.grab(m_connection) && m_escape.grab(m_connection);
}

bool OverlayFloor::nativeEventFilter(const QByteArray&, void* message, qintptr*)
{
    if (m_escape.isPressedBy(message))
        hide();
    else if (m_hotKey.isPressedBy(message) && !isVisible())
        freezeAndShow();
    return false;
}

void OverlayFloor::addBright(QRect pixels)
{
    m_bright.push_back(pixels);
    setMouseTracking(true);
}

void OverlayFloor::freezeAndShow()
{
    m_picture = m_screen.read();
    m_hole = {};
    show();
}

void OverlayFloor::mousePressEvent(QMouseEvent* event)
{
    m_start = event->position().toPoint();
}

void OverlayFloor::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint point = event->position().toPoint();
    if (event->buttons())
        return setHole(QRect(m_start, point - QPoint(1, 1)).normalized());
    for (const QRect& pixels : m_bright)
        if (pixels.contains(point) && pixels != m_hole)
            setHole(pixels);
}

void OverlayFloor::setHole(QRect hole)
{
    const QRegion oldHole = m_hole;
    const QRegion oldBorder = border();
    m_hole = hole;
    update(oldHole.xored(m_hole) + oldBorder + border());
}

void OverlayFloor::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    for (const QRect& dirty : event->region())
        painter.drawImage(dirty.topLeft(), m_picture, dirty);
    for (const QRect& dimmed : event->region().subtracted(m_hole))
        painter.fillRect(dimmed, QColor(0, 0, 0, 128));
    for (const QRect& edge : border())
        painter.fillRect(edge, QColor(64, 171, 250));
}

QRegion OverlayFloor::border() const
{
    if (m_hole.isEmpty())
        return {};
    return QRegion(m_hole.adjusted(-1, -1, 1, 1)).subtracted(m_hole.adjusted(1, 1, -1, -1));
}
