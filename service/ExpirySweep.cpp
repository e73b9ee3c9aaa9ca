#include "service/ExpirySweep.h"

#include "service/Log.h"
#include "service/Metrics.h"
#include "service/PictureStorage.h"

#include <algorithm>
#include <utility>

ExpirySweep::ExpirySweep(PictureStorage& storage, Metrics& metrics)
    : m_storage(storage)
    , m_metrics(metrics)
    , m_thread([this](const std::stop_token& stop) { run(stop); })
{
}

ExpirySweep::~ExpirySweep() = default;

void ExpirySweep::expect(std::int64_t when)
{
    const Clock::time_point time{std::chrono::seconds(when)};
    const std::lock_guard lock(m_mutex);
    if (time >= m_next)
        return;
    m_next = time;
    m_changed.notify_one();
}

void ExpirySweep::run(const std::stop_token& stop)
{
    std::unique_lock lock(m_mutex);
    while (!stop.stop_requested()) {
        m_next = Clock::time_point::max();
        lock.unlock();
        const Clock::time_point next = sweep();
        lock.lock();
        m_next = std::min(m_next, next);
        while (!stop.stop_requested() && Clock::now() < m_next) {
            const Clock::time_point planned = m_next;
            m_changed.wait_until(lock, stop, planned, [&] { return m_next != planned; });
        }
    }
}

ExpirySweep::Clock::time_point ExpirySweep::sweep()
{
    std::vector<Expiring> expiring;
    if (const Fault fault = m_storage.soonest(expiring))
        return later(fault.reason);
    const std::int64_t now = Clock::to_time_t(Clock::now());
    for (const Expiring& picture : expiring) {
        if (picture.when > now)
            return Clock::time_point(std::chrono::seconds(picture.when));
        Fault fault = m_storage.remove(picture.id);
        if (!fault)
            m_metrics.add(Metrics::PicturesExpired);
        if (!fault || fault.status == 404) // its sender may have deleted it
            fault = m_storage.forget(picture);
        if (fault)
            return later(fault.reason);
        m_pause = kPause;
    }
    return expiring.size() < PictureStorage::kSoonest ? Clock::time_point::max() : Clock::now();
}

ExpirySweep::Clock::time_point ExpirySweep::later(const std::string& reason)
{
    logLine("pictures that expire wait for " + std::to_string(m_pause.count()) + " seconds: " + reason);
    m_metrics.add(Metrics::StorageFaults);
    return Clock::now() + std::exchange(m_pause, std::min(2 * m_pause, kLongestPause));
}
