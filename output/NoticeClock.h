#pragma once

#include <QElapsedTimer>
#include <QTimer>

#include <functional>
#include <map>

// The time of everything that shows for a while: calls what is asked for after some milliseconds, and can
// stand still. Sleeps while nothing is asked for. Main thread only.
class NoticeClock {
public:
    using Task = quint64; // 0 for none

    NoticeClock();
    virtual ~NoticeClock() = default;

    // Calls `act` once, when the milliseconds have passed, unless it is cancelled before.
    Task after(int milliseconds, std::function<void()> act);
    // Forgets a task and makes the variable none; nothing for one that has been carried out.
    void cancel(Task& task);

    // While it stands still nothing is called, and the milliseconds that pass do not count.
    void standStill();
    void goOn();
    // Milliseconds since the clock was made, without those in which it stood still.
    qint64 now() const;

protected:
    // For clocks that are moved by hand: what a watch would show, and how wake() is asked for. Each request
    // takes the place of the one before; kNever asks for none.
    virtual qint64 watchTime() const { return m_watch.elapsed(); }
    virtual void wakeIn(int milliseconds);
    static constexpr int kNever = -1;
    // Calls what is due.
    void wake();

private:
    bool hasTasks() const { return !m_tasks.empty(); }
    qint64 nextDue() const { return m_tasks.begin()->first.first; } // only with tasks
    void arm();

    std::map<std::pair<qint64, Task>, std::function<void()>> m_tasks; // by the time at which they are due
    Task m_lastTask = 0;
    qint64 m_lost = 0;       // milliseconds in which the clock stood still
    qint64 m_stoodSince = 0; // of the watch
    bool m_isStanding = false;
    QElapsedTimer m_watch;
    QTimer m_waking;
};
