#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <string>

// Counts of what the service has done since it began. Any thread.
class Metrics {
public:
    enum Count {
        Answered2xx,
        Answered3xx,
        Answered4xx,
        Answered5xx,
        UploadsStored,
        UploadsRefused,
        UploadBytes,
        PicturesSent,
        PicturesDeleted,
        PicturesExpired,
        PasswordsRight,
        PasswordsWrong,
        PasswordsHeld,
        RateLimited,
        StorageFaults,
        Counts
    };

    void add(Count count, std::uint64_t number = 1) { m_counts[count] += number; }
    // In the text format of Prometheus.
    std::string text() const;

private:
    std::array<std::atomic<std::uint64_t>, Counts> m_counts{};
};
