#pragma once

#include <chrono>
#include <limits>
#include <thread>

class Stopwatch {
public:
    void restart() { m_start = Clock::now(); }
    double milliseconds() const
    {
        return std::chrono::duration<double, std::milli>(Clock::now() - m_start).count();
    }

private:
    using Clock = std::chrono::steady_clock;
    Clock::time_point m_start = Clock::now();
};

// Between two looks at something that is timed: short beside what is timed, long enough to leave the server
// alone.
inline void shortPause()
{
    std::this_thread::sleep_for(std::chrono::microseconds(200));
}

// The milliseconds until `holds` answers true; infinite when that took longer than five seconds.
template <class Condition>
double millisecondsUntil(const Stopwatch& watch, Condition holds)
{
    while (!holds()) {
        if (watch.milliseconds() > 5000)
            return std::numeric_limits<double>::infinity();
        shortPause();
    }
    return watch.milliseconds();
}
