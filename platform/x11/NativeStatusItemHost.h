#pragma once

#include "platform/StatusItemHost.h"
#include "platform/x11/XConnection.h"

#include <QDBusConnection>
#include <QObject>
#include <QPointer>
#include <QThreadPool>

#include <optional>

class QDBusMessage;

// A StatusNotifier host on the session bus, else a tray that embeds windows of the X server. Qt settles for
// one of the two when the first item is made, and then waits for the bus; so nothing is found before the bus
// has answered, and a notifier that does not answer is none.
class NativeStatusItemHost final : public QObject, public StatusItemHost, private XEventListener {
    Q_OBJECT
public:
    explicit NativeStatusItemHost(std::shared_ptr<XConnection> connection);
    ~NativeStatusItemHost() override;

    void watch() override;
    bool tintsItems() const override { return false; }

private:
    void handleEvent(const xcb_generic_event_t& event) override;
    void busIsThere();
    Q_SLOT void askNotifier(); // called by name
    void notifierAnswered(const QDBusMessage& answer);
    void settleForTray();
    bool hasTray() const;
    void found();
    void stopWatching();

    std::shared_ptr<XConnection> m_x;
    std::optional<QDBusConnection> m_bus; // where there is one
    QPointer<QObject> m_questions;        // owns what listens to the bus
    xcb_atom_t m_traySelection = XCB_ATOM_NONE;
    bool m_isWatching = false;
    bool m_hasNoNotifier = false; // the bus said so
    QThreadPool m_connecting;     // joining the bus waits for it
};
