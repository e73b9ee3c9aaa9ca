#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <thread>

class Metrics;
class PictureStorage;

// Removes pictures whose day has come, on a thread of its own that sleeps until the next one's. The storage
// and the counts outlive it.
class ExpirySweep {
public:
    using Clock = std::chrono::system_clock;

    ExpirySweep(PictureStorage& storage, Metrics& metrics);
    ~ExpirySweep();

    // Called after a picture was stored that expires then, in seconds since 1970.
    void expect(std::int64_t when);

    static constexpr std::chrono::seconds kPause{60}; // after a fault, and twice as long after the next
    static constexpr std::chrono::seconds kLongestPause{3600};

private:
    void run(const std::stop_token& stop);
    // When it is to be called next.
    Clock::time_point sweep();
    Clock::time_point later(const std::string& reason);

    PictureStorage& m_storage;
    Metrics& m_metrics;
    std::chrono::seconds m_pause = kPause;
    std::mutex m_mutex;
    std::condition_variable_any m_changed;
    Clock::time_point m_next; // guarded
    std::jthread m_thread;    // last: it uses all above
};
