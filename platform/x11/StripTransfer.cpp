#include "platform/x11/StripTransfer.h"

#include <QPainter>

#include <algorithm>
#include <cstring>

namespace {

constexpr size_t kStripBytes = size_t(2) << 20;
constexpr uint32_t kAllPlanes = 0xffffffff;

// By Qt's painter, so that every pixel is the one which a window would paint itself.
void darken(QImage& picture, const Dimming& dimming)
{
    const QColor veil(0, 0, 0, qRound(std::clamp(dimming.opacity, 0.0, 1.0) * 255));
    QPainter painter(&picture);
    for (const QRect& dark : QRegion(picture.rect()).subtracted(dimming.bright))
        painter.fillRect(dark, veil);
}

// Other programs' requests wait for as long as it lives.
class ServerGrab {
public:
    explicit ServerGrab(xcb_connection_t* connection)
        : m_connection(connection)
    {
        xcb_grab_server(m_connection);
    }
    ~ServerGrab()
    {
        xcb_ungrab_server(m_connection);
        xcb_flush(m_connection);
    }
    Q_DISABLE_COPY_MOVE(ServerGrab)

private:
    xcb_connection_t* const m_connection;
};

// `whole` cut into rectangles of full width, from the top.
std::vector<QRect> cutIntoRows(QRect whole, int rows)
{
    std::vector<QRect> parts;
    for (int y = whole.top(); y <= whole.bottom(); y += rows)
        parts.push_back(QRect(whole.left(), y, whole.width(), std::min(rows, whole.bottom() + 1 - y)));
    return parts;
}

}

StripTransfer::StripTransfer(std::shared_ptr<XConnection> connection, const PixelLayout& layout)
    : m_x(std::move(connection))
    , m_layout(layout)
    , m_segment(XSharedSegment::create(m_x, kStripBytes * kStrips))
{
}

StripTransfer::~StripTransfer()
{
    for (int number = 0; number < kStrips; ++number)
        waitUntilPut(number);
    if (m_context != XCB_NONE)
        m_x->discard(xcb_free_gc_checked(m_x->get(), m_context));
}

bool StripTransfer::read(QRect rootPixels, QImage& into)
{
    if (!m_segment)
        return false;
    const ServerGrab grab(m_x->get());
    const std::vector<QRect> parts = cutIntoRows(rootPixels, rowsInStrip(rootPixels.width()));
    const int count = int(parts.size());
    std::array<Reading, kStrips> readings;
    for (int i = 0; i < std::min(kStrips, count); ++i)
        readings[i] = startReading(parts[i], i);
    bool isComplete = true;
    for (int i = 0; i < count; ++i) {
        const int number = i % kStrips;
        XReply<xcb_shm_get_image_reply_t> reply(
            xcb_shm_get_image_reply(m_x->get(), readings[number], nullptr));
        isComplete = isComplete && reply;
        if (isComplete)
            m_layout.convert(strip(number), parts[i].height(), into, parts[i].top() - rootPixels.top());
        if (i + kStrips < count)
            readings[number] = startReading(parts[i + kStrips], number);
    }
    return isComplete;
}

bool StripTransfer::put(const QImage& picture, const Dimming& dimming, xcb_window_t window)
{
    if (!m_segment || !m_layout.isRgb32() || !m_x->isAlive())
        return false;
    int number = 0;
    for (const QRect& rows : cutIntoRows(picture.rect(), rowsInStrip(picture.width()))) {
        waitUntilPut(number);
        putRows(picture, rows, dimming, window, number);
        number = (number + 1) % kStrips;
    }
    return true;
}

int StripTransfer::rowsInStrip(int width) const
{
    return std::max(1, int(kStripBytes / size_t(m_layout.bytesPerLine(width))));
}

uchar* StripTransfer::strip(int number) const
{
    return m_segment->data() + offsetOf(number);
}

uint32_t StripTransfer::offsetOf(int number) const
{
    return uint32_t(kStripBytes) * number;
}

StripTransfer::Reading StripTransfer::startReading(QRect r, int number) const
{
    const Reading reading = xcb_shm_get_image(m_x->get(), m_x->root(), r.x(), r.y(), r.width(), r.height(),
        kAllPlanes, XCB_IMAGE_FORMAT_Z_PIXMAP, m_segment->id(), offsetOf(number));
    xcb_flush(m_x->get());
    return reading;
}

void StripTransfer::putRows(
    const QImage& picture, QRect rows, const Dimming& dimming, xcb_window_t window, int number)
{
    QImage part(strip(number), rows.width(), rows.height(), m_layout.bytesPerLine(rows.width()),
        QImage::Format_RGB32);
    for (int y = 0; y < rows.height(); ++y)
        std::memcpy(part.scanLine(y), picture.constScanLine(rows.top() + y), size_t(rows.width()) * 4);
    darken(part, {dimming.opacity, dimming.bright.translated(0, -rows.top())});
    m_x->discard(xcb_shm_put_image_checked(m_x->get(), window, context(), rows.width(), rows.height(), 0, 0,
        rows.width(), rows.height(), 0, rows.top(), m_layout.depth, XCB_IMAGE_FORMAT_Z_PIXMAP, false,
        m_segment->id(), offsetOf(number)));
    m_putting[number] = xcb_get_input_focus(m_x->get()); // any request that is answered
    xcb_flush(m_x->get());
}

void StripTransfer::waitUntilPut(int number)
{
    if (const auto cookie = std::exchange(m_putting[number], std::nullopt))
        XReply<xcb_get_input_focus_reply_t>(xcb_get_input_focus_reply(m_x->get(), *cookie, nullptr));
}

xcb_gcontext_t StripTransfer::context()
{
    if (m_context == XCB_NONE) {
        m_context = xcb_generate_id(m_x->get());
        m_x->discard(xcb_create_gc_checked(m_x->get(), m_context, m_x->root(), 0, nullptr));
    }
    return m_context;
}
