#include "service/ClientAddress.h"
#include "service/PasswordGuard.h"
#include "service/RateLimiter.h"

#include <gtest/gtest.h>

#include <httplib.h>

using std::chrono::seconds;

TEST(PasswordGuard, HoldsANameLongerEachTimeThatItIsGuessed)
{
    PasswordGuard guard(3);
    const PasswordGuard::Clock::time_point begin{};
    const auto isTried = [&](const PasswordGuard::Names& names, int second, bool isRight) {
        const auto now = begin + seconds(second);
        if (!guard.begin(names, now))
            return false;
        guard.end(names, isRight, now);
        return true;
    };
    struct Case {
        PasswordGuard::Names names;
        int second;
        bool isRight;
        bool isTried;
    };
    const Case cases[] = {
        {{"picture", "thief"}, 0, false, true},
        {{"picture", "thief"}, 1, false, true},
        {{"picture", "guest"}, 2, true, true},  // a right one counts for nothing
        {{"picture", "thief"}, 3, false, true}, // the third wrong one
        {{"picture", "guest"}, 4, true, false}, // nobody may open it now
        {{"another", "thief"}, 4, true, false}, // nor may the address try another one
        {{"another", "guest"}, 4, true, true},
        {{"picture", "guest"}, 62, true, false},
        {{"picture", "guest"}, 63, true, true}, // a minute after the third
        {{"picture"}, 100, false, true},
        {{"picture"}, 101, false, true},
        {{"picture"}, 102, false, true},
        {{"picture"}, 102 + 119, true, false}, // two minutes
        {{"picture"}, 102 + 120, true, true},
        {{"slow"}, 0, false, true},
        {{"slow"}, 50, false, true},
        {{"slow"}, 100, false, true}, // three, but not within a minute
        {{"slow"}, 101, false, true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.names.front() + " at " + std::to_string(c.second));
        EXPECT_EQ(isTried(c.names, c.second, c.isRight), c.isTried);
    }
}

TEST(PasswordGuard, LetsNoMoreThroughAtOnceThanInTurn)
{
    PasswordGuard guard(3);
    int begun = 0;
    for (int i = 0; i < 10; ++i)
        begun += guard.begin({"picture"}, {}) ? 1 : 0;
    EXPECT_EQ(begun, 3);
}

TEST(RateLimiter, GivesEachAskerItsShareOfAMinute)
{
    RateLimiter limiter(60), unlimited(0);
    const auto taken = [](RateLimiter& from, const char* asker, int second) {
        int count = 0;
        while (count < 100 && from.take(asker, RateLimiter::Clock::time_point(seconds(second))))
            ++count;
        return count;
    };
    EXPECT_EQ(taken(limiter, "one", 1000), 60);
    EXPECT_EQ(taken(limiter, "other", 1000), 60);
    EXPECT_EQ(taken(limiter, "one", 1010), 10); // comes back evenly
    EXPECT_EQ(taken(limiter, "one", 9000), 60); // and never more than a minute's
    EXPECT_EQ(taken(unlimited, "one", 1000), 100);
}

TEST(ClientAddress, CountsWhoAsksAndBelievesTheTrustedProxyOnly)
{
    struct Case {
        const char* peer;
        const char* forwarded;
        const char* proxy;
        const char* asker;
        bool isFromHere;
    };
    const Case cases[] = {
        {"192.0.2.7", "", "", "192.0.2.7", false},
        {"127.0.0.1", "", "", "127.0.0.1", true},
        {"::ffff:127.0.0.1", "", "", "127.0.0.1", true},
        {"2001:db8:1:2:3:4:5:6", "", "", "2001:db8:1:2::/64", false},
        {"192.0.2.7", "198.51.100.1", "", "192.0.2.7", false}, // anybody can write that
        {"127.0.0.1", "198.51.100.1", "", "127.0.0.1", false},
        {"127.0.0.1", "203.0.113.9, 198.51.100.1", "127.0.0.1", "198.51.100.1", false},
        {"127.0.0.1", "203.0.113.9,2001:db8:1:2:3:4:5:6 ", "127.0.0.1", "2001:db8:1:2::/64", false},
        {"127.0.0.1", "someone", "127.0.0.1", "127.0.0.1", false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.peer) + " " + c.forwarded);
        httplib::Request request;
        request.remote_addr = c.peer;
        if (*c.forwarded)
            request.set_header("X-Forwarded-For", c.forwarded);
        EXPECT_EQ(ClientAddress::asker(request, c.proxy), c.asker);
        EXPECT_EQ(ClientAddress::isFromHere(request), c.isFromHere);
    }
}
