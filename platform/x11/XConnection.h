#pragma once

#include <QAbstractNativeEventFilter>

#include <cstdlib>
#include <memory>
#include <vector>

#include <xcb/xcb.h>

struct XFree {
    void operator()(void* memory) const { std::free(memory); }
};
// What the server answered; null when it answered with an error or is gone.
template <typename Reply>
using XReply = std::unique_ptr<Reply, XFree>;

// Hears every event of the connection, before Qt does.
class XEventListener {
public:
    virtual void handleEvent(const xcb_generic_event_t& event) = 0;

protected:
    ~XEventListener() = default;
};

// The connection to the X server, shared by everything in this folder. Of a server that is gone, or when Qt
// runs on another platform, it is broken: requests on it are dropped and their replies are null.
class XConnection final : public QAbstractNativeEventFilter {
public:
    // Qt's own connection, so that our requests and Qt's reach the server in the order in which they are
    // made.
    static std::shared_ptr<XConnection> ofApplication();
    // Borrows the connection.
    XConnection(xcb_connection_t* connection, int screenNumber);
    ~XConnection() override;

    xcb_connection_t* get() const { return m_connection; }
    // Null on a broken connection.
    const xcb_screen_t* screen() const { return m_screen; }
    xcb_window_t root() const { return m_screen ? m_screen->root : xcb_window_t(XCB_NONE); }
    bool isAlive() const { return m_screen && !xcb_connection_has_error(m_connection); }
    // Null when the server lacks it. Requests of a missing extension break the connection: ask first.
    const xcb_query_extension_reply_t* extension(xcb_extension_t* id) const;
    xcb_atom_t atom(const char* name) const;
    // Whether the window was made over this connection.
    bool owns(xcb_window_t window) const;
    // Physically down now, whoever gets the key's events.
    bool isKeyDown(xcb_keycode_t key) const;
    // Sends a request whose failure means nothing to us.
    void discard(xcb_void_cookie_t checkedRequest) const;

    void addListener(XEventListener* listener);
    void removeListener(XEventListener* listener);
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
    bool isOfRootsChild(const xcb_generic_event_t& event) const;

    xcb_connection_t* const m_connection;
    const xcb_screen_t* m_screen = nullptr;
    std::vector<XEventListener*> m_listeners;
};

// The event's type, whether the server or another program sent it.
inline int typeOf(const xcb_generic_event_t& event)
{
    return event.response_type & 0x7f;
}
