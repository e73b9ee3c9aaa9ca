#include "platform/x11/NativeWindowServer.h"

#include "platform/x11/NativeDisplays.h"

#include <algorithm>
#include <thread>

namespace {

constexpr uint32_t kAllPlanes = 0xffffffff;

// Owned by the image, freed with its last copy.
using SegmentHolder = std::shared_ptr<XSharedSegment>;

QImage wrapped(SegmentHolder segment, QSize size)
{
    auto holder = std::make_unique<SegmentHolder>(std::move(segment));
    const uchar* rows = (*holder)->data();
    const auto letGo = [](void* memory) {
        std::unique_ptr<SegmentHolder>(static_cast<SegmentHolder*>(memory));
    };
    return QImage(
        rows, size.width(), size.height(), size.width() * 4, QImage::Format_RGB32, letGo, holder.release());
}

QImage wrapped(XReply<xcb_get_image_reply_t> reply, QSize size)
{
    const uchar* rows = xcb_get_image_data(reply.get());
    return QImage(rows, size.width(), size.height(), size.width() * 4, QImage::Format_RGB32, std::free,
        reply.release());
}

xcb_render_pictformat_t formatOfRoot(const XConnection& x)
{
    if (!x.screen() || !x.extension(&xcb_render_id))
        return 0;
    const auto cookie = xcb_render_query_pict_formats(x.get());
    XReply<xcb_render_query_pict_formats_reply_t> formats(
        xcb_render_query_pict_formats_reply(x.get(), cookie, nullptr));
    if (!formats)
        return 0;
    auto screen = xcb_render_query_pict_formats_screens_iterator(formats.get());
    for (; screen.rem; xcb_render_pictscreen_next(&screen)) {
        for (auto depth = xcb_render_pictscreen_depths_iterator(screen.data); depth.rem;
             xcb_render_pictdepth_next(&depth)) {
            for (auto visual = xcb_render_pictdepth_visuals_iterator(depth.data); visual.rem;
                 xcb_render_pictvisual_next(&visual)) {
                if (visual.data->visual == x.screen()->root_visual)
                    return visual.data->format;
            }
        }
    }
    return 0;
}

}

NativeWindowServer::NativeWindowServer(
    std::shared_ptr<XConnection> connection, const NativeDisplays& displays)
    : m_x(std::move(connection))
    , m_displays(displays)
    , m_layout(PixelLayout::ofRoot(*m_x))
    , m_canShare(XSharedSegment::isSupported(*m_x))
    , m_rootFormat(formatOfRoot(*m_x))
{
}

NativeWindowServer::~NativeWindowServer()
{
    if (m_gc != XCB_NONE)
        m_x->discard(xcb_free_gc_checked(m_x->get(), m_gc));
}

std::shared_ptr<const Frame> NativeWindowServer::freeze(const DisplayRecord& display, QString* reason)
{
    const QImage image = read(display.pixels.translated(m_displays.originOnRoot()), reason);
    if (image.isNull())
        return nullptr;
    auto frame = std::make_shared<const Frame>(display, image);
    m_frame = frame;
    return frame;
}

bool NativeWindowServer::present(const Frame& frame, const QWindow& window, double dim)
{
    const auto segment = m_segment.lock();
    if (!segment || !canPresent(frame, window))
        return false;
    const auto id = xcb_window_t(window.winId());
    put(*segment, frame.image().size(), id);
    darken(frame.image().size(), id, dim);
    return xcb_flush(m_x->get()) > 0;
}

QImage NativeWindowServer::read(QRect rootPixels, QString* reason)
{
    const auto fail = [reason](const QString& text) {
        if (reason)
            *reason = text;
        return QImage();
    };
    m_segment.reset();
    if (!m_x->isAlive())
        return fail(QStringLiteral("the X server is gone"));
    if (!m_layout.isReadable())
        return fail(QStringLiteral("a screen of depth %1 cannot be read").arg(m_layout.depth));
    QImage image = readShared(rootPixels);
    if (image.isNull())
        image = readOverSocket(rootPixels);
    return image.isNull() ? fail(QStringLiteral("the X server did not give the display's pixels")) : image;
}

// Null when the server cannot; also when the rectangle is not on the screen any more.
QImage NativeWindowServer::readShared(QRect r)
{
    if (!m_canShare || r.isEmpty())
        return {};
    const auto segment = XSharedSegment::create(m_x, size_t(m_layout.bytesPerLine(r.width())) * r.height());
    if (!segment)
        return {};
    const auto cookie = xcb_shm_get_image(m_x->get(), m_x->root(), r.x(), r.y(), r.width(), r.height(),
        kAllPlanes, XCB_IMAGE_FORMAT_Z_PIXMAP, segment->id(), 0);
    xcb_flush(m_x->get());
    segment->prepareSecondHalf();
    XReply<xcb_shm_get_image_reply_t> reply(xcb_shm_get_image_reply(m_x->get(), cookie, nullptr));
    if (!reply)
        return {};
    if (!m_layout.isRgb32())
        return m_layout.converted(segment->data(), r.size());
    m_segment = segment;
    return wrapped(segment, r.size());
}

QImage NativeWindowServer::readOverSocket(QRect r) const
{
    const auto cookie = xcb_get_image(
        m_x->get(), XCB_IMAGE_FORMAT_Z_PIXMAP, m_x->root(), r.x(), r.y(), r.width(), r.height(), kAllPlanes);
    XReply<xcb_get_image_reply_t> reply(xcb_get_image_reply(m_x->get(), cookie, nullptr));
    if (!reply)
        return {};
    if (!m_layout.isRgb32())
        return m_layout.converted(xcb_get_image_data(reply.get()), r.size());
    return wrapped(std::move(reply), r.size());
}

// A window with an alpha channel has another depth than the screen, and no pixels of it.
bool NativeWindowServer::canPresent(const Frame& frame, const QWindow& window) const
{
    return m_rootFormat && m_frame.lock().get() == &frame && window.requestedFormat().alphaBufferSize() <= 0;
}

void NativeWindowServer::put(const XSharedSegment& segment, QSize size, xcb_window_t window)
{
    if (m_gc == XCB_NONE) {
        m_gc = xcb_generate_id(m_x->get());
        m_x->discard(xcb_create_gc_checked(m_x->get(), m_gc, m_x->root(), 0, nullptr));
    }
    m_x->discard(
        xcb_shm_put_image_checked(m_x->get(), window, m_gc, size.width(), size.height(), 0, 0, size.width(),
            size.height(), 0, 0, m_layout.depth, XCB_IMAGE_FORMAT_Z_PIXMAP, false, segment.id(), 0));
}

// The alpha is the nearest byte, as Qt takes it, doubled to the server's sixteen bits. Every level of a
// half-dark picture comes out as QPainter's fillRect makes it; at other opacities some are one level apart.
void NativeWindowServer::darken(QSize size, xcb_window_t window, double opacity)
{
    const auto alpha = uint16_t(qRound(std::clamp(opacity, 0.0, 1.0) * 255) * 257);
    const xcb_rectangle_t all{0, 0, uint16_t(size.width()), uint16_t(size.height())};
    const xcb_render_picture_t picture = xcb_generate_id(m_x->get());
    m_x->discard(xcb_render_create_picture_checked(m_x->get(), picture, window, m_rootFormat, 0, nullptr));
    m_x->discard(xcb_render_fill_rectangles_checked(
        m_x->get(), XCB_RENDER_PICT_OP_OVER, picture, {0, 0, 0, alpha}, 1, &all));
    m_x->discard(xcb_render_free_picture_checked(m_x->get(), picture));
}
