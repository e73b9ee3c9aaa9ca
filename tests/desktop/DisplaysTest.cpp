#include "tests/desktop/KeyRecorder.h"
#include "tests/desktop/ProgramTest.h"

namespace {

struct Arrangement {
    const char* what;
    QRect first, second; // device pixels of the root
    const char* scales;
};
const Arrangement kArrangements[] = {
    {"right of and below the first", {0, 0, 800, 600}, {800, 120, 640, 480}, "FIRST=1;SECOND=2"},
    {"left of and above the first", {640, 100, 800, 600}, {0, 20, 640, 480}, "FIRST=1.5;SECOND=1.25"},
    {"above the first", {0, 400, 800, 500}, {100, 0, 900, 400}, "FIRST=2;SECOND=1"},
};

// Two displays of unlike size, place and scale.
class Displays : public EachDesktopTest {
protected:
    Displays()
        : EachDesktopTest({1440, 900})
    {
    }
    // The program with the pointer on the first display; another program's window has the keyboard.
    testing::AssertionResult startOn(const Arrangement& a)
    {
        return startOnDisplays(a.first, a.second, a.scales);
    }
    static QRect inside(QRect display) { return display.adjusted(53, 41, -54, -42); }
};

} // namespace

LUMORA_ON_EACH_DESKTOP(Displays);

TEST_P(Displays, EachIsCapturedAlone)
{
    for (const Arrangement& a : kArrangements) {
        ASSERT_TRUE(startOn(a));
        for (const QRect display : {a.first, a.second}) {
            SCOPED_TRACE(testing::Message() << a.what << ", at " << display.x());
            input().moveTo(display.topLeft()); // the first pixel is the display's own
            m_before = m_desktop.settledScreen();
            EXPECT_TRUE(samePixels(pictureAfter({Key::Super, Key::Digit2}), m_before.copy(display)));
            EXPECT_TRUE(samePixels(QImage(m_program.run("full").path()), m_before.copy(display)));
            QThread::msleep(350);
            input().moveTo(display.center()); // the cross would cover a corner
            ASSERT_TRUE(openOverlay(display));
            input().drag(inside(display));
            EXPECT_TRUE(saves(inside(display)));
        }
        EXPECT_EQ(m_program.quitResident(), 0);
    }
}

TEST_P(Displays, TheOverlayFollowsThePointerOnlyUntilTheRegionIsFixed)
{
    KeyRecorder recorder(m_desktop.displayName(), {900, 740, 200, 100});
    for (const Arrangement& a : kArrangements) {
        for (const int crossings : {1, 2}) {
            SCOPED_TRACE(testing::Message() << a.what << ", crossed " << crossings << " times");
            ASSERT_TRUE(m_program.hasResident() || startOn(a));
            input().moveTo(a.first.center());
            ASSERT_TRUE(openOverlay(a.first));
            recorder.take(); // the hot key's modifier
            QRect display = a.first;
            for (int i = 0; i < crossings; ++i) {
                display = i % 2 ? a.first : a.second;
                input().moveTo(display.center());
                for (int key = 0; key < 12; ++key) { // before, while and after the overlay moves
                    input().chord({Key::A});
                    QThread::msleep(8);
                }
                ASSERT_TRUE(m_program.waitForOverlay(m_before, display));
                EXPECT_EQ(server().windowsTitled("Lumora Capture").size(), 1);
            }
            EXPECT_EQ(recorder.take(), std::vector<KeyRecorder::Event>());
            input().drag(inside(display));
            input().moveTo((display == a.first ? a.second : a.first).center());
            QThread::msleep(150);
            EXPECT_EQ(server().geometry(m_program.overlay()), display);
            EXPECT_TRUE(saves(inside(display)));
        }
        EXPECT_EQ(m_program.quitResident(), 0);
    }
}

