#pragma once

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>

// One answer that another thread gives, or never gives. Who asks and who answers share it, so either may go
// first; an answer after the wait has ended is dropped with the last owner.
template <class T>
class LateAnswer {
public:
    static std::shared_ptr<LateAnswer> make() { return std::make_shared<LateAnswer>(); }

    // Any thread; only the first answer counts.
    void give(T value)
    {
        const std::lock_guard lock(m_mutex);
        if (!m_value)
            m_value = std::move(value);
        m_given.notify_all();
    }
    // Empty when no answer came in that time.
    std::optional<T> wait(std::chrono::milliseconds limit)
    {
        std::unique_lock lock(m_mutex);
        m_given.wait_for(lock, limit, [this] { return m_value.has_value(); });
        return m_value;
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_given;
    std::optional<T> m_value;
};
