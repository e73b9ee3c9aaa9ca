#include "platform/x11/NativeMouseMonitor.h"

#include "tests/platform/x11/XServer.h"

#include <gtest/gtest.h>

namespace {

using Action = MouseMonitor::Action;

class NativeMouseMonitorTest : public testing::Test {
protected:
    NativeMouseMonitorTest()
    {
        m_user.moveTo({700, 700});
        m_monitor.onAction = [this](Action action) { m_actions.push_back(action); };
    }
    std::vector<Action> take()
    {
        letPass(30);
        return std::exchange(m_actions, {});
    }

    const XClient m_client{mainDisplay()};
    Input m_user{m_client};
    NativeMouseMonitor m_monitor{XConnection::ofApplication()};
    std::vector<Action> m_actions;
};

}

TEST_F(NativeMouseMonitorTest, TellsWhatTheMouseDoesWhoeverHasThePointer)
{
    ASSERT_TRUE(m_monitor.start());
    ASSERT_TRUE(m_monitor.start());
    const auto click = [this](Button button) {
        m_user.press(button);
        m_user.moveTo({720, 700});
        m_user.release(button);
        m_user.moveTo({700, 700});
    };
    const OtherProgram other(mainDisplay());
    for (const bool isGrabbed : {false, true}) {
        SCOPED_TRACE(isGrabbed);
        ASSERT_TRUE(!isGrabbed || other.grabPointer());
        click(Button::Left);
        EXPECT_EQ(
            take(), (std::vector{Action::LeftDown, Action::LeftDragged, Action::LeftUp, Action::Moved}));
        click(Button::Right);
        EXPECT_EQ(take(), (std::vector{Action::RightDown, Action::RightUp, Action::Moved}));
        click(Button::Middle);
        EXPECT_EQ(take(), std::vector{Action::Moved});
    }
}

TEST_F(NativeMouseMonitorTest, IsSilentUntilItIsStartedAndKnowsWhatIsDownThen)
{
    m_user.press(Button::Left);
    m_user.moveTo({701, 700});
    EXPECT_EQ(take(), std::vector<Action>());
    ASSERT_TRUE(m_monitor.start());
    m_user.moveTo({702, 700});
    m_user.release(Button::Left);
    EXPECT_EQ(take(), (std::vector{Action::LeftDragged, Action::LeftUp}));
}
