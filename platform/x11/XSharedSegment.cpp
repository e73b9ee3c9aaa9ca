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

}

std::shared_ptr<XSharedSegment> XSharedSegment::create(
    const std::shared_ptr<XConnection>& connection, size_t bytes)
{
    const int file = openMemory(bytes);
    if (file < 0)
        return nullptr;
    void* data = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    if (data == MAP_FAILED) {
        close(file);
        return nullptr;
    }
    return std::shared_ptr<XSharedSegment>(
        new XSharedSegment(connection, static_cast<uchar*>(data), bytes, file));
}

bool XSharedSegment::isSupported(const XConnection& connection)
{
    if (!connection.isAlive() || !isLocal(connection) || !connection.extension(&xcb_shm_id))
        return false;
    const auto cookie = xcb_shm_query_version(connection.get());
    XReply<xcb_shm_query_version_reply_t> reply(
        xcb_shm_query_version_reply(connection.get(), cookie, nullptr));
    return reply && (reply->major_version > 1 || reply->minor_version >= 2);
}

// xcb closes the file once it is sent. A server that cannot attach it refuses the reads into it.
XSharedSegment::XSharedSegment(std::weak_ptr<XConnection> connection, uchar* data, size_t bytes, int file)
    : m_x(std::move(connection))
    , m_id(xcb_generate_id(m_x.lock()->get()))
    , m_data(data)
    , m_bytes(bytes)
{
    const auto x = m_x.lock();
    x->discard(xcb_shm_attach_fd_checked(x->get(), m_id, file, false));
}

XSharedSegment::~XSharedSegment()
{
    munmap(m_data, m_bytes);
    if (const auto x = m_x.lock()) {
        x->discard(xcb_shm_detach_checked(x->get(), m_id));
        xcb_flush(x->get());
    }
}

void XSharedSegment::prepareSecondHalf() const
{
    const size_t page = size_t(sysconf(_SC_PAGESIZE));
    const size_t start = m_bytes / 2 / page * page;
    // A kernel without it makes the pages as they are written.
    madvise(m_data + start, m_bytes - start, MADV_POPULATE_WRITE);
}
