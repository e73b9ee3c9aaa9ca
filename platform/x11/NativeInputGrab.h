#pragma once

#include "platform/InputGrab.h"
#include "platform/x11/XPointerGrab.h"

#include <QTimer>

// Active grabs. A window of one pixel, mapped only for that, keeps the keyboard for
// releaseWithKey.
class NativeInputGrab final : public InputGrab, private XEventListener {
public:
    explicit NativeInputGrab(std::shared_ptr<XConnection> connection);
    ~NativeInputGrab() override;

    void grabKeyboard(const QWindow& window) override;
    void releaseWithKey() override;
    void release() override;
    bool holdsKeyboard() const override { return m_holder != XCB_NONE; }
    bool grabPointer(const QWindow& window) override { return m_pointer.take(xcb_window_t(window.winId())); }
    void releasePointer() override { m_pointer.release(); }
    bool holdsPointer() const override { return m_pointer.isHeld(); }

private:
    void handleEvent(const xcb_generic_event_t& event) override;
    void tryToGrab();
    void giveUp();
    bool take(xcb_window_t window);
    void hideKeeper();
    void createKeeper();
    void endWithKey(const xcb_key_release_event_t& event);

    std::shared_ptr<XConnection> m_x;
    XPointerGrab m_pointer;
    xcb_window_t m_wanted = XCB_NONE; // asked for and not granted yet
    xcb_window_t m_holder = XCB_NONE; // has the keyboard
    xcb_window_t m_keeper = XCB_NONE; // the kept window; made at its first use
    xcb_keycode_t m_lastKey = 0;      // pressed last in any window of ours
    uint8_t m_status = 0;             // the server's answer to the last attempt
    QTimer m_retry;
    QTimer m_limit; // of the attempts and of the kept grab
};
