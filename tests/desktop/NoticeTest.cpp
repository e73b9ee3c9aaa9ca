#include "tests/desktop/ProgramTest.h"

#include <QUrl>

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
        m_program.setEnvironment("LUMORA_NOTICES", "on");
        standInForTheBrowser();
        m_bare = m_desktop.settledScreen();
        ASSERT_TRUE(m_program.startResident());
    }
    // A capture by its hot key, as quick as the program allows.
    void captureScreen()
    {
        const qsizetype count = m_program.savedPictures().size();
        input().chord({Key::Super, Key::Digit2});
        ASSERT_TRUE(waitUntil([&] { return m_program.savedPictures().size() > count; }));
    }
    // The device pixels at which the screen differs from the bare one.
    QRect shown() const { return changed(m_desktop.screen(), m_bare); }
    bool waitForChange(QRect place)
    {
        return waitUntil([&] { return shown() == place; }, 2000);
    }

    xcb_window_t noticeAt(QRect place) const { return server().windowAt(place); }

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
        m_program.setEnvironment("STAGED_WINDOWS", "progress");
        input().moveTo(kFirst.center());
        Notice::SetUp();
    }
};

}

LUMORA_ON_EACH_DESKTOP(Notice);
LUMORA_ON_EACH_DESKTOP(ProgressNotice);

TEST_P(Notice, MakesRoomForTheNextAndLeavesWhenAThirdOneComes)
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
    ASSERT_TRUE(m_desktop.setPrimaryDisplay("FIRST", {0, 0, 1280, 400}));
    ASSERT_TRUE(m_desktop.setDisplay("SECOND", {0, 400, 1000, 400}));
    captureScreen();
    ASSERT_TRUE(waitUntil([this] { return noticeAt(kFirst) != XCB_NONE; }, 2000));
    ASSERT_TRUE(m_desktop.removeDisplay("FIRST"));
    EXPECT_TRUE(waitForChange(kFirst.translated(-280, 400)));
    input().clickAt(kFirst.center() + QPoint(-280, 400));
    EXPECT_TRUE(waitForChange({}));
}

TEST_P(ProgressNotice, StaysUnderThePointerAndGoesAfterIt)
{
    EXPECT_TRUE(waitForChange(kFirst));
    QThread::msleep(1400); // its second is over
    EXPECT_EQ(shown(), kFirst);
    input().moveTo({100, 700});
    EXPECT_TRUE(waitForChange({}));
}

TEST_P(Notice, IsAwayDuringCapturesTakesNoFocusAndGoesWithAClick)
{
    const xcb_window_t focused = server().focusedWindow();
    captureScreen();
    ASSERT_TRUE(waitForChange(kFirst));
    QThread::msleep(300);
    input().chord({Key::Super, Key::Digit1});
    ASSERT_TRUE(m_program.waitForOverlay(m_bare));
    ASSERT_TRUE(cancelCapture());
    EXPECT_TRUE(waitForChange(kFirst));
    input().moveTo(kFirst.center());
    input().click(Button::Right);
    EXPECT_TRUE(waitForChange({}));
    EXPECT_EQ(server().focusedWindow(), focused);

    captureScreen();
    ASSERT_TRUE(waitForChange(kFirst));
    QThread::msleep(300);
    EXPECT_TRUE(samePixels(pictureAfter({Key::Super, Key::Digit2}), m_bare));
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
        input().clickAt(kFirst.center());
        EXPECT_TRUE(waitForChange({}));
        ASSERT_TRUE(waitUntil([&] { return openedAddresses().size() == 1 + isGone; }));
        EXPECT_EQ(QUrl(openedAddresses().last()).toLocalFile(), m_program.saveFolder());
    }
}

TEST_P(Notice, TellsOfARefusedHotKey)
{
    ASSERT_EQ(m_program.quitResident(), 0);
    takeHotKey(Key::Digit1);
    m_program.startResident();
    EXPECT_TRUE(waitForChange(kFirst));
}
