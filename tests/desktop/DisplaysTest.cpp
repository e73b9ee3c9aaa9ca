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
    QImage savedFrom(QRect display)
    {
        return savedRegion(display.topLeft() + kInset, display.bottomRight() - kInset);
    }
    QImage expectedFrom(QRect display) const
    {
        return m_before.copy(spannedBy(display.topLeft() + kInset, display.bottomRight() - kInset));
    }

    static constexpr QPoint kInset{53, 41};
};

} // namespace

LUMORA_ON_EACH_DESKTOP(Displays);

TEST_P(Displays, TheOverlayFollowsThePointerUntilTheRegionIsFixed)
{
    KeyRecorder recorder(m_desktop.displayName(), {900, 740, 200, 100});
    for (const Arrangement& a : kArrangements) {
        for (const int crossings : {1, 2, 3}) {
            SCOPED_TRACE(testing::Message() << a.what << ", crossed " << crossings << " times");
            ASSERT_TRUE(m_program.hasResident() || startOn(a));
            m_desktop.input().moveTo(a.first.center());
            ASSERT_TRUE(openOverlay(a.first));
            recorder.take(); // the hot key's modifier
            QRect display = a.first;
            for (int i = 0; i < crossings; ++i) {
                display = i % 2 ? a.first : a.second;
                m_desktop.input().moveTo(display.center());
                for (int key = 0; key < 12; ++key) { // before, while and after the overlay moves
                    m_desktop.input().chord({Key::A});
                    QThread::msleep(8);
                }
                ASSERT_TRUE(m_program.waitForOverlay(m_before, display));
                EXPECT_EQ(m_desktop.server().windowsTitled("Lumora Capture").size(), 1);
            }
            EXPECT_EQ(recorder.take(), std::vector<KeyRecorder::Event>());
            EXPECT_TRUE(samePixels(savedFrom(display), expectedFrom(display)));
        }
        EXPECT_EQ(m_program.quitResident(), 0);
    }
}

TEST_P(Displays, CrossingAfterTheRegionIsFixedMovesNothing)
{
    for (const Arrangement& a : kArrangements) {
        SCOPED_TRACE(a.what);
        ASSERT_TRUE(startOn(a));
        ASSERT_TRUE(openOverlay(a.first));
        m_desktop.input().drag(a.first.topLeft() + kInset, a.first.bottomRight() - kInset);
        m_desktop.input().moveTo(a.second.center());
        QThread::msleep(150);
        EXPECT_EQ(m_desktop.server().geometry(m_program.overlay()), a.first);
        EXPECT_TRUE(samePixels(pictureAfter({Key::Control, Key::S}), expectedFrom(a.first)));
        EXPECT_EQ(m_program.quitResident(), 0);
    }
}

TEST_P(Displays, WhatIsPressedWhileTheOverlayIsUnderWayDoesNoHarm)
{
    const Arrangement& a = kArrangements[0];
    const auto isOver = [this] { return m_program.waitForNoOverlay() && m_program.answers(); };
    KeyRecorder recorder(m_desktop.displayName(), {300, 300, 200, 100});
    ASSERT_TRUE(startOn(a));
    ASSERT_TRUE(openOverlay(a.first));
    recorder.take();
    m_desktop.input().moveTo(a.second.center());
    QThread::msleep(15);
    m_desktop.input().chord({Key::Escape});
    EXPECT_TRUE(isOver());
    QThread::msleep(350);
    EXPECT_EQ(m_program.overlay(), XCB_NONE);
    EXPECT_EQ(recorder.take(), std::vector<KeyRecorder::Event>());
    EXPECT_TRUE(recorder.hasKeyboard());

    // A press that the moving overlay missed draws nothing; the next one does.
    m_desktop.input().moveTo(a.first.center());
    ASSERT_TRUE(openOverlay(a.first));
    m_desktop.input().moveTo(a.second.topLeft() + QPoint(300, 200));
    m_desktop.input().press(Button::Left);
    ASSERT_TRUE(m_program.waitForOverlay(m_before, a.second));
    m_desktop.input().moveTo(a.second.topLeft() + QPoint(500, 300));
    m_desktop.input().release(Button::Left);
    EXPECT_TRUE(samePixels(savedFrom(a.second), expectedFrom(a.second)));

    // A drag across the border is a drag, however shortly before it the pointer was over there.
    m_desktop.input().moveTo(a.first.center());
    ASSERT_TRUE(openOverlay(a.first));
    m_desktop.input().moveTo(a.second.center());
    const QPoint from(600, 500), to(1000, 200);
    m_desktop.input().moveTo(from);
    m_desktop.input().press(Button::Left);
    m_desktop.input().moveTo(to);
    QThread::msleep(150);
    m_desktop.input().release(Button::Left);
    EXPECT_TRUE(samePixels(pictureAfter({Key::Control, Key::S}), m_before.copy(600, 200, 200, 300)));
}

TEST_P(Displays, AChangeInMidSelectionEndsTheCaptureOfTheChangedDisplayOnly)
{
    const QRect first(0, 0, 800, 600), second(800, 120, 640, 480), third(0, 600, 600, 300);
    struct Case {
        const char* what;
        std::function<void()> change;
        bool isEnd;
    };
    const auto set = [this](const char* name, QRect pixels) {
        EXPECT_TRUE(m_desktop.setDisplay(QLatin1String(name), pixels));
    };
    const auto drop = [this](const char* name) { EXPECT_TRUE(m_desktop.removeDisplay(QLatin1String(name))); };
    const Case cases[] = {
        {"one more", [&] { set("THIRD", third); }, false},
        {"another one goes", [&] { drop("THIRD"); }, false},
        {"another one shrinks",
            [&] {
                drop("SECOND");
                set("SECOND", {800, 120, 500, 400});
            },
            false},
        {"the captured one shrinks",
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
        m_before = m_desktop.settledScreen();
        const auto region = m_program.start({QStringLiteral("region")});
        ASSERT_TRUE(m_program.waitForOverlay(m_before, first));
        m_desktop.input().moveTo({100, 100});
        m_desktop.input().press(Button::Left);
        m_desktop.input().moveTo({150, 130});
        c.change();
        QThread::msleep(250);
        EXPECT_EQ(m_program.overlay() == XCB_NONE, c.isEnd);
        m_desktop.input().moveTo({200, 200});
        m_desktop.input().release(Button::Left);
        m_desktop.input().chord({Key::Control, Key::S});
        const Answer answer = Program::finish(*region);
        EXPECT_EQ(answer.exitCode, c.isEnd ? 4 : 0);
        EXPECT_TRUE(
            samePixels(QImage(answer.path()), c.isEnd ? QImage() : m_before.copy(100, 100, 100, 100)));
        ASSERT_TRUE(waitForRest());
        EXPECT_FALSE(m_desktop.server().isKeyboardTaken());
        EXPECT_FALSE(m_desktop.server().isPointerTaken());
    }
    EXPECT_EQ(logCount("the captured display changed, the capture ends"), 1);
}
