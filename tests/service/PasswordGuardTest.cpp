#include "service/PasswordGuard.h"

#include <gtest/gtest.h>

TEST(PasswordGuard, HoldsBackWhoeverGuessesOnePictureForTheRestOfAMinute)
{
    PasswordGuard guard;
    const PasswordGuard::Clock::time_point begin{};
    for (int i = 0; i < PasswordGuard::kTries; ++i) {
        EXPECT_TRUE(guard.mayTry("one", begin)) << i;
        guard.noteWrong("one", begin);
    }
    struct Case {
        const char* id;
        int second;
        bool mayTry;
    };
    const Case cases[] = {{"one", 0, false}, {"other", 0, true}, {"one", 59, false}, {"one", 60, true}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.second);
        EXPECT_EQ(guard.mayTry(c.id, begin + std::chrono::seconds(c.second)), c.mayTry);
    }
}
