#pragma once

#include "platform/WindowServer.h"
#include "platform/x11/PixelLayout.h"
#include "platform/x11/XSharedSegment.h"

#include <xcb/render.h>

class NativeDisplays;

// Reads the root window into memory that it shares with the server, and shows it from there again.
class NativeWindowServer final : public WindowServer {
public:
    NativeWindowServer(std::shared_ptr<XConnection> connection, const NativeDisplays& displays);
    ~NativeWindowServer() override;

    std::shared_ptr<const Frame> freeze(const DisplayRecord& display, QString* reason) override;
    bool present(const Frame& frame, const QWindow& window, double dim) override;

private:
    QImage read(QRect rootPixels, QString* reason);
    QImage readShared(QRect rootPixels);
    QImage readOverSocket(QRect rootPixels) const;
    bool canPresent(const Frame& frame, const QWindow& window) const;
    void put(const XSharedSegment& segment, QSize size, xcb_window_t window);
    void darken(QSize size, xcb_window_t window, double opacity);

    std::shared_ptr<XConnection> m_x;
    const NativeDisplays& m_displays;
    const PixelLayout m_layout;
    const bool m_canShare;
    const xcb_render_pictformat_t m_rootFormat; // 0 without the RENDER extension
    xcb_gcontext_t m_gc = XCB_NONE;             // made at its first use
    // The last frame and its memory, as long as it has an owner: the one that can be presented.
    std::weak_ptr<const Frame> m_frame;
    std::weak_ptr<const XSharedSegment> m_segment;
};
