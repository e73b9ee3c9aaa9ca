#pragma once

#include "platform/KeptDisplays.h"
#include "platform/x11/XConnection.h"

class QScreen;

// The server's RandR monitors, the primary one first; without RandR the root window as the only display. A
// display takes its name and scale from Qt's screen at the same place.
class NativeDisplays final : public KeptDisplays, private XEventListener {
public:
    explicit NativeDisplays(std::shared_ptr<XConnection> connection);
    ~NativeDisplays() override;

    std::optional<QPoint> pointer() const override;
    // The root window, which may be larger than all displays together.
    QRect virtualScreen() const override;
    // The root window's pixel at the first display's top-left corner.
    QPoint originOnRoot() const;

private:
    void handleEvent(const xcb_generic_event_t& event) override;
    void watchScreens();
    void watchScreen(QScreen* screen);
    std::optional<std::vector<DisplayRecord>> read() const override;
    std::vector<DisplayRecord> monitors() const;
    QSize rootSize() const;

    std::shared_ptr<XConnection> m_x;
    bool m_hasMonitors = false; // RandR 1.5 or newer
    int m_randrEvents = 0;      // type of its first event
    mutable QPoint m_origin;    // of the displays that were read last
};
