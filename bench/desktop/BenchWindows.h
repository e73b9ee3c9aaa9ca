#pragma once

#include "tests/desktop/XClient.h"

#include <optional>
#include <vector>

// Windows of one program, which go with the object. Device pixels of the root window.
class BenchWindows {
public:
    explicit BenchWindows(const QString& displayName);
    ~BenchWindows();

    // Lies where it is put, above all that is there: no window manager is asked.
    void open(QRect pixels);
    // Opens windows of one size under the window manager, each titled, and waits until it shows them all;
    // false when it does not.
    bool openManaged(int count);

private:
    void create(QRect pixels, bool isManaged);
    void setText(xcb_window_t window, xcb_atom_t property, const QByteArray& text);

    void waitForWindowManager() const;

    XClient m_server;
    std::vector<xcb_window_t> m_windows;
    std::optional<int> m_unmanagedCount; // of the windows on the root, before the managed ones
};
