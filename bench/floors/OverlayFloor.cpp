#include "bench/floors/OverlayFloor.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>

namespace {

constexpr xcb_keycode_t kEscape = 9;
constexpr QSize kMagnifier(170, 206); // points, as the following
constexpr QPoint kFromPointer(10, 15);
constexpr int kSample = 32;
constexpr int kLens = 160;

}

OverlayFloor::OverlayFloor(xcb_connection_t* connection, xcb_keycode_t hotKey)
    : QWidget(nullptr,
          Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::BypassWindowManagerHint | Qt::Tool)
    , m_connection(connection)
    , m_hotKey(hotKey, XCB_MOD_MASK_4)
    , m_escape(kEscape, 0)
    , m_screen(connection)
    , m_scale(int(QGuiApplication::primaryScreen()->devicePixelRatio()))
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
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
}

void OverlayFloor::freezeAndShow()
{
    m_picture = m_screen.read();
    m_hole = {};
    m_pointer = QCursor::pos() * m_scale;
    show();
}

void OverlayFloor::mousePressEvent(QMouseEvent* event)
{
    m_start = (event->scenePosition() * m_scale).toPoint();
}

void OverlayFloor::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint point = (event->scenePosition() * m_scale).toPoint();
    moveAids(point);
    if (event->buttons())
        return setHole(QRect(m_start, point - QPoint(1, 1)).normalized());
    for (const QRect& pixels : m_bright)
        if (pixels.contains(point) && pixels != m_hole)
            setHole(pixels);
}

void OverlayFloor::moveAids(QPoint pointer)
{
    const QRegion before = cross() + magnifier();
    m_pointer = pointer;
    updatePixels(before + cross() + magnifier());
}

void OverlayFloor::setHole(QRect hole)
{
    const QRegion oldHole = m_hole;
    const QRegion oldBorder = border();
    m_hole = hole;
    updatePixels(oldHole.xored(m_hole) + oldBorder + border());
}

void OverlayFloor::updatePixels(const QRegion& pixels)
{
    QRegion points;
    for (const QRect& r : pixels)
        points += QRect(r.topLeft() / m_scale, (r.bottomRight() + QPoint(1, 1)) / m_scale);
    update(points);
}

void OverlayFloor::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    painter.scale(1.0 / m_scale, 1.0 / m_scale);
    QRegion dirty;
    for (const QRect& r : event->region())
        dirty += QRect(r.topLeft() * m_scale, r.size() * m_scale);
    for (const QRect& part : dirty)
        paintPart(painter, part);
}

void OverlayFloor::paintPart(QPainter& painter, const QRect& part)
{
    painter.setClipRect(part); // a clip of several rectangles is many times as slow
    painter.drawImage(part.topLeft(), m_picture, part);
    for (const QRect& dimmed : QRegion(part).subtracted(m_hole))
        painter.fillRect(dimmed, QColor(0, 0, 0, 128));
    for (const QRect& edge : (border() + cross()) & part)
        painter.fillRect(edge, QColor(64, 171, 250));
    const QRect lens(magnifier().topLeft(), QSize(kLens, kLens) * m_scale);
    const int half = kSample / 2 * m_scale;
    if (part.intersects(lens))
        painter.drawImage(lens, m_picture, QRect(m_pointer, QSize()).adjusted(-half, -half, half, half));
}

QRegion OverlayFloor::border() const
{
    if (m_hole.isEmpty())
        return {};
    return QRegion(m_hole.adjusted(-1, -1, 1, 1)).subtracted(m_hole.adjusted(1, 1, -1, -1));
}

QRegion OverlayFloor::cross() const
{
    const QSize screen = size() * m_scale;
    return QRegion(0, m_pointer.y() - m_scale, screen.width(), 2 * m_scale) +
           QRect(m_pointer.x() - m_scale, 0, 2 * m_scale, screen.height());
}

QRect OverlayFloor::magnifier() const
{
    return {m_pointer + kFromPointer * m_scale, kMagnifier * m_scale};
}
