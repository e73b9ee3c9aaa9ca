#include "tests/desktop/ProgramTest.h"

namespace {

// The program with its notices on, on a bare screen.
class Notice : public EachDesktopTest {
protected:
    void SetUp() override
    {
        EachDesktopTest::SetUp();
        m_program.setEnvironment(QStringLiteral("LUMORA_NOTICES"), QStringLiteral("on"));
        ASSERT_TRUE(m_program.startResident());
        m_bare = m_desktop.settledScreen();
    }
    // A capture by its hot key, as quick as the program allows.
    void captureScreen()
    {
        const qsizetype count = m_program.savedPictures().size();
        m_desktop.input().chord({Key::Super, Key::Digit2});
        ASSERT_TRUE(waitUntil([&] { return m_program.savedPictures().size() > count; }));
    }
    // The device pixels at which the screen differs from the bare one.
    QRect changed() const
    {
        const QImage now = m_desktop.screen();
        QRect found;
        for (int y = 0; y < now.height(); ++y)
            for (int x = 0; x < now.width(); ++x)
                if (now.pixel(x, y) != m_bare.pixel(x, y))
                    found |= QRect(x, y, 1, 1);
        return found;
    }
    bool waitForChange(QRect place)
    {
        return waitUntil([&] { return changed() == place; }, 2000);
    }

    static constexpr QRect kFirst{1280 - 355, 37, 345, 65};
    static constexpr QRect kTwo{1280 - 355, 37, 345, 65 + 10 + 65};
    QImage m_bare;
};

}

LUMORA_ON_EACH_DESKTOP(Notice);

TEST_P(Notice, StandsAtTheTopRightAndMakesRoomForTheNext)
{
    captureScreen();
    EXPECT_TRUE(waitForChange(kFirst)) << changed().x() << ' ' << changed().width();
    QThread::msleep(300);
    captureScreen();
    EXPECT_TRUE(waitForChange(kTwo));
}

TEST_P(Notice, IsOnNoPicture)
{
    captureScreen();
    ASSERT_TRUE(waitForChange(kFirst));
    QThread::msleep(300);
    captureScreen();
    EXPECT_TRUE(
        waitUntil([this] { return QImage(m_program.savedPictures().last()).size() == m_bare.size(); }));
    EXPECT_TRUE(samePixels(QImage(m_program.savedPictures().last()), m_bare));
}

TEST_P(Notice, IsAwayDuringARegionCaptureAndComesBack)
{
    captureScreen();
    ASSERT_TRUE(waitForChange(kFirst));
    QThread::msleep(300);
    m_desktop.input().chord({Key::Super, Key::Digit1});
    ASSERT_TRUE(m_program.waitForOverlay(m_bare));
    m_desktop.input().chord({Key::Escape});
    EXPECT_TRUE(waitForChange(kFirst));
}

TEST_P(Notice, TakesNoFocusAndGoesWithAClick)
{
    const xcb_window_t focused = m_desktop.server().focusedWindow();
    captureScreen();
    ASSERT_TRUE(waitForChange(kFirst));
    m_desktop.input().moveTo(kFirst.center());
    m_desktop.input().click(Button::Right);
    EXPECT_TRUE(waitForChange({}));
    EXPECT_EQ(m_desktop.server().focusedWindow(), focused);
}

TEST_P(Notice, TellsOfARefusedHotKey)
{
    ASSERT_EQ(m_program.quitResident(), 0);
    xcb_connection_t* connection = m_desktop.server().connection();
    const auto grab = xcb_grab_key_checked(connection, 0, m_desktop.server().root(), XCB_MOD_MASK_4,
        quint8(Key::Digit1), XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    ASSERT_EQ(xcb_request_check(connection, grab), nullptr);
    m_program.startResident();
    EXPECT_TRUE(waitForChange(kFirst));
}
