#pragma once

#include "service/SlotTable.h"

#include <chrono>
#include <mutex>

// Lets each asker through so many times a minute: a minute's share may go at once and comes back evenly. Any
// thread.
class RateLimiter {
public:
    using Clock = std::chrono::steady_clock;

    // 0 for no limit.
    explicit RateLimiter(std::int64_t perMinute)
        : m_perMinute(double(perMinute))
    {
    }
    bool take(const std::string& asker, Clock::time_point now);

private:
    struct Share {
        double used = 0; // of the minute's, as of `when`
        Clock::time_point when;
    };

    const double m_perMinute;
    std::mutex m_mutex;
    SlotTable<Share> m_shares;
};
