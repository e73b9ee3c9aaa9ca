#pragma once

#include "platform/x11/XConnection.h"

#include <QtGlobal>

#include <xcb/shm.h>

// Memory shared with the server. It has no name in the system: once both sides have let go, or died, it is
// gone.
class XSharedSegment {
public:
    // Null when the server or the system cannot. Its pages are made when they are first written.
    static std::shared_ptr<XSharedSegment> create(
        const std::shared_ptr<XConnection>& connection, size_t bytes);
    // Whether the server takes segments over this connection.
    static bool isSupported(const XConnection& connection);
    ~XSharedSegment();
    Q_DISABLE_COPY_MOVE(XSharedSegment)

    xcb_shm_seg_t id() const { return m_id; }
    uchar* data() const { return m_data; }
    size_t size() const { return m_bytes; }
    // Makes the pages of the second half. While the server fills the segment from the front this halves the
    // time it waits for the kernel to clear pages.
    void prepareSecondHalf() const;

private:
    XSharedSegment(std::weak_ptr<XConnection> connection, uchar* data, size_t bytes, int file);

    const std::weak_ptr<XConnection> m_x; // a segment may outlive it
    const xcb_shm_seg_t m_id;
    uchar* const m_data;
    const size_t m_bytes;
};
