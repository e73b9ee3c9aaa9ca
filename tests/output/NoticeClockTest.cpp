#include "tests/output/ManualClock.h"

#include <QTest>

#include <gtest/gtest.h>

namespace {

class NoticeClockTest : public testing::Test {
protected:
    NoticeClock::Task ask(int milliseconds, int number)
    {
        return clock.after(milliseconds, [this, number] { called.push_back(number); });
    }

    ManualClock clock;
    std::vector<int> called;
};

}

TEST_F(NoticeClockTest, CallsWhatIsDueInItsOrder)
{
    ask(30, 3);
    ask(10, 1);
    ask(10, 2);
    ask(50, 5);
    clock.pass(9);
    EXPECT_TRUE(called.empty());
    clock.pass(31);
    EXPECT_EQ(called, (std::vector{1, 2, 3}));
}

TEST_F(NoticeClockTest, ForgetsWhatIsCancelledByAnEarlierTask)
{
    NoticeClock::Task second = ask(20, 2);
    clock.after(10, [&] { clock.cancel(second); });
    clock.pass(100);
    EXPECT_TRUE(called.empty());
    EXPECT_EQ(second, 0U);
    clock.cancel(second);
}

TEST_F(NoticeClockTest, DoesNotCountTheTimeInWhichItStandsStill)
{
    ask(100, 1);
    clock.pass(60);
    clock.standStill();
    ask(10, 2); // of the time that goes on later
    clock.pass(1000);
    EXPECT_EQ(clock.now(), 60);
    clock.goOn();
    clock.pass(9);
    EXPECT_TRUE(called.empty());
    clock.pass(31);
    EXPECT_EQ(called, (std::vector{2, 1}));
}

TEST(NoticeClock, RunsOnTheMachinesTime)
{
    NoticeClock clock;
    int calls = 0;
    clock.after(20, [&] { ++calls; });
    NoticeClock::Task other = clock.after(1, [&] { calls += 100; });
    clock.cancel(other);
    EXPECT_TRUE(QTest::qWaitFor([&] { return calls > 0; }, 2000));
    EXPECT_EQ(calls, 1);
    EXPECT_GE(clock.now(), 20);
}
