#pragma once

#include "platform/WindowRecord.h"
#include "platform/x11/XConnection.h"

#include <array>
#include <optional>
#include <unordered_map>
#include <vector>

// The windows on the root, in their stacking order. Every step asks for all windows at once and then reads
// the answers; a window that goes in the meantime is left out.
class XWindowList {
public:
    explicit XWindowList(std::shared_ptr<XConnection> connection);

    // Front to back, without what lies wholly beyond the screen; pixels count from the root window's top-left
    // corner, borders included, the shadows that a program draws around itself excluded.
    std::vector<WindowRecord> read() const;
    // The one of them that the window manager calls active, else the one with the keyboard; where the
    // keyboard follows the pointer, the one under it.
    std::optional<WindowRecord> active() const;

private:
    // A window on the root and, inside its frame, the program's own window that tells about it.
    struct Entry {
        xcb_window_t top = XCB_NONE;
        xcb_window_t client = XCB_NONE;
        QRect pixels;
    };
    // A property that is read of every window.
    struct Question {
        xcb_atom_t property;
        uint32_t words; // at most that many are read
        bool isOfFrame = false;
    };
    enum Fact { Class, Type, Opacity, FrameOpacity, Shadow, Name, OlderName, Process, kFacts };
    using Answers = std::array<XReply<xcb_get_property_reply_t>, kFacts>;
    // By the window on the root, the one that tells about it.
    using Insides = std::unordered_map<xcb_window_t, xcb_window_t>;

    std::vector<Entry> visibleEntries() const;
    // What has the keyboard: a window, XCB_INPUT_FOCUS_POINTER_ROOT or XCB_NONE.
    xcb_window_t focus() const;
    // The root's child under the pointer; XCB_NONE for none.
    xcb_window_t underPointer() const;
    // The root's child that a window is in, or is; XCB_NONE when it is gone.
    xcb_window_t topOf(xcb_window_t window) const;
    Insides insidesOf(const std::vector<xcb_window_t>& tops, const std::vector<xcb_window_t>& clients) const;
    void stepUp(std::vector<xcb_window_t>& windows, const Insides& insides) const;
    std::vector<WindowRecord> described(const std::vector<Entry>& entries) const;
    std::optional<WindowRecord> record(QRect pixels, const Answers& answers) const;
    xcb_get_property_cookie_t ask(xcb_window_t window, const Question& question) const;
    XReply<xcb_get_property_reply_t> answer(xcb_get_property_cookie_t cookie) const;

    std::shared_ptr<XConnection> m_x;
    const Question m_clients; // of the root: what its manager manages, the lowest first
    const Question m_active;  // of the root: the window that its manager calls active
    const xcb_atom_t m_dock;  // a value of Type
    const std::array<Question, kFacts> m_questions;
};
