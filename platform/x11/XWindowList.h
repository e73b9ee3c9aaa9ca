#pragma once

#include "platform/WindowRecord.h"
#include "platform/x11/XConnection.h"

#include <unordered_set>
#include <vector>

// The windows on the root, in their stacking order. Every step asks for all windows at once and then reads
// the answers; a window that goes in the meantime is left out.
class XWindowList {
public:
    explicit XWindowList(std::shared_ptr<XConnection> connection);

    // Front to back; pixels count from the root window's top-left corner, borders included, the shadows that
    // a program draws around itself excluded.
    std::vector<WindowRecord> read() const;

private:
    // A window on the root and, inside its frame, the program's own window that tells about it.
    struct Entry {
        xcb_window_t top = XCB_NONE;
        xcb_window_t client = XCB_NONE;
        QRect pixels;
        std::vector<xcb_window_t> children; // of `top`
    };
    struct Asked;

    std::vector<Entry> visibleEntries() const;
    void findClients(std::vector<Entry>& entries) const;
    static bool takeClient(Entry& entry, const std::unordered_set<xcb_window_t>& clients,
        const std::vector<xcb_window_t>& windows);
    std::unordered_set<xcb_window_t> managedClients() const;
    std::vector<WindowRecord> described(const std::vector<Entry>& entries) const;
    Asked ask(xcb_window_t client) const;
    WindowRecord record(QRect pixels, const Asked& asked) const;
    xcb_get_property_cookie_t property(xcb_window_t window, xcb_atom_t name, uint32_t words) const;
    XReply<xcb_get_property_reply_t> answer(xcb_get_property_cookie_t cookie) const;

    std::shared_ptr<XConnection> m_x;
    const xcb_atom_t m_clients; // _NET_CLIENT_LIST
    const xcb_atom_t m_type;    // _NET_WM_WINDOW_TYPE
    const xcb_atom_t m_dock;    // _NET_WM_WINDOW_TYPE_DOCK
    const xcb_atom_t m_opacity; // _NET_WM_WINDOW_OPACITY: 0 to 2^32 - 1
    const xcb_atom_t m_shadow;  // _GTK_FRAME_EXTENTS: left, right, top, bottom
    const xcb_atom_t m_name;    // _NET_WM_NAME
    const xcb_atom_t m_process; // _NET_WM_PID
};
