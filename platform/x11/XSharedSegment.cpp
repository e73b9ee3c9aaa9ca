#include "platform/x11/XSharedSegment.h"

#include <sys/mman.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

// An anonymous file of that length; -1 when the system has none.
int openMemory(size_t bytes)
{
    const int file = memfd_create("frame", MFD_CLOEXEC);
    if (file >= 0 && ftruncate(file, off_t(bytes)) != 0) {
        close(file);
        return -1;
    }
    return file;
}

// Only such a connection carries a file; over another one the attempt would break it.
bool isLocal(const XConnection& x)
{
    sockaddr_storage address = {};
    socklen_t length = sizeof address;
    return getsockname(xcb_get_file_descriptor(x.get()), reinterpret_cast<sockaddr*>(&address), &length) ==
               0 &&
           address.ss_family == AF_UNIX;
}

// Since 1.2 a segment may be a file instead of a number that outlives a killed program.
bool takesFiles(const XConnection& x)
{
    if (!x.isAlive() || !isLocal(x) || !x.extension(&xcb_shm_id))
        return false;
    const auto cookie = xcb_shm_query_version(x.get());
    XReply<xcb_shm_query_version_reply_t> reply(xcb_shm_query_version_reply(x.get(), cookie, nullptr));
    return reply && (reply->major_version > 1 || reply->minor_version >= 2);
}

}

std::unique_ptr<XSharedSegment> XSharedSegment::create(std::shared_ptr<XConnection> connection, size_t bytes)
{
    const int file = takesFiles(*connection) ? openMemory(bytes) : -1;
    if (file < 0)
        return nullptr;
    void* data = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    if (data == MAP_FAILED) {
        close(file);
        return nullptr;
    }
    return std::unique_ptr<XSharedSegment>(
        new XSharedSegment(std::move(connection), file, static_cast<uchar*>(data), bytes));
}

// xcb closes the file once it is sent. A server that cannot attach it refuses every use of the segment.
XSharedSegment::XSharedSegment(std::shared_ptr<XConnection> connection, int file, uchar* data, size_t bytes)
    : m_x(std::move(connection))
    , m_id(xcb_generate_id(m_x->get()))
    , m_data(data)
    , m_bytes(bytes)
{
    m_x->discard(xcb_shm_attach_fd_checked(m_x->get(), m_id, file, false));
}

XSharedSegment::~XSharedSegment()
{
    munmap(m_data, m_bytes);
    m_x->discard(xcb_shm_detach_checked(m_x->get(), m_id));
    xcb_flush(m_x->get());
}
