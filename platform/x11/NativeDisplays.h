#pragma once

#include "platform/Displays.h"
#include "platform/x11/XConnection.h"

#include <QTimer>

class QScreen;

// The server's RandR monitors, the primary one first; without RandR the root window as the only display. A
// display takes its name and scale from Qt's screen at the same place.
class NativeDisplays final : public Displays, private XEventListener {
public:
    explicit NativeDisplays(std::shared_ptr<XConnection> connection);
    ~NativeDisplays() override;

    std::vector<DisplayRecord> all() const override;
    std::optional<QPoint> pointer() const override;
    // The root window's pixel at the first display's top-left corner.
    QPoint originOnRoot() const;

private:
    void handleEvent(const xcb_generic_event_t& event) override;
    void watchScreens();
    void watchScreen(QScreen* screen);
    void markStale();
    void announceChange();
    void readIfStale() const;
    std::vector<DisplayRecord> monitors() const;
    DisplayRecord rootDisplay() const;

    std::shared_ptr<XConnection> m_x;
    bool m_hasMonitors = false; // RandR 1.5 or newer
    int m_randrEvents = 0;      // type of its first event
    QTimer m_settled;           // the last of a burst of changes has passed
    std::vector<DisplayRecord> m_announced;
    mutable bool m_stale = true;
    mutable std::vector<DisplayRecord> m_displays;
    mutable QPoint m_origin;
};
