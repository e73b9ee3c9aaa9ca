#include "service/RateLimiter.h"

#include <algorithm>

bool RateLimiter::take(const std::string& asker, Clock::time_point now)
{
    if (m_perMinute == 0)
        return true;
    const std::lock_guard lock(m_mutex);
    Share& share = m_shares.of(asker);
    const double minutes = std::chrono::duration<double, std::ratio<60>>(now - share.when).count();
    share.used = std::max(0.0, share.used - minutes * m_perMinute);
    share.when = now;
    if (share.used + 1 > m_perMinute)
        return false;
    share.used += 1;
    return true;
}
