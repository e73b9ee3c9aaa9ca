#pragma once

#include "tests/desktop/XClient.h"

#include <utility>

// How a program makes its window.
struct WindowLook {
    QRect inside; // device pixels of the root, within the border and the window manager's frame
    int border = 0;
    bool isOverrideRedirect = false;
    bool isUndecorated = false; // asks the window manager for no frame
    const char* type = nullptr; // the name of a _NET_WM_WINDOW_TYPE
    std::vector<std::pair<const char*, std::vector<quint32>>> numbers = {}; // further properties
};

// A window of another program, on the screen from its making until the object goes.
class TestWindow {
public:
    TestWindow(const QString& displayName, const WindowLook& look);

    xcb_window_t window() const { return m_window; }
    bool isVisible() const;
    // What the user sees as the window: frame and border included, not cut at the screen. Device pixels.
    QRect outline() const;
    // Its program ends without a word.
    void kill();

private:
    void setProperties(const WindowLook& look);
    void setNumbers(const char* name, xcb_atom_t type, const std::vector<quint32>& numbers);

    XClient m_client;
    xcb_window_t m_window;
};
