#include "service/PasswordGuard.h"

#include <algorithm>

bool PasswordGuard::begin(const Names& names, Clock::time_point now)
{
    const std::lock_guard lock(m_mutex);
    if (std::any_of(names.begin(), names.end(), [&](const std::string& name) { return isHeld(name, now); }))
        return false;
    for (const std::string& name : names)
        ++m_tries.of(name).underWay;
    return true;
}

void PasswordGuard::end(const Names& names, bool isRight, Clock::time_point now)
{
    const std::lock_guard lock(m_mutex);
    for (const std::string& name : names) {
        Tries& tries = m_tries.of(name);
        --tries.underWay;
        if (!isRight)
            noteWrong(tries, now);
    }
}

bool PasswordGuard::isHeld(const std::string& name, Clock::time_point now)
{
    Tries& tries = m_tries.of(name);
    if (now - tries.since >= kWindow) {
        tries.wrong = 0;
        tries.since = now;
    }
    if (now - tries.heldUntil >= kForgotten)
        tries.holds = 0;
    return now < tries.heldUntil || tries.wrong + tries.underWay >= m_wrongOnes;
}

void PasswordGuard::noteWrong(Tries& tries, Clock::time_point now) const
{
    if (++tries.wrong < m_wrongOnes)
        return;
    tries.heldUntil = now + kWindow * (1 << std::min(tries.holds, kMostDoublings));
    ++tries.holds;
    tries.wrong = 0;
}
