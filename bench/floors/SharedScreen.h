#pragma once

#include <QImage>

#include <xcb/shm.h>

// The whole screen, read by the server into one shared segment that is kept: the quickest way there is.
class SharedScreen {
public:
    explicit SharedScreen(xcb_connection_t* connection); // not owned
    ~SharedScreen();
    SharedScreen(const SharedScreen&) = delete;
    SharedScreen& operator=(const SharedScreen&) = delete;

    // The screen as it is now, RGB32; null when it cannot be read. Valid until the next call.
    QImage read();

private:
    xcb_connection_t* m_connection;
    const xcb_screen_t* m_screen;
    xcb_shm_seg_t m_segment;
    uchar* m_pixels = nullptr; // the segment, or null when there is none
};
