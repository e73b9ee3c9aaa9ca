#pragma once

#include "geometry/ZRRect.h"
#include "output/NoticeClock.h"

#include <QWidget>

#include <functional>

// A notice on the screen: slides in at the right edge of the main screen, makes room for newer ones, and goes
// by itself or with a click. Takes no focus. Frames are points of the main screen, origin bottom-left.
class ZRNotificationWindow : public QWidget {
public:
    // The content becomes the window's child; its size is the window's. `isBlended` says that translucent
    // pixels show what lies below; where they do not, the corners are cut out.
    ZRNotificationWindow(NoticeClock& clock, QWidget* contentView, bool isBlended);
    ~ZRNotificationWindow() override;

    // Called with a click of the left button, before the notice goes.
    std::function<void()> onClick;

    int mMovedCount() const { return m_movedCount; }
    // Where it stands, or will stand when its slide is over.
    ZRRect standing() const { return m_target; }

    // Delays in milliseconds.
    void start();
    void startWithDelay(int delay);
    void stop();
    void stopWithDelay(int delay);
    // What a delayed stop comes to.
    virtual void stopNotificationFromDelayedRequest() { stop(); }
    // Makes room for a new notice of that height.
    virtual void movedDown(double newHeight);
    void movedDownDelay(int delay, double newHeight);
    void exitWithFadeOut();
    // Posts "NoticaitionEndRegister" with the window as kWindowKey.
    void sendNotificationEndMessage();

    // Off the screen and back, in whatever state it is.
    void leaveScreen() { hide(); }
    void comeBack() { setVisible(m_isStarted); }
    // The main screen is another one, or of another size.
    void screenChanged();

    static constexpr char16_t kEnded[] = u"NoticaitionEndRegister"; // Kept: the spelling.
    static constexpr char16_t kWindowKey[] = u"window";             // a QObject*

protected:
    virtual void didStart();
    virtual bool isClosedByClick() const { return true; }
    void moveDownBy(double newHeight);
    NoticeClock& clock() const { return m_clock; }
    bool isLeaving() const { return m_isLeaving; }

    void mousePressEvent(QMouseEvent* event) override;

private:
    void slideTo(ZRRect target);
    void slideOn();
    void fadeOn();
    void goOnWith(void (ZRNotificationWindow::*step)());
    qint64 movedFor() const { return m_clock.now() - m_began; } // milliseconds
    void standAt(ZRRect frame);
    void shapeFor(int visibleWidth);
    void endIn(int delay);

    NoticeClock& m_clock;
    const bool m_isBlended;
    int m_movedCount = 0; // how often it moved down
    ZRRect m_frame;       // as it shows; narrower than the window while it comes or goes
    ZRRect m_from, m_target;
    ZRSize m_screen;
    qint64 m_began = 0; // the slide or the fading
    bool m_isStarted = false;
    bool m_isLeaving = false;
    NoticeClock::Task m_startTask = 0, m_moveTask = 0, m_stopTask = 0, m_stepTask = 0, m_endTask = 0;
};
