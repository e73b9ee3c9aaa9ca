#pragma once

#include "tests/desktop/TestWindow.h"

// An ordinary window of another program that writes down the input it gets. It has the keyboard when it was
// made successfully.
class KeyRecorder {
public:
    struct Event {
        quint8 type = 0;   // XCB_KEY_PRESS, XCB_KEY_RELEASE, XCB_BUTTON_PRESS or XCB_BUTTON_RELEASE
        quint8 detail = 0; // key code or button
        friend bool operator==(Event, Event) = default;
    };

    KeyRecorder(const QString& displayName, QRect geometry);

    xcb_window_t window() const { return m_window.window(); }
    bool hasKeyboard() const { return m_client.focusedWindow() == window(); }
    // What arrived since the last call.
    std::vector<Event> take();

private:
    void waitForKeyboard();

    XClient m_client;
    TestWindow m_window;
};
