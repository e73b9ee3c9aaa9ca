#include "tests/desktop/KeyboardTest.h"

namespace {

// The end of a capture and what comes right after it.
class Ending : public KeyboardTest {
protected:
    testing::AssertionResult openOverlayWithRegion()
    {
        const auto result = openOverlay();
        input().drag(kRegion);
        m_recorder->take(); // the hot key's modifier went down before the hot key did
        return result;
    }
    // What the recorder got, but for the end of the chord that ended the capture.
    std::vector<Event> received()
    {
        std::vector<Event> events = m_recorder->take();
        std::erase(events, Event{XCB_KEY_RELEASE, quint8(Key::Control)});
        return events;
    }

    static constexpr QRect kRegion{101, 377, 301, 222};
};

struct End {
    const char* way;
    std::vector<Key> keys; // none for the right button
};
const End kEnds[] = {{"Escape", {Key::Escape}}, {"save", {Key::Control, Key::S}},
    {"copy", {Key::Control, Key::C}}, {"right button", {}}};

} // namespace

LUMORA_ON_EACH_DESKTOP(Ending);

TEST_P(Ending, CopyPutsTheSamePixelsOnTheClipboardAndTheNextSaveWritesAFile)
{
    ASSERT_TRUE(openOverlayWithRegion());
    input().chord({Key::Control, Key::C});
    ASSERT_TRUE(waitForRest());
    const QImage expected = m_before.copy(kRegion);
    const QList<QByteArray> targets = clipboard("TARGETS").split('\n');
    EXPECT_LT(targets.indexOf("image/png"), targets.indexOf("image/tiff"));
    for (const char* target : {"image/png", "image/tiff", "image/png"}) {
        SCOPED_TRACE(target);
        EXPECT_TRUE(samePixels(QImage::fromData(clipboard(target)), expected));
    }
    EXPECT_TRUE(Program::allFiles(m_program.saveFolder()).isEmpty());

    ASSERT_TRUE(openOverlayWithRegion());
    EXPECT_TRUE(saves(kRegion));
    EXPECT_TRUE(samePixels(QImage::fromData(clipboard("image/png")), expected));
}

TEST_P(Ending, TwoSavesInAHurryWriteOneFile)
{
    for (const int pauseMs : {0, 20}) {
        SCOPED_TRACE(pauseMs);
        const qsizetype before = m_program.savedPictures().size();
        ASSERT_TRUE(openOverlayWithRegion());
        input().chord({Key::Control, Key::S});
        QThread::msleep(pauseMs);
        input().chord({Key::Control, Key::S});
        ASSERT_TRUE(waitForRest());
        EXPECT_EQ(Program::allFiles(m_program.saveFolder()).size(), before + 1);
    }
}

TEST_P(Ending, WhatIsTypedDuringACaptureReachesNobodyAndRightAfterItTheFormerWindow)
{
    for (const End& e : kEnds) {
        for (const int pauseMs : {0, 3}) {
            SCOPED_TRACE(testing::Message() << e.way << ", pause " << pauseMs);
            ASSERT_TRUE(openOverlay());
            m_recorder->take(); // the hot key's modifier went down before the hot key did
            const xcb_window_t overlay = m_program.overlay();
            type(2);
            input().drag(kRegion);
            type(2);
            if (e.keys.empty())
                input().click(Button::Right);
            input().chord(e.keys);
            EXPECT_TRUE(server().waitForHidden(overlay));
            // A key that ended the capture keeps the keyboard until its release has been heard.
            EXPECT_TRUE(waitUntil([this] { return !server().isKeyboardTaken(); }));
            QThread::msleep(pauseMs);
            type(3);
            ASSERT_TRUE(waitForRest());
            EXPECT_EQ(received(), typed(3));
        }
    }
}

TEST_P(Ending, StartsAreDroppedForAMomentAndWorkAfterwards)
{
    const std::function<bool()> byKey = [this] {
        input().chord({Key::Super, Key::Digit1});
        return waitUntil([this] { return m_program.overlay() != XCB_NONE; }, 100);
    };
    const std::function<bool()> byVerb = [this] { return m_program.run("full").exitCode == 0; };
    for (const auto& start : {byKey, byVerb}) {
        for (const int pauseMs : {100, 500}) {
            SCOPED_TRACE(pauseMs);
            ASSERT_TRUE(openOverlay());
            input().chord({Key::Escape});
            ASSERT_TRUE(m_program.waitForNoOverlay());
            QThread::msleep(pauseMs);
            EXPECT_EQ(start(), pauseMs == 500);
            EXPECT_TRUE(m_program.answers()); // cancels
            ASSERT_TRUE(waitForRest());
        }
    }
    EXPECT_EQ(m_program.run("full").exitCode, 0);
    EXPECT_EQ(m_program.run("full").exitCode, 5);
}

TEST_P(Ending, EachCaptureRestoresTheWindowThatWasActiveWhenItBegan)
{
    for (const bool isCancelled : {false, true}) {
        SCOPED_TRACE(isCancelled ? "after a cancelled one" : "after one of the whole screen");
        if (isCancelled)
            ASSERT_TRUE(openOverlay() && cancelCapture());
        else
            ASSERT_FALSE(pictureAfter({Key::Super, Key::Digit2}).isNull());
        KeyRecorder second(m_desktop.displayName(), kWindow.translated(-300, 0));
        ASSERT_TRUE(second.hasKeyboard());
        ASSERT_TRUE(openOverlay());
        ASSERT_TRUE(cancelCapture());
        EXPECT_TRUE(waitUntil([&] { return second.hasKeyboard(); }));
    }
}

TEST_P(Ending, TheWindowManagersOwnKeysChangeNothing)
{
    KeyRecorder second(m_desktop.displayName(), kWindow.translated(-300, 0));
    ASSERT_TRUE(second.hasKeyboard());
    for (const auto& [modifier, key] : {std::pair(Key::Super, Key::D), std::pair(Key::Alt, Key::Tab)}) {
        const std::vector<xcb_window_t> windows = server().visibleWindows();
        ASSERT_TRUE(openOverlayWithRegion());
        input().chord({modifier, key});
        QThread::msleep(200);
        EXPECT_NE(m_program.overlay(), XCB_NONE);
        ASSERT_TRUE(cancelCapture());
        EXPECT_EQ(server().visibleWindows(), windows);
        EXPECT_TRUE(waitUntil([&] { return second.hasKeyboard(); }));
        EXPECT_TRUE(samePixels(m_desktop.settledScreen(), m_before));
    }
}
