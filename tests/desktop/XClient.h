#pragma once

#include <QImage>
#include <QRect>
#include <QString>

#include <cstdlib>
#include <memory>
#include <vector>
#include <xcb/xcb.h>

// One connection to the test desktop's server. Keep it open while its input matters: the server forgets what
// a client sent just before it left. Coordinates are device pixels of the root window.
class XClient {
public:
    explicit XClient(const QString& displayName);
    ~XClient();
    XClient(const XClient&) = delete;
    XClient& operator=(const XClient&) = delete;

    // False when the server cannot be reached, or is gone.
    bool isConnected() const { return !xcb_connection_has_error(m_connection); }
    xcb_connection_t* connection() const { return m_connection; }
    xcb_window_t root() const { return m_screen->root; }
    const xcb_screen_t& screen() const { return *m_screen; }
    QSize size() const { return {m_screen->width_in_pixels, m_screen->height_in_pixels}; }

    struct Free {
        void operator()(void* answer) const { std::free(answer); }
    };
    template <class Answer>
    using Owned = std::unique_ptr<Answer, Free>;

    // The next of the events that have arrived; null when there is none.
    Owned<xcb_generic_event_t> nextEvent() const;
    // Returns when the server has carried out everything sent so far.
    void sync() const;
    // What the screen shows, as RGB32; null when it cannot be read.
    QImage pixels(QRect area) const;
    // The visible children of the root, the lowest first.
    std::vector<xcb_window_t> visibleWindows() const;
    // How many children the root has, hidden ones included.
    int windowCount() const;
    // Returns in the moment in which the window leaves the screen; false when it stays for 5 s.
    bool waitForHidden(xcb_window_t window) const;
    QString title(xcb_window_t window) const;
    // The visible children of the root with that title.
    std::vector<xcb_window_t> windowsTitled(const char* title) const;
    QRect geometry(xcb_window_t window) const;
    // The same with the border around it.
    QRect outline(xcb_window_t window) const;
    // XCB_NONE for the root and for a window that is gone.
    xcb_window_t parent(xcb_window_t window) const;
    // The window or the frame around it: the child of the root.
    xcb_window_t topmost(xcb_window_t window) const;
    // The visible child of the root with that outline; XCB_NONE when there is none.
    xcb_window_t windowAt(QRect outline) const;
    xcb_atom_t atom(const char* name) const;
    xcb_window_t focusedWindow() const;
    // Whether some client holds the whole keyboard now.
    bool isKeyboardTaken() const;
    // Whether some client holds the whole pointer now; a pressed button counts.
    bool isPointerTaken() const;
    // Whether a window manager has announced itself.
    bool isManaged() const;
    // A window manager may leave what it has read unhandled until something else happens: this happens.
    void wakeWindowManager() const;
    // Fills the background with a fixed noise that does not repeat itself within a screen's row or column of
    // tiles by a round number, so that a picture shifted by a pixel differs everywhere.
    void paintNoise() const;

    // The contents of a property as they are; reading it away tells its writer that it has arrived.
    QByteArray property(xcb_window_t window, xcb_atom_t property, bool isReadAway = false) const;

private:
    xcb_connection_t* m_connection;
    xcb_screen_t* m_screen = nullptr;
};
