#include "tests/desktop/ProgramTest.h"

namespace {

using HotKey = ProgramTest;

} // namespace

TEST_F(HotKey, RefusedOneIsLoggedAndAnswered)
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

TEST_F(HotKey, ChangedByHandInTheSettingsFileIsBoundAgain)
{
    ASSERT_TRUE(m_program.startResident());
    EXPECT_TRUE(opensOverlay({Key::Super, Key::Digit1}, 5000));
    m_program.writeSettings({{QStringLiteral("hotkeyRegionScreenShot"), QStringLiteral("CMD 9")}});
    EXPECT_TRUE(waitUntil([this] {
        return opensOverlay({Key::Super, Key::Digit9}, 300);
    })); // it takes its time
    EXPECT_FALSE(opensOverlay({Key::Super, Key::Digit1}, 300));
}
