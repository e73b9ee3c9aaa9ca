#pragma once

#include "output/NoticeClock.h"

#include <QObject>

#include <functional>
#include <memory>
#include <vector>

class ZRBasicLocalNotification;
class ZRCustomLocalNotification;
class ZRNotificationWindow;

// Shows notices at the top right of the main screen, the newest on top, and drops those that have gone. A
// notice that is delivered belongs to the centre and lives until it has gone. Main thread only.
class ZRLocalNotificationCenter : public QObject {
public:
    // The program's own, from the first use until the application object goes.
    static ZRLocalNotificationCenter& defaultLocalNotificationCenter();
    // A centre with a time of its own.
    explicit ZRLocalNotificationCenter(std::unique_ptr<NoticeClock> clock);
    ~ZRLocalNotificationCenter() override;

    void deliverZRNotification(std::unique_ptr<ZRBasicLocalNotification> notification);
    void deliverZRCustomNotification(std::unique_ptr<ZRCustomLocalNotification> notification);
    // Drops the window that the notification names.
    void notificationEnd(const QVariantMap& object);

    // Takes everything off the screen, where time then stands still and new notices wait; true when something
    // left it. For as long as the screen must be free of notices.
    bool leaveScreen();
    void comeBack();

    // Whether translucent pixels show what lies below them; not without an answer.
    std::function<bool()> isBlended;
    // Whether nothing is to show at all: notices are then dropped.
    bool isSilent = false;
    // In the order of their delivery.
    const std::vector<std::unique_ptr<ZRNotificationWindow>>& windows() const { return m_windows; }

private:
    bool asksForBlending() const { return isBlended && isBlended(); }
    void deliver(std::unique_ptr<ZRNotificationWindow> window);
    void show(std::unique_ptr<ZRNotificationWindow> window);
    void watchMainScreen();

    const std::unique_ptr<NoticeClock> m_clock;
    std::vector<std::unique_ptr<ZRNotificationWindow>> m_windows;
    std::vector<std::unique_ptr<ZRNotificationWindow>> m_waiting; // delivered while the screen is left
    std::vector<std::unique_ptr<ZRNotificationWindow>> m_gone;    // until their last step is over
    bool m_isAway = false;
    QMetaObject::Connection m_screenWatch;
};
