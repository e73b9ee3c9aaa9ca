#include "tests/desktop/ProgramTest.h"

namespace {

// Whether the texts stand in the lines, in this order; each is a line's beginning.
testing::AssertionResult inOrder(const QStringList& lines, const QStringList& texts)
{
    qsizetype line = 0;
    for (const QString& text : texts) {
        while (line < lines.size() && !lines[line].startsWith(text))
            ++line;
        if (line++ == lines.size())
            return testing::AssertionFailure() << '"' << qPrintable(text) << "\" is missing in its place in\n"
                                               << qPrintable(lines.join(QLatin1Char('\n')));
    }
    return testing::AssertionSuccess();
}

using Log = ProgramTest;

} // namespace

TEST_F(Log, FixedTextsStandInTheirOrder)
{
    ASSERT_TRUE(m_program.startResident());
    ASSERT_TRUE(openOverlay());
    ASSERT_TRUE(savesRegion({10, 10}, {60, 60}));
    const QString path = m_program.savedPictures().last();
    const QStringList lines = m_program.logLines();
    const QString keyDown = QStringLiteral("key down --->cmd 1");
    const QString saving = QStringLiteral("screenshot save path--->") + path;
    EXPECT_TRUE(inOrder(lines, {QStringLiteral("================"), QStringLiteral("App type :"), keyDown}));
    EXPECT_TRUE(inOrder(lines,
        {QStringLiteral("============Screen Info============"), QStringLiteral("Screen Info:{"),
            QStringLiteral("  ScreenFrame:(0.0,0.0,1280.0,800.0)"), QStringLiteral("  ScreenScaleFactor:1.0"),
            QStringLiteral("===================================")}));
    EXPECT_TRUE(inOrder(lines, {keyDown, QStringLiteral("start screenshot"),
                                   QStringLiteral("Start Screen Shot Current Main Screen frame "
                                                  "(0.000000,0.000000,1280.000000,800.000000)"),
                                   saving, QStringLiteral("save image success")}));
    EXPECT_TRUE(inOrder(lines, {saving, QStringLiteral("stop screenShot")}));
    EXPECT_EQ(logCount("save image success"), 1);
    EXPECT_EQ(logCount("stop screenShot"), 1);
}

TEST_F(Log, IsEmptiedAtStartWhenLargerThanOneMebibyte)
{
    constexpr int mebibyte = 1048576;
    for (const int size : {mebibyte, mebibyte + 1}) {
        SCOPED_TRACE(size);
        ASSERT_TRUE(writeFile(m_program.logFile(), QByteArray(size, 'x')));
        ASSERT_TRUE(m_program.startResident());
        const qsizetype left = readFile(m_program.logFile()).size();
        EXPECT_EQ(left > size, size == mebibyte);
        EXPECT_GT(left, 0);
        EXPECT_EQ(m_program.quitResident(), 0);
    }
}
