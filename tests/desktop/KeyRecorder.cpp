#include "tests/desktop/KeyRecorder.h"

#include "tests/desktop/Wait.h"

KeyRecorder::KeyRecorder(const QString& displayName, QRect geometry)
    : m_client(displayName)
    , m_window(displayName, {.inside = geometry, .isUndecorated = true}) // a frame shows who has the keyboard
{
    const quint32 events = XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE |
                           XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE;
    xcb_change_window_attributes(m_client.connection(), window(), XCB_CW_EVENT_MASK, &events);
    waitForKeyboard();
}

// A window manager gives a new window the keyboard; where there is none, windows take it themselves.
void KeyRecorder::waitForKeyboard()
{
    m_client.sync();
    if (!m_client.isManaged())
        xcb_set_input_focus(m_client.connection(), XCB_INPUT_FOCUS_POINTER_ROOT, window(), XCB_CURRENT_TIME);
    waitUntil([this] {
        m_client.wakeWindowManager();
        return hasKeyboard();
    });
}

std::vector<KeyRecorder::Event> KeyRecorder::take()
{
    m_client.sync();
    std::vector<Event> events;
    while (const auto event = m_client.nextEvent()) {
        const quint8 type = event->response_type & 0x7f;
        if (type >= XCB_KEY_PRESS && type <= XCB_BUTTON_RELEASE)
            events.push_back({type, reinterpret_cast<const xcb_key_press_event_t&>(*event).detail});
    }
    return events;
}
