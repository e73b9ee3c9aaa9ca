#pragma once

#include "service/SlotTable.h"

#include <chrono>
#include <mutex>

// Slows down who guesses passwords. A try has names: the picture's and its asker's address. A name with too
// many wrong ones within a minute is held: no password is taken for it, the right one neither, for a minute,
// and twice as long each time that it happens again, up to sixteen. Any thread.
class PasswordGuard {
public:
    using Clock = std::chrono::steady_clock;
    using Names = std::vector<std::string>;
    static constexpr std::chrono::minutes kWindow{1};
    static constexpr int kMostDoublings = 4;
    static constexpr std::chrono::hours kForgotten{1}; // after a hold, when it begins with a minute again

    explicit PasswordGuard(std::int64_t wrongOnes)
        : m_wrongOnes(int(wrongOnes))
    {
    }
    // False when a name is held; else end() must follow. Tries under way count as wrong ones, so that many at
    // once are no more than many in turn.
    bool begin(const Names& names, Clock::time_point now);
    void end(const Names& names, bool isRight, Clock::time_point now);

private:
    struct Tries {
        int underWay = 0;
        int wrong = 0; // since `since`
        int holds = 0;
        Clock::time_point since;
        Clock::time_point heldUntil;
    };
    bool isHeld(const std::string& name, Clock::time_point now);
    void noteWrong(Tries& tries, Clock::time_point now) const;

    const int m_wrongOnes;
    std::mutex m_mutex;
    SlotTable<Tries> m_tries;
};
