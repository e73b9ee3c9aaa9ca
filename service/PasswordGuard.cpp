#include "service/PasswordGuard.h"

bool PasswordGuard::mayTry(const std::string& id, Clock::time_point now)
{
    const std::lock_guard lock(m_mutex);
    forgetOld(now);
    const auto found = m_tries.find(id);
    return found == m_tries.end() || found->second.wrong < kTries;
}

void PasswordGuard::noteWrong(const std::string& id, Clock::time_point now)
{
    const std::lock_guard lock(m_mutex);
    forgetOld(now);
    Tries& tries = m_tries.try_emplace(id, Tries{0, now}).first->second;
    ++tries.wrong;
}

void PasswordGuard::forgetOld(Clock::time_point now)
{
    std::erase_if(m_tries, [now](const auto& entry) { return now - entry.second.since >= kWindow; });
}
