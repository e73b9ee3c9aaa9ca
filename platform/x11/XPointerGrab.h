#pragma once

#include "platform/x11/XConnection.h"

#include <QTimer>

// An active grab of the pointer for one window of ours. While another program holds the pointer it is asked
// for again and again for two seconds, afterwards when an event tells that the pointer came to a window of
// ours.
class XPointerGrab final : private XEventListener {
public:
    explicit XPointerGrab(std::shared_ptr<XConnection> connection);
    ~XPointerGrab();

    // The window is mapped; it is forgotten when it goes. True when the pointer is its own at once.
    bool take(xcb_window_t window);
    void release();
    bool isHeld() const { return m_window != XCB_NONE && m_isGranted; }

private:
    void handleEvent(const xcb_generic_event_t& event) override;
    bool isArrival(const xcb_generic_event_t& event) const;
    void tryToTake();
    bool isGrantedNow() const;
    bool isGrantedByCore() const;

    std::shared_ptr<XConnection> m_x;
    const int m_inputEvents;          // the opcode of the input extension; 0 without it
    const quint16 m_device;           // its pointer; 0 without it
    xcb_window_t m_window = XCB_NONE; // asked for
    bool m_isGranted = false;
    int m_attemptsLeft = 0;
    QTimer m_retry;
};
