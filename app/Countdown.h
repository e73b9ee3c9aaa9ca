#pragma once

#include "platform/DisplayRecord.h"

#include <QTimer>

#include <functional>
#include <memory>

class CountdownPanel;

// Counts the seconds before a capture on the screen, one at a time; wakes up once a second and never
// otherwise. One at a time runs.
class Countdown {
public:
    Countdown();
    ~Countdown();

    // Calls `act` when the seconds, at least one, have passed and the panel has left the screen; `cancelled`
    // in its place when cancel() comes before. None may run.
    void start(int seconds, const DisplayRecord& display, std::function<void()> act,
        std::function<void()> cancelled);
    bool isRunning() const { return m_panel != nullptr; }
    // Nothing while none runs.
    void cancel();

    // The panel has just left the screen.
    std::function<void()> onGone;

private:
    void tick();
    void leave();

    std::unique_ptr<CountdownPanel> m_panel; // while it runs
    QTimer m_second;
    int m_left = 0; // seconds
    std::function<void()> m_act;
    std::function<void()> m_cancelled;
};
