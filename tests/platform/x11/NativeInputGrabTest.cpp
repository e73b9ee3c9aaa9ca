#include "platform/x11/NativeInputGrab.h"

#include "tests/platform/x11/XServer.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>

namespace {

class NativeInputGrabTest : public testing::Test {
protected:
    NativeInputGrabTest()
    {
        m_overlay.setFlags(Qt::FramelessWindowHint | Qt::BypassWindowManagerHint);
        m_overlay.setGeometry(100, 100, 50, 50);
        m_overlay.show();
        m_grab.onRefused = [this](const QString& reason) { m_refusal = reason; };
        m_other.focus(m_other.openWindow({0, 0, 50, 50}, 0));
    }
    // A press of Escape reaches the other program's window.
    bool otherGetsKeys()
    {
        m_other.takePresses();
        m_user.chord({Key::Escape});
        letPass(20);
        return m_other.takePresses() == 1;
    }

    const OtherProgram m_other{mainDisplay()};
    Input m_user{m_other};
    QWindow m_overlay;
    NativeInputGrab m_grab{XConnection::ofApplication()};
    QString m_refusal;
};

}

TEST_F(NativeInputGrabTest, WaitsForAnotherProgram)
{
    ASSERT_TRUE(m_other.grabKeyboard());
    m_grab.grabKeyboard(m_overlay);
    EXPECT_FALSE(m_grab.holdsKeyboard());
    letPass(100);
    m_other.ungrabKeyboard();
    EXPECT_TRUE(waitFor([this] { return m_grab.holdsKeyboard(); }, 200));
    EXPECT_TRUE(m_refusal.isEmpty());
}

TEST_F(NativeInputGrabTest, KeepsAKeyThatIsNeverReleasedForTwoSeconds)
{
    m_grab.grabKeyboard(m_overlay);
    m_user.press(Key::Escape);
    letPass(20);
    m_grab.releaseWithKey();
    QElapsedTimer elapsed;
    elapsed.start();
    EXPECT_TRUE(waitFor([this] { return !m_grab.holdsKeyboard(); }, 3000));
    EXPECT_NEAR(double(elapsed.elapsed()), 2000, 200);
    EXPECT_TRUE(m_refusal.isEmpty());
}

TEST_F(NativeInputGrabTest, LetsGoAtOnceWhenNoKeyIsDown)
{
    m_grab.grabKeyboard(m_overlay);
    m_user.chord({Key::Escape});
    letPass(20);
    m_grab.releaseWithKey();
    EXPECT_FALSE(m_grab.holdsKeyboard());
    EXPECT_TRUE(otherGetsKeys());
}

TEST_F(NativeInputGrabTest, MovesAKeptKeyboardToTheNextWindowAndLosesItWithThat)
{
    m_grab.grabKeyboard(m_overlay);
    m_user.press(Key::Escape);
    letPass(20);
    m_grab.releaseWithKey();
    m_grab.grabKeyboard(m_overlay);
    m_user.release(Key::Escape);
    letPass(50);
    EXPECT_TRUE(m_grab.holdsKeyboard());
    EXPECT_FALSE(otherGetsKeys());
    m_overlay.hide();
    EXPECT_TRUE(waitFor([this] { return !m_grab.holdsKeyboard(); }, 200));
}

TEST_F(NativeInputGrabTest, TakesThePointerAndGivesItBack)
{
    m_grab.grabPointer(m_overlay);
    EXPECT_TRUE(m_grab.holdsPointer());
    EXPECT_FALSE(m_other.grabPointer());
    m_grab.releasePointer();
    EXPECT_FALSE(m_grab.holdsPointer());
    EXPECT_TRUE(waitFor([this] { return m_other.grabPointer(); }, 200));
}

TEST_F(NativeInputGrabTest, WaitsForAProgramThatHoldsThePointer)
{
    m_user.moveTo({120, 120}); // over the overlay
    for (const int ms : {100, 2500}) {
        SCOPED_TRACE(ms);
        ASSERT_TRUE(waitFor([this] { return m_other.grabPointer(); }, 200));
        m_grab.grabPointer(m_overlay);
        letPass(ms);
        EXPECT_FALSE(m_grab.holdsPointer());
        m_other.ungrabPointer();
        EXPECT_TRUE(waitFor([this] { return m_grab.holdsPointer(); }, 200));
        EXPECT_FALSE(m_other.grabPointer());
        m_grab.releasePointer();
    }
}

TEST_F(NativeInputGrabTest, AsksForThePointerNoLongerThanTheWindowShows)
{
    for (const bool isHeld : {true, false}) {
        SCOPED_TRACE(isHeld);
        m_overlay.show();
        ASSERT_TRUE(isHeld || waitFor([this] { return m_other.grabPointer(); }, 200));
        m_grab.grabPointer(m_overlay);
        EXPECT_EQ(m_grab.holdsPointer(), isHeld);
        m_overlay.hide();
        letPass(50);
        m_other.ungrabPointer();
        m_overlay.show();
        letPass(50);
        EXPECT_FALSE(m_grab.holdsPointer());
    }
}
