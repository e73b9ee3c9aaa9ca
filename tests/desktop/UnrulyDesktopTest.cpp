#include "tests/desktop/ProgramTest.h"
#include "tests/desktop/TestWindow.h"

#include <random>

namespace {

class UnrulyDesktop : public EachDesktopTest { };

// Many small windows of one program, anywhere on the screen; gone with the object.
class Crowd {
public:
    Crowd(const QString& displayName, int count)
        : m_client(displayName)
    {
        std::minstd_rand random(11);
        const quint32 values[] = {0x556677, 1};
        for (int i = 0; i < count; ++i) {
            const xcb_window_t window = xcb_generate_id(m_client.connection());
            xcb_create_window(m_client.connection(), XCB_COPY_FROM_PARENT, window, m_client.root(),
                100 + int(random() % 400), 100 + int(random() % 500), 40, 40, 0,
                XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT, values);
            xcb_map_window(m_client.connection(), window);
        }
        m_client.sync();
    }

private:
    XClient m_client;
};

} // namespace

LUMORA_ON_EACH_DESKTOP(UnrulyDesktop);

TEST_P(UnrulyDesktop, AWindowThatDiesAfterTheCaptureBeganIsStillInThePicture)
{
    ASSERT_TRUE(m_program.startResident());
    TestWindow window(m_desktop.displayName(), {{800, 400, 200, 150}});
    const QRect outline = window.outline();
    ASSERT_TRUE(openOverlay());
    window.kill();
    QThread::msleep(50);
    input().clickAt(outline.center());
    EXPECT_TRUE(saves(outline));
}

TEST_P(UnrulyDesktop, ManyWindowsAndTheirDeathKeepNoCaptureFromStarting)
{
    ASSERT_TRUE(m_program.startResident());
    TestWindow window(m_desktop.displayName(), {{800, 400, 200, 150}});
    const QRect outline = window.outline();
    {
        const Crowd crowd(m_desktop.displayName(), 2000);
        ASSERT_TRUE(openOverlay());
        input().clickAt(outline.center());
        EXPECT_TRUE(saves(outline));
    }
    for (int i = 0; i < 10; ++i) {
        {
            const Crowd crowd(m_desktop.displayName(), 300);
            input().chord({Key::Super, Key::Digit1});
            QThread::msleep(i / 2);
        }
        ASSERT_TRUE(waitUntil([this] { return m_program.overlay() != XCB_NONE; }));
        input().click(Button::Right);
        ASSERT_TRUE(waitForRest());
    }
}

TEST_P(UnrulyDesktop, AWindowThatComesDuringACaptureLiesBelowTheOverlay)
{
    ASSERT_TRUE(m_program.startResident());
    for (const bool isOverrideRedirect : {true, false}) {
        SCOPED_TRACE(isOverrideRedirect);
        ASSERT_TRUE(openOverlay());
        const QImage shown = m_desktop.settledScreen();
        const TestWindow window(
            m_desktop.displayName(), {{800, 400, 200, 150}, 0, isOverrideRedirect, true, nullptr, {}});
        EXPECT_TRUE(waitUntil([this] { return server().visibleWindows().back() == m_program.overlay(); }));
        EXPECT_TRUE(samePixels(m_desktop.settledScreen(), shown));
        EXPECT_TRUE(savesRegion({850, 420}, {950, 500}));
    }
}

TEST_P(UnrulyDesktop, AProgramThatHoldsThePointerDelaysTheHandOnly)
{
    const QRect left(0, 0, 700, 800), right(700, 0, 580, 800);
    ASSERT_TRUE(startOnDisplays(left, right, "FIRST=1;SECOND=1"));
    const XClient menu(m_desktop.displayName());
    const int kForever = -1;
    int captures = 0;
    for (const int heldMs : {kForever, 0, 2500}) {
        SCOPED_TRACE(heldMs);
        input().moveTo({300, 100});
        xcb_grab_pointer(menu.connection(), false, menu.root(), XCB_EVENT_MASK_BUTTON_PRESS,
            XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC, XCB_NONE, XCB_NONE, XCB_CURRENT_TIME);
        menu.sync();
        ASSERT_TRUE(openOverlay(left));
        EXPECT_EQ(logCount("another program holds the pointer, the capture waits for it"), ++captures);
        if (heldMs == kForever) {
            ASSERT_TRUE(cancelCapture());
            EXPECT_FALSE(server().isKeyboardTaken());
            EXPECT_TRUE(server().isPointerTaken());
            continue;
        }
        QThread::msleep(heldMs);
        xcb_ungrab_pointer(menu.connection(), XCB_CURRENT_TIME);
        menu.sync();
        ASSERT_TRUE(waitUntil([this] { return server().isPointerTaken(); }));
        input().moveTo(right.center());
        ASSERT_TRUE(m_program.waitForOverlay(m_before, right));
        EXPECT_TRUE(savesRegion({750, 100}, {900, 300}));
        EXPECT_FALSE(server().isPointerTaken());
    }
}

TEST_P(UnrulyDesktop, TheOpenMenuOfATerminalIsInThePictureAndInNobodysWay)
{
    ASSERT_TRUE(m_program.startResident());
    const size_t count = server().visibleWindows().size();
    input().moveTo({200, 150}); // over the terminal
    input().press(Key::Control);
    input().press(Button::Left);
    input().release(Key::Control);
    ASSERT_TRUE(waitUntil([&] { return server().visibleWindows().size() > count; }));
    ASSERT_TRUE(openOverlay());
    input().release(Button::Left); // the menu goes
    ASSERT_TRUE(waitUntil([&] { return server().visibleWindows().size() == count + 1; }));
    EXPECT_TRUE(savesRegion({150, 120}, {450, 330}));
}

TEST_P(UnrulyDesktop, AScreenLockedByAKeyboardGrabRefusesTheCapture)
{
    ASSERT_TRUE(m_program.startResident());
    const XClient lock(m_desktop.displayName());
    xcb_grab_keyboard(
        lock.connection(), false, lock.root(), XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    lock.sync();
    input().chord({Key::Super, Key::Digit1}); // goes to the lock
    const Answer answer = m_program.run("region");
    EXPECT_EQ(answer.exitCode, 1);
    EXPECT_TRUE(answer.err.contains(QLatin1String("another program holds the keyboard")));
    EXPECT_EQ(logCount("the capture cannot go on: another program holds the keyboard"), 1);
    EXPECT_EQ(m_program.overlay(), XCB_NONE);
    EXPECT_FALSE(server().isPointerTaken());
    xcb_ungrab_keyboard(lock.connection(), XCB_CURRENT_TIME);
    lock.sync();
    ASSERT_TRUE(waitForRest());
    ASSERT_TRUE(openOverlay());
    EXPECT_TRUE(savesRegion({10, 400}, {90, 500}));
}