TEST_P(Displays, WhatIsPressedWhileTheOverlayIsUnderWayDoesNoHarm)
{
    const Arrangement& a = kArrangements[0];
    KeyRecorder recorder(m_desktop.displayName(), {300, 300, 200, 100});
    ASSERT_TRUE(startOn(a));
    ASSERT_TRUE(openOverlay(a.first));
    recorder.take();
    input().moveTo(a.second.center());
    QThread::msleep(15);
    EXPECT_TRUE(cancelCapture());
    EXPECT_EQ(m_program.overlay(), XCB_NONE);
    EXPECT_EQ(recorder.take(), std::vector<KeyRecorder::Event>());
    EXPECT_TRUE(recorder.hasKeyboard());

    // A press that the moving overlay missed draws nothing; the next one does.
    input().moveTo(a.first.center());
    ASSERT_TRUE(openOverlay(a.first));
    input().moveTo(a.second.topLeft() + QPoint(300, 200));
    input().press(Button::Left);
    ASSERT_TRUE(m_program.waitForOverlay(m_before, a.second));
    input().moveTo(a.second.topLeft() + QPoint(500, 300));
    input().release(Button::Left);
    input().drag(inside(a.second));
    EXPECT_TRUE(saves(inside(a.second)));

    // A drag across the border is a drag, however shortly before it the pointer was over there.
    input().moveTo(a.first.center());
    ASSERT_TRUE(openOverlay(a.first));
    input().moveTo(a.second.center());
    const QPoint from(600, 500), to(1000, 200);
    input().moveTo(from);
    input().press(Button::Left);
    input().moveTo(to);
    QThread::msleep(150);
    input().release(Button::Left);
    EXPECT_TRUE(saves({600, 200, 200, 300}));
}

TEST_P(Displays, AChangeInMidSelectionEndsTheCaptureOfTheChangedDisplayOnly)
{
    const QRect first(0, 0, 800, 600), second(800, 120, 640, 480), third(0, 600, 600, 300);
    const QRect shrunk(800, 120, 500, 400);
    struct Case {
        const char* what;
        QRect display; // the captured one
        std::function<void()> change;
        bool isEnd;
    };
    const auto set = [this](
                         const char* name, QRect pixels) { EXPECT_TRUE(m_desktop.setDisplay(name, pixels)); };
    const auto drop = [this](const char* name) { EXPECT_TRUE(m_desktop.removeDisplay(name)); };
    const Case cases[] = {
        {"one more", first, [&] { set("THIRD", third); }, false},
        {"another one goes", first, [&] { drop("THIRD"); }, false},
        {"another one shrinks", first,
            [&] {
                drop("SECOND");
                set("SECOND", shrunk);
            },
            false},
        {"the captured one goes", shrunk, [&] { drop("SECOND"); }, true},
        {"the captured one shrinks", first,
            [&] {
                drop("FIRST");
                set("FIRST", {0, 0, 700, 500});
            },
            true},
    };
    KeyRecorder recorder(m_desktop.displayName(), {300, 300, 200, 100});
    ASSERT_TRUE(startOn({"", first, second, "FIRST=1;SECOND=1"}));
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        input().moveTo(c.display.center());
        const auto region = startRegion(c.display);
        ASSERT_TRUE(region);
        const QPoint corner = c.display.topLeft() + QPoint(100, 100);
        input().moveTo(corner);
        input().press(Button::Left);
        input().moveTo(corner + QPoint(50, 30));
        c.change();
        QThread::msleep(250);
        EXPECT_EQ(m_program.overlay() == XCB_NONE, c.isEnd);
        input().moveTo(corner + QPoint(100, 100));
        input().release(Button::Left);
        input().chord({Key::Control, Key::S});
        const Answer answer = Program::finish(*region);
        EXPECT_EQ(answer.exitCode, c.isEnd ? 4 : 0);
        EXPECT_TRUE(samePixels(
            QImage(answer.path()), c.isEnd ? QImage() : m_before.copy(QRect(corner, QSize(100, 100)))));
        ASSERT_TRUE(waitForRest());
        EXPECT_TRUE(waitUntil([&] { return recorder.hasKeyboard(); }));
        EXPECT_FALSE(server().isKeyboardTaken());
        EXPECT_FALSE(server().isPointerTaken());
    }
    EXPECT_EQ(logCount("the captured display changed, the capture ends"), 2);
    EXPECT_EQ(m_program.savedPictures().size(), 3);
}
