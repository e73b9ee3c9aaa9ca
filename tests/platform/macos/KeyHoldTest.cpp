#include "platform/macos/KeyHold.h"

#include <QCoreApplication>
#include <QDeadlineTimer>

#include <gtest/gtest.h>

namespace {

class MacKeyHold : public testing::Test {
protected:
    MacKeyHold()
    {
        m_hold.onEnd = [this] { m_story += 'e'; };
    }

    void begin()
    {
        m_hold.begin([this] { return m_isDown; });
    }
    void wait()
    {
        m_hold.whenOver([this] { m_story += 'w'; });
    }

    int m_argc = 0;
    QCoreApplication m_application{m_argc, nullptr};
    KeyHold m_hold;
    bool m_isDown = true;
    std::string m_story; // e the hold ended, w who waited had its turn
};

}

TEST_F(MacKeyHold, LastsUntilItsKeyIsUp)
{
    begin();
    wait();
    m_hold.keyReleased(); // another key
    EXPECT_TRUE(m_hold.isHeld());
    EXPECT_EQ(m_story, "");
    m_isDown = false;
    m_hold.keyReleased();
    EXPECT_FALSE(m_hold.isHeld());
    EXPECT_EQ(m_story, "ew");
    m_hold.keyReleased();
    m_hold.end();
    EXPECT_EQ(m_story, "ew") << "it ends once";
}

TEST_F(MacKeyHold, DoesNotBeginForAKeyThatIsUp)
{
    m_isDown = false;
    begin();
    EXPECT_FALSE(m_hold.isHeld());
    wait();
    EXPECT_EQ(m_story, "ew");
}

TEST_F(MacKeyHold, GivesTheTurnToTheLastWhoWaits)
{
    begin();
    m_hold.whenOver([this] { m_story += 'x'; });
    wait();
    m_hold.end();
    EXPECT_EQ(m_story, "ew");
}

TEST_F(MacKeyHold, GivesUpOnAKeyThatNeverComesUp)
{
    begin();
    wait();
    const QDeadlineTimer limit(10000);
    while (m_hold.isHeld() && !limit.hasExpired())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
    EXPECT_EQ(m_story, "ew");
}
