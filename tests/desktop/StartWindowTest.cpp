#include "tests/desktop/ProgramTest.h"

namespace {

constexpr QPoint kCheckBox(39, 222); // from the window's corner
const QVariantMap kGreeting{{QStringLiteral("applicationIsNeedShowStartWindow"), true}};

// The program as it starts for the first time.
class StartWindow : public ProgramTest {
protected:
    StartWindow()
        : ProgramTest({{1280, 800}, true, false})
    {
    }
    void SetUp() override
    {
        ProgramTest::SetUp();
        m_before = m_desktop.settledScreen();
        m_program.writeSettings(kGreeting);
        m_process = m_program.startOther(QStringLiteral(LUMORA_PROGRAM), {});
        ASSERT_TRUE(waitUntil([this] { return !greeting().isEmpty(); }));
    }
    void TearDown() override
    {
        ProgramTest::TearDown();
        m_process->waitForFinished(5000);
        EXPECT_EQ(m_process->exitStatus(), QProcess::NormalExit);
    }

    // Where it shows; empty when it does not.
    QRect greeting() const
    {
        for (const xcb_window_t window : m_desktop.server().visibleWindows())
            if (m_desktop.server().geometry(window).width() >= 460)
                return m_desktop.server().geometry(window);
        return {};
    }
    bool waitForNoGreeting() const
    {
        return waitUntil([this] { return greeting().isEmpty(); });
    }
    bool opensOverlay(int milliseconds)
    {
        m_desktop.input().chord({Key::Super, Key::Digit1});
        return waitUntil([this] { return m_program.overlay() != XCB_NONE; }, milliseconds);
    }

    std::unique_ptr<QProcess> m_process;
};

} // namespace

TEST_F(StartWindow, GoesByItselfAndThenTheHotKeysWork)
{
    EXPECT_EQ(greeting().center().x(), 639);
    EXPECT_FALSE(opensOverlay(1000));
    EXPECT_FALSE(greeting().isEmpty());
    ASSERT_TRUE(waitForNoGreeting());
    EXPECT_TRUE(waitUntil([this] { return opensOverlay(300); }));
}

TEST_F(StartWindow, GoesSoonerForAVerbAndIsInNoPicture)
{
    const Answer answer = m_program.run({QStringLiteral("full")});
    EXPECT_EQ(answer.exitCode, 0);
    EXPECT_TRUE(samePixels(QImage(answer.path()), m_before));
    EXPECT_TRUE(greeting().isEmpty());
}

TEST_F(StartWindow, StaysAwayOnceItIsDeclined)
{
    m_desktop.input().moveTo(greeting().topLeft() + kCheckBox);
    m_desktop.input().click(Button::Left);
    ASSERT_TRUE(waitForNoGreeting());
    m_program.run({QStringLiteral("quit")});
    ASSERT_TRUE(m_process->waitForFinished(5000));
    m_process = m_program.startOther(QStringLiteral(LUMORA_PROGRAM), {});
    ASSERT_TRUE(waitUntil([this] { return m_program.answers(); }));
    EXPECT_EQ(logCount("launch: hot keys"), 2);
    EXPECT_TRUE(greeting().isEmpty());
}
