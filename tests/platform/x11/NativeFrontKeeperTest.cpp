#include "platform/x11/NativeFrontKeeper.h"

#include "tests/platform/x11/XServer.h"

#include <gtest/gtest.h>

namespace {

constexpr QRect kOverlay(100, 100, 200, 150);
constexpr QRect kOver(150, 120, 60, 40);
constexpr QRect kBeside(400, 100, 60, 40);

void show(QWindow& window, const QRect& pixels)
{
    window.setFlags(Qt::FramelessWindowHint | Qt::BypassWindowManagerHint);
    window.setGeometry(pixels);
    window.show();
}

class NativeFrontKeeperTest : public testing::Test {
protected:
    NativeFrontKeeperTest()
    {
        show(m_overlay, kOverlay);
        m_keeper.keepInFront(m_overlay);
        letPass(50);
    }
    // Whether the overlay lies above the other window, once the keeper has had its time.
    bool isAbove(xcb_window_t other)
    {
        letPass(60);
        return m_other.isAbove(xcb_window_t(m_overlay.winId()), other);
    }

    const OtherProgram m_other{mainDisplay()};
    QWindow m_overlay;
    NativeFrontKeeper m_keeper{XConnection::ofApplication()};
};

}

TEST_F(NativeFrontKeeperTest, RaisesTheWindowOverWhatAnotherProgramPutsAboveIt)
{
    const xcb_window_t window = m_other.openWindow(kOver, 0);
    EXPECT_TRUE(isAbove(window));
    m_other.raise(window);
    EXPECT_TRUE(isAbove(window));
    EXPECT_FALSE(isAbove(m_other.openWindow(kBeside, 0))); // covers nothing
}

TEST_F(NativeFrontKeeperTest, FindsWhatCameBeforeIt)
{
    m_keeper.release();
    const xcb_window_t window = m_other.openWindow(kOver, 0);
    EXPECT_FALSE(isAbove(window));
    m_keeper.keepInFront(m_overlay);
    EXPECT_TRUE(isAbove(window));
}

TEST_F(NativeFrontKeeperTest, BuriesNoWindowOfOurs)
{
    QWindow first, second;
    show(first, kOver);
    show(second, kOver.translated(10, 10));
    const auto id = [](const QWindow& window) { return xcb_window_t(window.winId()); };
    EXPECT_FALSE(isAbove(id(first)));
    const xcb_window_t window = m_other.openWindow(kOver, 0);
    EXPECT_TRUE(isAbove(window));
    EXPECT_FALSE(isAbove(id(first)));
    EXPECT_TRUE(m_other.isAbove(id(second), id(first)));
}

TEST_F(NativeFrontKeeperTest, RaisesOnlyWhenItMayAndOnlyUntilItsEnd)
{
    m_keeper.mayRaise = [] { return false; };
    EXPECT_FALSE(isAbove(m_other.openWindow(kOver, 0)));
    m_keeper.mayRaise = [] { return true; };
    EXPECT_TRUE(isAbove(m_other.openWindow(kOver, 0)));
    m_overlay.hide();
    letPass(20);
    m_overlay.show();
    EXPECT_FALSE(isAbove(m_other.openWindow(kOver, 0)));
}
