#pragma once

#include "output/ZRNotificationWindow.h"

class ZRCustomLocalNotification;

// The window of a custom notice. It stays while the pointer is over it.
class ZRCustomNotificationWindow : public ZRNotificationWindow {
public:
    // initWithCustomContentNotification:
    ZRCustomNotificationWindow(NoticeClock& clock, ZRCustomLocalNotification* notification, bool isBlended);
    ~ZRCustomNotificationWindow() override;

    void stopNotificationFromDelayedRequest() override;
    // However often others came.
    void movedDown(double newHeight) override;

protected:
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    void didStart() override { startExitTimer(); }
    bool isClosedByClick() const override;
    void startExitTimer();
    void timerToExit();
    int delayToHide() const; // milliseconds

    ZRCustomLocalNotification* mContentView;
    NoticeClock::Task mExitTimer = 0;
    bool _mouseEnter = false;
};
