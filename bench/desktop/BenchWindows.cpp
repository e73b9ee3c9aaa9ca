#include "bench/desktop/BenchWindows.h"

#include "bench/desktop/Stopwatch.h"

#include <cmath>

namespace {

constexpr quint32 kColour = 0xc8d0d8;

}

BenchWindows::BenchWindows(const QString& displayName)
    : m_server(displayName)
{
}

BenchWindows::~BenchWindows()
{
    for (const xcb_window_t window : m_windows)
        xcb_destroy_window(m_server.connection(), window);
    m_server.sync();
    waitForWindowManager();
}

void BenchWindows::open(QRect pixels)
{
    create(pixels, false);
    m_server.sync();
}

bool BenchWindows::openManaged(int count)
{
    const size_t before = m_server.visibleWindows().size();
    m_unmanagedCount = m_server.windowCount();
    for (int i = 0; i < count; ++i)
        create({i * 4 % m_server.size().width(), i * 3 % m_server.size().height(), 120, 90}, true);
    m_server.sync();
    return std::isfinite(millisecondsUntil({}, [&] {
        m_server.wakeWindowManager();
        return m_server.visibleWindows().size() >= before + count;
    }));
}

// The server gives the next program the identifiers of ours, as soon as this connection is closed: what the
// window manager then still asks for our windows would happen to those of the next program.
void BenchWindows::waitForWindowManager() const
{
    millisecondsUntil({}, [this] {
        m_server.wakeWindowManager();
        return !m_unmanagedCount || m_server.windowCount() <= *m_unmanagedCount;
    });
}

void BenchWindows::create(QRect r, bool isManaged)
{
    xcb_connection_t* c = m_server.connection();
    const xcb_window_t window = xcb_generate_id(c);
    const quint32 values[] = {kColour, !isManaged};
    xcb_create_window(c, XCB_COPY_FROM_PARENT, window, m_server.root(), r.x(), r.y(), r.width(), r.height(),
        0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT,
        values);
    setText(window, XCB_ATOM_WM_CLASS, QByteArray("bench\0Bench\0", 12));
    setText(window, XCB_ATOM_WM_NAME, "A window of the bench");
    xcb_map_window(c, window);
    m_windows.push_back(window);
}

void BenchWindows::setText(xcb_window_t window, xcb_atom_t property, const QByteArray& text)
{
    xcb_change_property(m_server.connection(), XCB_PROP_MODE_REPLACE, window, property, XCB_ATOM_STRING, 8,
        text.size(), text.constData());
}
