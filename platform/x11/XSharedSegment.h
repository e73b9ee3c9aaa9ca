#pragma once

#include "platform/x11/XConnection.h"

#include <QtGlobal>

#include <xcb/shm.h>

// Memory shared with the server. It has no name in the system: once both sides have let go, or died, it is
// gone.
class XSharedSegment {
public:
    // Null when the server or the system cannot. Its pages are made when they are first written.
    static std::unique_ptr<XSharedSegment> create(std::shared_ptr<XConnection> connection, size_t bytes);
    ~XSharedSegment();
    Q_DISABLE_COPY_MOVE(XSharedSegment)

    xcb_shm_seg_t id() const { return m_id; }
    uchar* data() const { return m_data; }

private:
    XSharedSegment(std::shared_ptr<XConnection> connection, int file, uchar* data, size_t bytes);

    const std::shared_ptr<XConnection> m_x;
    const xcb_shm_seg_t m_id;
    uchar* const m_data;
    const size_t m_bytes;
};
