#include "bench/floors/SharedScreen.h"

#include <cstdlib>
#include <sys/ipc.h>
#include <sys/shm.h>

SharedScreen::SharedScreen(xcb_connection_t* connection)
    : m_connection(connection)
    , m_screen(xcb_setup_roots_iterator(xcb_get_setup(connection)).data)
    , m_segment(xcb_generate_id(connection))
{
    const std::size_t size = std::size_t(m_screen->width_in_pixels) * m_screen->height_in_pixels * 4;
    const int id = shmget(IPC_PRIVATE, size, IPC_CREAT | 0600);
    void* memory = id < 0 ? nullptr : shmat(id, nullptr, 0);
    if (memory && memory != reinterpret_cast<void*>(-1)) {
        xcb_shm_attach(m_connection, m_segment, id, false);
        m_pixels = static_cast<uchar*>(memory);
        read(); // the pages of the segment are there from now on
    }
    shmctl(id, IPC_RMID, nullptr);
}

SharedScreen::~SharedScreen()
{
    if (m_pixels)
        shmdt(m_pixels);
}

QImage SharedScreen::read()
{
    const quint16 width = m_screen->width_in_pixels;
    const quint16 height = m_screen->height_in_pixels;
    const auto cookie = xcb_shm_get_image(
        m_connection, m_screen->root, 0, 0, width, height, ~0U, XCB_IMAGE_FORMAT_Z_PIXMAP, m_segment, 0);
    auto* reply = xcb_shm_get_image_reply(m_connection, cookie, nullptr);
    const bool isRead = m_pixels && reply;
    std::free(reply);
    return isRead ? QImage(m_pixels, width, height, QImage::Format_RGB32) : QImage();
}
