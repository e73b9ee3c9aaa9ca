#include "platform/x11/NativeMouseMonitor.h"

#include "tests/platform/x11/XServer.h"

#include <gtest/gtest.h>

namespace {

using Action = MouseMonitor::Action;

class NativeMouseMonitorTest : public testing::Test {
protected:
    NativeMouseMonitorTest()
    {
        m_user.movePointer({700, 700});
        m_monitor.onAction = [this](Action action) { m_actions.push_back(action); };
    }
    std::vector<Action> take()
    {
        letPass(30);
        return std::exchange(m_actions, {});
    }

    XClient m_user{mainDisplay()};
    NativeMouseMonitor m_monitor{XConnection::ofApplication()};
    std::vector<Action> m_actions;
};

}

TEST_F(NativeMouseMonitorTest, TellsWhatTheMouseDoesWhoeverHasThePointer)
{
    constexpr uint8_t kLeft = 1, kMiddle = 2, kRight = 3;
    ASSERT_TRUE(m_monitor.start());
    ASSERT_TRUE(m_monitor.start());
    const auto click = [this](uint8_t button) {
        m_user.button(button, true);
        m_user.movePointer({720, 700});
        m_user.button(button, false);
        m_user.movePointer({700, 700});
    };
    XClient other(mainDisplay());
    for (const bool isGrabbed : {false, true}) {
        SCOPED_TRACE(isGrabbed);
        ASSERT_TRUE(!isGrabbed || other.grabPointer());
        click(kLeft);
        EXPECT_EQ(
            take(), (std::vector{Action::LeftDown, Action::LeftDragged, Action::LeftUp, Action::Moved}));
        click(kRight);
        EXPECT_EQ(take(), (std::vector{Action::RightDown, Action::RightUp, Action::Moved}));
        click(kMiddle);
        EXPECT_EQ(take(), std::vector{Action::Moved});
    }
}

TEST_F(NativeMouseMonitorTest, IsSilentUntilItIsStartedAndKnowsWhatIsDownThen)
{
    m_user.button(1, true);
    m_user.movePointer({701, 700});
    EXPECT_EQ(take(), std::vector<Action>());
    ASSERT_TRUE(m_monitor.start());
    m_user.movePointer({702, 700});
    m_user.button(1, false);
    EXPECT_EQ(take(), (std::vector{Action::LeftDragged, Action::LeftUp}));
}
