#pragma once

#include "output/NoticeClock.h"

// A clock that a test moves.
class ManualClock final : public NoticeClock {
public:
    // Lets the milliseconds pass and everything happen that is due in them, in its order.
    void pass(qint64 milliseconds)
    {
        const qint64 end = m_watchTime + milliseconds;
        while (m_wakesAt >= 0 && m_wakesAt <= end) {
            m_watchTime = std::exchange(m_wakesAt, -1);
            wake();
        }
        m_watchTime = end;
    }

private:
    qint64 watchTime() const override { return m_watchTime; }
    void wakeIn(int milliseconds) override
    {
        m_wakesAt = milliseconds == kNever ? -1 : m_watchTime + milliseconds;
    }

    qint64 m_watchTime = 0;
    qint64 m_wakesAt = -1;
};
