#include "output/ZRCustomNotificationWindow.h"

#include "output/ZRCustomLocalNotification.h"

ZRCustomNotificationWindow::ZRCustomNotificationWindow(
    NoticeClock& clock, ZRCustomLocalNotification* notification, bool isBlended)
    : ZRNotificationWindow(clock, notification, isBlended)
    , mContentView(notification)
{
    notification->onAutoHidden = [this] { stopWithDelay(delayToHide()); };
    notification->onExitWithFadeOut = [this] { exitWithFadeOut(); };
}

ZRCustomNotificationWindow::~ZRCustomNotificationWindow()
{
    clock().cancel(mExitTimer);
}

void ZRCustomNotificationWindow::stopNotificationFromDelayedRequest()
{
    if (!_mouseEnter)
        stop();
}

void ZRCustomNotificationWindow::movedDown(double newHeight)
{
    if (isLeaving())
        return;
    moveDownBy(newHeight);
    if (mContentView->isAutoHidden())
        stopWithDelay(delayToHide());
}

bool ZRCustomNotificationWindow::isClosedByClick() const
{
    return mContentView->mouseDownExitWithFadeOutEnable();
}

void ZRCustomNotificationWindow::startExitTimer()
{
    clock().cancel(mExitTimer);
    mExitTimer = clock().after(delayToHide(), [this] { timerToExit(); });
}

void ZRCustomNotificationWindow::timerToExit()
{
    if (mContentView->isAutoHidden() && !_mouseEnter)
        stop();
}

int ZRCustomNotificationWindow::delayToHide() const
{
    return mContentView->autoHiddenDelayTime() * 1000;
}

void ZRCustomNotificationWindow::enterEvent(QEnterEvent*)
{
    _mouseEnter = true;
    clock().cancel(mExitTimer);
}

void ZRCustomNotificationWindow::leaveEvent(QEvent*)
{
    _mouseEnter = false;
    startExitTimer();
}
