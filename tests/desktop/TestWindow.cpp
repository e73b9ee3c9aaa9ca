#include "tests/desktop/TestWindow.h"

#include "tests/desktop/Wait.h"

#include <algorithm>

TestWindow::TestWindow(const QString& displayName, const WindowLook& look)
    : m_client(displayName)
    , m_window(xcb_generate_id(m_client.connection()))
{
    const quint32 values[] = {0x993366, 0x112233, look.isOverrideRedirect};
    xcb_create_window(m_client.connection(), XCB_COPY_FROM_PARENT, m_window, m_client.root(), look.inside.x(),
        look.inside.y(), look.inside.width(), look.inside.height(), look.border,
        XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
        XCB_CW_BACK_PIXEL | XCB_CW_BORDER_PIXEL | XCB_CW_OVERRIDE_REDIRECT, values);
    setProperties(look);
    xcb_map_window(m_client.connection(), m_window);
    waitUntil([this] {
        m_client.wakeWindowManager();
        return isVisible();
    });
}

bool TestWindow::isVisible() const
{
    return std::ranges::count(m_client.visibleWindows(), m_client.topmost(m_window)) == 1;
}

QRect TestWindow::outline() const
{
    return m_client.outline(m_client.topmost(m_window));
}

void TestWindow::kill()
{
    xcb_kill_client(m_client.connection(), m_window);
    xcb_flush(m_client.connection());
}

void TestWindow::setProperties(const WindowLook& look)
{
    const quint32 userPosition = 1;
    std::vector<quint32> sizeHints(18);
    sizeHints[0] = userPosition; // keeps a window manager from placing it elsewhere
    setNumbers("WM_NORMAL_HINTS", XCB_ATOM_WM_SIZE_HINTS, sizeHints);
    if (look.isUndecorated)
        setNumbers("_MOTIF_WM_HINTS", m_client.atom("_MOTIF_WM_HINTS"), {2, 0, 0, 0, 0});
    if (look.type)
        setNumbers("_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM, {m_client.atom(look.type)});
    for (const auto& [name, numbers] : look.numbers)
        setNumbers(name, XCB_ATOM_CARDINAL, numbers);
}

void TestWindow::setNumbers(const char* name, xcb_atom_t type, const std::vector<quint32>& numbers)
{
    xcb_change_property(m_client.connection(), XCB_PROP_MODE_REPLACE, m_window, m_client.atom(name), type, 32,
        quint32(numbers.size()), numbers.data());
}
