#include "tests/desktop/ProgramTest.h"

namespace {

class HotKey : public ProgramTest {
protected:
    // Presses the keys until they open the overlay; a change takes its time to arrive.
    bool opens(std::initializer_list<Key> keys, int milliseconds)
    {
        m_before = m_desktop.settledScreen();
        const bool isOpen = waitUntil(
            [&] {
                m_desktop.input().chord(keys);
                return waitUntil([this] { return m_program.overlay() != XCB_NONE; }, 300);
            },
            milliseconds);
        m_desktop.input().click(Button::Right);
        return waitForRest() && isOpen;
    }
};

} // namespace

TEST_F(HotKey, RefusedOneIsLoggedAndAnswered)
{
    const XClient other(m_desktop.displayName());
    xcb_grab_key(other.connection(), false, other.root(), XCB_MOD_MASK_4, quint8(Key::Digit1),
        XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    other.sync();
    ASSERT_TRUE(m_program.startResident());
    const auto namesTheKey = [](const QString& line) {
        return line.contains(QLatin1String("cmd 1")) && line.contains(QLatin1String("taken"));
    };
    const QStringList log = m_program.logLines();
    EXPECT_EQ(std::count_if(log.begin(), log.end(), namesTheKey), 1);
    const Answer second = m_program.run({});
    EXPECT_EQ(second.exitCode, 0);
    EXPECT_TRUE(namesTheKey(second.err)) << qPrintable(second.err);
    EXPECT_FALSE(second.err.contains(QLatin1String("cmd 2"))) << qPrintable(second.err);
    EXPECT_FALSE(pictureAfter({Key::Super, Key::Digit2}).isNull());
}

TEST_F(HotKey, ChangedByHandInTheSettingsFileIsBoundAgain)
{
    ASSERT_TRUE(m_program.startResident());
    EXPECT_TRUE(opens({Key::Super, Key::Digit1}, 1000));
    m_program.writeSettings({{QStringLiteral("hotkeyRegionScreenShot"), QStringLiteral("CMD 9")}});
    EXPECT_TRUE(opens({Key::Super, Key::Digit9}, 3000));
    EXPECT_FALSE(opens({Key::Super, Key::Digit1}, 0));
}
