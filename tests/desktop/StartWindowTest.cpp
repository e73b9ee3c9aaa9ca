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
        m_process = m_program.start("");
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
        for (const xcb_window_t window : server().visibleWindows())
            if (server().geometry(window).width() >= 460)
                return server().geometry(window);
        return {};
    }
    bool waitForNoGreeting() const
    {
        return waitUntil([this] { return greeting().isEmpty(); });
    }
    bool opensOverlay(int milliseconds)
    {
        input().chord({Key::Super, Key::Digit1});
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
    const Answer answer = m_program.run("full");
    EXPECT_EQ(answer.exitCode, 0);
    EXPECT_TRUE(samePixels(QImage(answer.path()), m_before));
    EXPECT_TRUE(greeting().isEmpty());
}

TEST_F(StartWindow, StaysAwayOnceItIsDeclined)
{
    input().clickAt(greeting().topLeft() + kCheckBox);
    ASSERT_TRUE(waitForNoGreeting());
    m_program.run("quit");
    ASSERT_TRUE(m_process->waitForFinished(5000));
    m_process = m_program.start("");
    ASSERT_TRUE(waitUntil([this] { return m_program.answers(); }));
    EXPECT_EQ(logCount("launch: hot keys"), 2);
    EXPECT_TRUE(greeting().isEmpty());
}
