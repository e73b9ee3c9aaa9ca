#include "output/NoticeClock.h"

#include <algorithm>
#include <utility>

NoticeClock::NoticeClock()
{
    m_watch.start();
    m_waking.setSingleShot(true);
    m_waking.setTimerType(Qt::PreciseTimer);
    QObject::connect(&m_waking, &QTimer::timeout, &m_waking, [this] { wake(); });
}

NoticeClock::Task NoticeClock::after(int milliseconds, std::function<void()> act)
{
    const Task task = ++m_lastTask;
    m_tasks.emplace(std::pair(now() + std::max(milliseconds, 0), task), std::move(act));
    arm();
    return task;
}

void NoticeClock::cancel(Task& task)
{
    const auto isMeant = [task](const auto& entry) { return entry.first.second == task; };
    const auto found = std::find_if(m_tasks.begin(), m_tasks.end(), isMeant);
    if (found != m_tasks.end())
        m_tasks.erase(found);
    task = 0;
}

void NoticeClock::standStill()
{
    if (!std::exchange(m_isStanding, true))
        m_stoodSince = watchTime();
    arm();
}

void NoticeClock::goOn()
{
    if (std::exchange(m_isStanding, false))
        m_lost += watchTime() - m_stoodSince;
    arm();
}

qint64 NoticeClock::now() const
{
    return (m_isStanding ? m_stoodSince : watchTime()) - m_lost;
}

void NoticeClock::wakeIn(int milliseconds)
{
    if (milliseconds == kNever)
        m_waking.stop();
    else
        m_waking.start(milliseconds);
}

// What is called may ask for more, cancel and stand still.
void NoticeClock::wake()
{
    const qint64 until = now();
    while (!m_isStanding && hasTasks() && nextDue() <= until) {
        const std::function<void()> act = std::move(m_tasks.begin()->second);
        m_tasks.erase(m_tasks.begin());
        act();
    }
    arm();
}

void NoticeClock::arm()
{
    if (m_isStanding || !hasTasks())
        wakeIn(kNever);
    else
        wakeIn(int(std::max<qint64>(nextDue() - now(), 0)));
}
