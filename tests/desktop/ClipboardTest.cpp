#include "tests/desktop/ClipboardManager.h"
#include "tests/desktop/ProgramTest.h"

namespace {

// The end of a program that has a picture on the clipboard.
class Clipboard : public ProgramTest {
protected:
    testing::AssertionResult copyRegion()
    {
        const auto result = openOverlay();
        input().drag(kRegion);
        input().chord({Key::Control, Key::C});
        return result ? waitForRest() : result;
    }
    // Whether the program ends in time, and without a crash, while something else goes on.
    bool ends(const std::function<void()>& goOn, int milliseconds)
    {
        QProcess& program = m_program.resident();
        return waitUntil(
                   [&] {
                       goOn();
                       return program.state() == QProcess::NotRunning || program.waitForFinished(1);
                   },
                   milliseconds) &&
               Program::finish(program).exitCode == 0;
    }

    static constexpr QRect kRegion{101, 377, 301, 222};
};

} // namespace

TEST_F(Clipboard, OutlivesTheProgramWithAManager)
{
    for (const bool isQuit : {true, false}) {
        SCOPED_TRACE(isQuit ? "quit" : "terminated");
        ASSERT_TRUE(m_program.startResident());
        ClipboardManager manager(m_desktop.displayName());
        ASSERT_TRUE(copyRegion());
        std::unique_ptr<QProcess> verb;
        if (isQuit)
            verb = m_program.start("quit");
        else
            m_program.resident().terminate();
        ASSERT_TRUE(ends([&] { manager.work(); }, 5000));
        EXPECT_TRUE(manager.hasKept());
        EXPECT_EQ(manager.types(), QByteArrayList({"image/png", "image/tiff"}));
        for (const QByteArray& type : manager.types()) {
            SCOPED_TRACE(type.constData());
            EXPECT_TRUE(samePixels(QImage::fromData(manager.kept(type)), m_before.copy(kRegion)));
        }
        if (verb)
            Program::finish(*verb);
        m_program.quitResident();
    }
}

TEST_F(Clipboard, DelaysNoQuitWithoutAManager)
{
    ASSERT_TRUE(m_program.startResident());
    ASSERT_TRUE(copyRegion());
    m_program.resident().terminate();
    EXPECT_TRUE(ends([] {}, 2000)); // an unanswered program would wait for five seconds
    EXPECT_EQ(clipboard("image/png"), QByteArray());
}
