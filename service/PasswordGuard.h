#pragma once

#include <chrono>
#include <map>
#include <mutex>
#include <string>

// Slows down who guesses a picture's password: a picture that got too many wrong ones within a minute takes
// none for the rest of it, the right one neither. Any thread.
class PasswordGuard {
public:
    using Clock = std::chrono::steady_clock;
    static constexpr int kTries = 10;
    static constexpr std::chrono::seconds kWindow{60};

    bool mayTry(const std::string& id, Clock::time_point now);
    void noteWrong(const std::string& id, Clock::time_point now);

private:
    struct Tries {
        int wrong = 0;
        Clock::time_point since;
    };
    void forgetOld(Clock::time_point now);

    std::mutex m_mutex;
    std::map<std::string, Tries> m_tries; // of the last minute
};
