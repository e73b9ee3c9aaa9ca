#include "tests/desktop/ProgramTest.h"

#include <QUrl>

#include <algorithm>

namespace {

// The program with its notices on, on a bare screen.
class Notice : public EachDesktopTest {
protected:
    explicit Notice(const char* program = LUMORA_PROGRAM)
        : EachDesktopTest({1280, 800}, program)
    {
    }
    void SetUp() override
    {
        EachDesktopTest::SetUp();
        m_program.setEnvironment(QStringLiteral("LUMORA_NOTICES"), QStringLiteral("on"));
        standInForTheBrowser();
        m_bare = m_desktop.settledScreen();
        ASSERT_TRUE(m_program.startResident());
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

    // The notice that stands there; XCB_NONE for none.
    xcb_window_t noticeAt(QRect place) const
    {
        const auto windows = m_desktop.server().visibleWindows();
        const auto found = std::find_if(windows.begin(), windows.end(),
            [&](xcb_window_t window) { return m_desktop.server().outline(window) == place; });
        return found == windows.end() ? XCB_NONE : *found;
    }

    static constexpr QRect kFirst{1280 - 355, 37, 345, 65};
    static constexpr QRect kSecond = kFirst.translated(0, 65 + 10);
    static constexpr QRect kTwo = kFirst.adjusted(0, 0, 0, 65 + 10);
    QImage m_bare;
};

// The notice of a transfer that is over, with the pointer where it comes.
class ProgressNotice : public Notice {
protected:
    ProgressNotice()
        : Notice(STAGED_PROGRAM)
    {
    }
    void SetUp() override
    {
        m_program.setEnvironment(QStringLiteral("STAGED_WINDOWS"), QStringLiteral("progress"));
        m_desktop.input().moveTo(kFirst.center());
        Notice::SetUp();
    }
};

}

LUMORA_ON_EACH_DESKTOP(Notice);
LUMORA_ON_EACH_DESKTOP(ProgressNotice);

TEST_P(Notice, StandsAtTheTopRightAndMakesRoomForTheNext)
{
    captureScreen();
    EXPECT_TRUE(waitForChange(kFirst)) << changed().x() << ' ' << changed().width();
    QThread::msleep(300);
    captureScreen();
    EXPECT_TRUE(waitForChange(kTwo));
}

TEST_P(Notice, LeavesWhenItHasMovedAndAThirdOneComes)
{
    xcb_window_t last = XCB_NONE;
    for (int i = 0; i < 3; ++i) {
        SCOPED_TRACE(i);
        captureScreen();
        const auto isMoved = [&] {
            const xcb_window_t newest = noticeAt(kFirst);
            return newest != XCB_NONE && newest != last && noticeAt(kSecond) == last;
        };
        ASSERT_TRUE(waitUntil(isMoved, 2000));
        last = noticeAt(kFirst);
        QThread::msleep(300);
    }
    EXPECT_TRUE(waitForChange(kTwo)) << "two at most";
}

TEST_P(Notice, KeepsToTheMainDisplayWhenThatGoes)
{
    ASSERT_TRUE(m_desktop.setPrimaryDisplay(QStringLiteral("FIRST"), {0, 0, 1280, 400}));
    ASSERT_TRUE(m_desktop.setDisplay(QStringLiteral("SECOND"), {0, 400, 1000, 400}));
    captureScreen();
    ASSERT_TRUE(waitUntil([this] { return noticeAt(kFirst) != XCB_NONE; }, 2000));
    ASSERT_TRUE(m_desktop.removeDisplay(QStringLiteral("FIRST")));
    EXPECT_TRUE(waitForChange(kFirst.translated(-280, 400)));
    m_desktop.input().moveTo(kFirst.center() + QPoint(-280, 400));
    m_desktop.input().click(Button::Left);
    EXPECT_TRUE(waitForChange({}));
}

TEST_P(ProgressNotice, StaysUnderThePointerAndGoesAfterIt)
{
    EXPECT_TRUE(waitForChange(kFirst));
    QThread::msleep(1400); // its second is over
    EXPECT_EQ(changed(), kFirst);
    m_desktop.input().moveTo({100, 700});
    EXPECT_TRUE(waitForChange({}));
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

TEST_P(Notice, ShowsTheFolderOfItsPictureWithAClickEvenWhenThatIsGone)
{
    for (const bool isGone : {false, true}) {
        SCOPED_TRACE(isGone);
        captureScreen();
        ASSERT_TRUE(waitForChange(kFirst));
        if (isGone) {
            for (const QString& picture : m_program.savedPictures())
                QFile::remove(picture);
        }
        m_desktop.input().moveTo(kFirst.center());
        m_desktop.input().click(Button::Left);
        EXPECT_TRUE(waitForChange({}));
        ASSERT_TRUE(waitUntil([&] { return openedAddresses().size() == 1 + isGone; }));
        EXPECT_EQ(QUrl(openedAddresses().last()).toLocalFile(), m_program.saveFolder());
    }
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
