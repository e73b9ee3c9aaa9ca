#pragma once

#include "platform/FrontKeeper.h"
#include "platform/x11/XConnection.h"

#include <QTimer>

#include <vector>

// Raises the window when the server tells that another program's window may lie above it; the server is asked
// to tell only in between keepInFront() and release().
class NativeFrontKeeper final : public FrontKeeper, private XEventListener {
public:
    explicit NativeFrontKeeper(std::shared_ptr<XConnection> connection);
    ~NativeFrontKeeper() override;

    void keepInFront(const QWindow& window) override;
    void release() override;

private:
    void handleEvent(const xcb_generic_event_t& event) override;
    void listenToRoot(bool isOn) const;
    void raiseWhereCovered();
    std::vector<xcb_window_t> coveringWindows() const;
    std::vector<xcb_window_t> windowsAbove() const;
    void raise(xcb_window_t window) const;

    std::shared_ptr<XConnection> m_x;
    xcb_window_t m_window = XCB_NONE;
    QTimer m_settled; // a burst of changes is answered once
};
