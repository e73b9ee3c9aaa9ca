#include "tests/desktop/KeyRecorder.h"

#include "tests/desktop/Wait.h"

#include <cstdlib>
#include <memory>

KeyRecorder::KeyRecorder(const QString& displayName, QRect geometry)
    : m_client(displayName)
    , m_window(xcb_generate_id(m_client.connection()))
{
    const quint32 values[] = {0x336699, XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE |
                                            XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE};
    xcb_create_window(m_client.connection(), XCB_COPY_FROM_PARENT, m_window, m_client.root(), geometry.x(),
        geometry.y(), geometry.width(), geometry.height(), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
        XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK, values);
    const quint32 userPosition = 1;
    const quint32 sizeHints[18] = {userPosition}; // keeps a window manager from placing it elsewhere
    xcb_change_property(m_client.connection(), XCB_PROP_MODE_REPLACE, m_window, XCB_ATOM_WM_NORMAL_HINTS,
        XCB_ATOM_WM_SIZE_HINTS, 32, 18, sizeHints);
    const quint32 undecorated[5] = {2}; // a frame would show who has the keyboard
    const xcb_atom_t motifHints = m_client.atom("_MOTIF_WM_HINTS");
    xcb_change_property(
        m_client.connection(), XCB_PROP_MODE_REPLACE, m_window, motifHints, motifHints, 32, 5, undecorated);
    xcb_map_window(m_client.connection(), m_window);
    waitForKeyboard();
}

// A window manager gives a new window the keyboard; where there is none, windows take it themselves.
void KeyRecorder::waitForKeyboard()
{
    m_client.sync();
    if (!m_client.isManaged())
        xcb_set_input_focus(m_client.connection(), XCB_INPUT_FOCUS_POINTER_ROOT, m_window, XCB_CURRENT_TIME);
    waitUntil([this] {
        m_client.wakeWindowManager();
        return hasKeyboard();
    });
}

std::vector<KeyRecorder::Event> KeyRecorder::take()
{
    m_client.sync();
    std::vector<Event> events;
    while (xcb_generic_event_t* raw = xcb_poll_for_event(m_client.connection())) {
        const std::unique_ptr<xcb_generic_event_t, decltype(&std::free)> event(raw, &std::free);
        const quint8 type = event->response_type & 0x7f;
        if (type >= XCB_KEY_PRESS && type <= XCB_BUTTON_RELEASE)
            events.push_back({type, reinterpret_cast<const xcb_key_press_event_t*>(raw)->detail});
    }
    return events;
}
