#include "tests/desktop/ProgramTest.h"

#include <QElapsedTimer>

namespace {

using CommandLine = ProgramTest;

} // namespace

TEST_F(CommandLine, AnswersWithoutAResidentProgram)
{
    struct Case {
        const char* arguments;
        int exitCode;
        const char* out; // a part of it; empty for none at all
        const char* err;
    };
    const Case cases[] = {
        {"--version", 0, "1.0.0", ""},
        {"--help", 0, "region", ""},
        {"cancel", 3, "", " "},
        {"quit", 3, "", " "},
        {"frobnicate", 2, "", "usage"},
        {"full again", 2, "", "again"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.arguments);
        const Answer answer = m_program.run(c.arguments);
        EXPECT_EQ(answer.exitCode, c.exitCode);
        EXPECT_TRUE(answer.out.contains(QLatin1String(c.out))) << qPrintable(answer.out);
        EXPECT_TRUE(answer.err.contains(QLatin1String(c.err))) << qPrintable(answer.err);
        EXPECT_EQ(answer.out.isEmpty(), *c.out == '\0') << qPrintable(answer.out);
        EXPECT_EQ(answer.err.isEmpty(), *c.err == '\0') << qPrintable(answer.err);
    }
}

TEST_F(CommandLine, CaptureStartsTheResidentProgramAndLetsTheShellGo)
{
    m_before = m_desktop.settledScreen();
    m_program.setEnvironment("PROGRAM", QStringLiteral(LUMORA_PROGRAM));
    // A resident program that kept the pipe open would keep the shell waiting.
    const auto shell = m_program.startOther(QStringLiteral("sh"),
        {QStringLiteral("-c"), QStringLiteral("path=$(\"$PROGRAM\" full 2>&1) && echo \"$path\"")});
    const Answer answer = Program::finish(*shell);
    EXPECT_EQ(answer.exitCode, 0) << qPrintable(answer.err);
    EXPECT_TRUE(samePixels(QImage(answer.path()), m_before)) << qPrintable(answer.out);
    EXPECT_EQ(m_program.run("quit").exitCode, 0);
    EXPECT_TRUE(waitUntil([this] { return m_program.run("quit").exitCode == 3; }));
}

TEST_F(CommandLine, SecondCaptureIsBusyAndSecondStartSaysThatItRuns)
{
    ASSERT_TRUE(m_program.startResident());
    const auto region = startRegion();
    ASSERT_TRUE(region);
    for (const char* verb : {"region", "full"})
        EXPECT_EQ(m_program.run(verb).exitCode, 5);
    const Answer second = m_program.run("");
    EXPECT_EQ(second.exitCode, 0);
    EXPECT_EQ(second.out, QString());
    EXPECT_TRUE(second.err.contains(QLatin1String("runs"))) << qPrintable(second.err);
    EXPECT_NE(m_program.overlay(), XCB_NONE);
    EXPECT_TRUE(m_program.answers());
    EXPECT_EQ(Program::finish(*region).exitCode, 4);
}

TEST_F(CommandLine, RefusedHotKeyIsLoggedAndAnswered)
{
    takeHotKey(Key::Digit1);
    ASSERT_TRUE(m_program.startResident());
    const auto namesTheKey = [](const QString& line) {
        return line.contains(QLatin1String("cmd 1")) && line.contains(QLatin1String("taken"));
    };
    const QStringList log = m_program.logLines();
    EXPECT_EQ(std::count_if(log.begin(), log.end(), namesTheKey), 1);
    const Answer second = m_program.run("");
    EXPECT_EQ(second.exitCode, 0);
    EXPECT_TRUE(namesTheKey(second.err)) << qPrintable(second.err);
    EXPECT_FALSE(second.err.contains(QLatin1String("cmd 2"))) << qPrintable(second.err);
    EXPECT_FALSE(pictureAfter({Key::Super, Key::Digit2}).isNull());
}

TEST_F(CommandLine, EndInMidCaptureEndsBoth)
{
    for (const bool isSignal : {false, true}) {
        SCOPED_TRACE(isSignal ? "SIGTERM" : "quit");
        ASSERT_TRUE(m_program.startResident());
        const auto region = startRegion();
        ASSERT_TRUE(region);
        if (isSignal)
            m_program.resident().terminate();
        else
            EXPECT_EQ(m_program.run("quit").exitCode, 0);
        EXPECT_EQ(Program::finish(*region).exitCode, 4);
        EXPECT_TRUE(m_program.resident().waitForFinished(2000));
        EXPECT_EQ(m_program.quitResident(), 0);
        EXPECT_FALSE(server().isKeyboardTaken());
    }
}

TEST_F(CommandLine, DesktopThatCannotBeUsedIsSaidAtOnce)
{
    struct Case {
        const char* what;
        std::vector<std::pair<const char*, const char*>> variables; // a null value removes one
        const char* message;
    };
    const Case cases[] = {
        {"no display", {{"DISPLAY", nullptr}}, "display"},
        {"a display that is not there", {{"DISPLAY", ":9876"}}, ":9876"},
        {"Wayland", {{"XDG_SESSION_TYPE", "wayland"}, {"WAYLAND_DISPLAY", "wayland-0"}}, "X11"},
    };
    for (const Case& c : cases) {
        for (const char* arguments : {"", "region"}) {
            SCOPED_TRACE(testing::Message() << c.what << ' ' << arguments);
            Program program(m_desktop, QStringLiteral(LUMORA_PROGRAM));
            for (const auto& [variable, value] : c.variables)
                value ? program.setEnvironment(variable, value) : program.removeEnvironment(variable);
            QElapsedTimer timer;
            timer.start();
            const Answer answer = program.run(arguments);
            EXPECT_LT(timer.elapsed(), 2000);
            EXPECT_EQ(answer.exitCode, 1);
            EXPECT_EQ(answer.out, QString());
            EXPECT_TRUE(answer.err.contains(QLatin1String(c.message))) << qPrintable(answer.err);
        }
    }
}

TEST_F(CommandLine, ServerThatVanishesEndsTheProgram)
{
    for (const bool isCapturing : {false, true}) {
        SCOPED_TRACE(isCapturing ? "in mid-capture" : "idle");
        Desktop desktop({{640, 480}, false, false});
        Program program(desktop, QStringLiteral(LUMORA_PROGRAM));
        ASSERT_TRUE(desktop.isReady() && program.startResident());
        std::unique_ptr<QProcess> region;
        if (isCapturing) {
            const QImage before = desktop.screen();
            region = program.start("region");
            ASSERT_TRUE(program.waitForOverlay(before));
        }
        desktop.killServer();
        EXPECT_TRUE(program.resident().waitForFinished(2000));
        EXPECT_EQ(program.resident().exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(program.resident().exitCode(), 1);
        if (region) {
            EXPECT_EQ(Program::finish(*region).exitCode, 1);
        }
    }
}
