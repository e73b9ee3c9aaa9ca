#include "platform/x11/NativeWindowServer.h"

#include "platform/x11/HugePages.h"
#include "platform/x11/NativeDisplays.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

namespace {

constexpr qsizetype kMostSpareBytes = qsizetype(14) << 20;

}

NativeWindowServer::NativeWindowServer(
    std::shared_ptr<XConnection> connection, const NativeDisplays& displays)
    : m_x(std::move(connection))
    , m_displays(displays)
    , m_layout(PixelLayout::ofRoot(*m_x))
    , m_strips(m_x, m_layout)
    , m_windows(m_x)
{
}

std::vector<WindowRecord> NativeWindowServer::onScreenWindows() const
{
    std::vector<WindowRecord> windows = m_windows.read();
    for (WindowRecord& window : windows)
        window.pixels.translate(-m_displays.originOnRoot());
    return windows;
}

std::optional<WindowRecord> NativeWindowServer::activeWindow() const
{
    auto window = m_windows.active();
    if (window)
        window->pixels.translate(-m_displays.originOnRoot());
    return window;
}

void NativeWindowServer::prepare(const DisplayRecord& display)
{
    const QSize size = display.pixels.size();
    if (m_spare.size() == size)
        return;
    m_spare = imageInHugePages(size);
    if (!m_spare.isNull()) // takes the memory now
        std::memset(m_spare.bits(), 0, size_t(std::min(m_spare.sizeInBytes(), kMostSpareBytes)));
}

std::shared_ptr<const Frame> NativeWindowServer::freeze(const DisplayRecord& display, QString* reason)
{
    const auto fail = [reason](const QString& text) {
        if (reason)
            *reason = text;
        return nullptr;
    };
    if (!m_x->isAlive())
        return fail(QStringLiteral("the X server is gone"));
    if (!m_layout.isReadable())
        return fail(QStringLiteral("a screen of depth %1 cannot be read").arg(m_layout.depth));
    const QRect rootPixels = display.pixels.translated(m_displays.originOnRoot());
    QImage image = takeSpare(rootPixels.size());
    if (image.isNull())
        return fail(QStringLiteral("there is not enough memory for the display's pixels"));
    if (!m_strips.read(rootPixels, image) && !readOverConnection(rootPixels, image))
        return fail(QStringLiteral("the X server did not give the display's pixels"));
    return std::make_shared<const Frame>(display, image);
}

bool NativeWindowServer::present(const Frame& frame, const QWindow& window, const Dimming& dimming)
{
    // A window with an alpha channel has pixels of another kind than the screen.
    const bool hasAlpha = window.requestedFormat().alphaBufferSize() > 0;
    cutToDisplay(window, frame.display());
    return !hasAlpha && m_strips.put(frame.image(), dimming, xcb_window_t(window.winId()));
}

// Qt counts a window's size in whole points, which at a fractional scale factor may reach into the next
// display.
void NativeWindowServer::cutToDisplay(const QWindow& window, const DisplayRecord& display) const
{
    const QSize pixels = display.pixels.size();
    if (QSizeF(window.size()) * window.devicePixelRatio() == QSizeF(pixels))
        return;
    const std::array<uint32_t, 2> size{uint32_t(pixels.width()), uint32_t(pixels.height())};
    xcb_configure_window(m_x->get(), xcb_window_t(window.winId()),
        XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT, size.data());
}

// A compositing manager owns this selection.
bool NativeWindowServer::blendsWindows() const
{
    const auto cookie = xcb_get_selection_owner(m_x->get(), m_x->atom("_NET_WM_CM_S0"));
    const XReply<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(m_x->get(), cookie, nullptr));
    return reply && reply->owner != XCB_NONE;
}

QImage NativeWindowServer::takeSpare(QSize size)
{
    QImage spare = std::exchange(m_spare, QImage());
    return spare.size() == size ? spare : imageInHugePages(size);
}

bool NativeWindowServer::readOverConnection(QRect r, QImage& into) const
{
    const auto cookie = xcb_get_image(
        m_x->get(), XCB_IMAGE_FORMAT_Z_PIXMAP, m_x->root(), r.x(), r.y(), r.width(), r.height(), 0xffffffff);
    XReply<xcb_get_image_reply_t> reply(xcb_get_image_reply(m_x->get(), cookie, nullptr));
    if (reply)
        m_layout.convert(xcb_get_image_data(reply.get()), r.height(), into, 0);
    return reply != nullptr;
}
