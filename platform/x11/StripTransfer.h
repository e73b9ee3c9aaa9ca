#pragma once

#include "platform/WindowServer.h"
#include "platform/x11/PixelLayout.h"
#include "platform/x11/XSharedSegment.h"

#include <array>
#include <optional>

// Carries pictures to and from the server through two strips of shared memory that are used in turn: one side
// copies the one while the other side copies the other, and both stay in the processors' caches. That takes
// half the time of sharing fresh memory for the whole picture, and leaves only the strips, four megabytes, in
// use between the pictures.
class StripTransfer {
public:
    StripTransfer(std::shared_ptr<XConnection> connection, const PixelLayout& layout);
    ~StripTransfer();
    Q_DISABLE_COPY_MOVE(StripTransfer)

    // The root window's pixels of one moment, into an RGB32 picture of their size: other programs wait until
    // they are read. False when the server shares no memory, or for a rectangle that is not all on the
    // screen.
    bool read(QRect rootPixels, QImage& into);
    // Puts an RGB32 picture, dimmed, at a window's top-left corner. False when the
    // server shares no memory or has pixels of another kind.
    bool put(const QImage& picture, const Dimming& dimming, xcb_window_t window);

private:
    static constexpr int kStrips = 2;
    using Reading = xcb_shm_get_image_cookie_t;

    int rowsInStrip(int width) const;
    uchar* strip(int number) const;
    uint32_t offsetOf(int number) const;
    Reading startReading(QRect rootPixels, int number) const;
    void putRows(const QImage& picture, QRect rows, const Dimming& dimming, xcb_window_t window, int number);
    void waitUntilPut(int number);
    xcb_gcontext_t context();

    std::shared_ptr<XConnection> m_x;
    const PixelLayout m_layout;
    const std::unique_ptr<XSharedSegment> m_segment; // null when the server shares no memory
    xcb_gcontext_t m_context = XCB_NONE;             // made at its first use
    // Of the strips being put: answered once the server has read the strip.
    std::array<std::optional<xcb_get_input_focus_cookie_t>, kStrips> m_putting;
};
