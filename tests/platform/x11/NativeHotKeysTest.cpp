#include "platform/x11/NativeHotKeys.h"

#include "platform/x11/NativeInputGrab.h"
#include "tests/platform/x11/XServer.h"

#include <gtest/gtest.h>

namespace {

constexpr quint32 kOne = 18, kCommand = 256, kShift = 512, kOption = 2048, kControl = 4096;
constexpr Key kCapsLock{66}, kNumLock{77};

class NativeHotKeysTest : public testing::Test {
protected:
    NativeHotKeysTest()
    {
        m_keys.onPressed = [this](quint32 id) { m_pressed.push_back(id); };
        m_keys.onStateChange = [this](
                                   quint32 id, const QString& reason) { m_changes.emplace_back(id, reason); };
        // A fresh server tells of a new keyboard at its first key.
        strike({Key::Shift});
        letPass(100);
        m_other.focus(m_other.openWindow({0, 0, 50, 50}, 0));
    }
    void strike(std::initializer_list<Key> keys)
    {
        m_user.chord(keys);
        letPass(20);
    }
    std::vector<quint32> takePressed() { return std::exchange(m_pressed, {}); }

    const OtherProgram m_other{mainDisplay()}; // whose window has the keyboard
    Input m_user{m_other};
    NativeHotKeys m_keys{XConnection::ofApplication()};
    std::vector<quint32> m_pressed;
    std::vector<std::pair<quint32, QString>> m_changes;
};

// What a capture puts up.
struct Overlay {
    Overlay()
    {
        window.setFlags(Qt::FramelessWindowHint | Qt::BypassWindowManagerHint);
        window.show();
    }
    QWindow window;
    NativeInputGrab grab{XConnection::ofApplication()};
};

using Ids = std::vector<quint32>;

}

TEST_F(NativeHotKeysTest, FireForTheirOwnChordOnly)
{
    EXPECT_EQ(m_keys.registerHotKey(1, kOne, kCommand), QString());
    EXPECT_EQ(m_keys.registerHotKey(2, kOne, kCommand + kShift), QString());
    EXPECT_EQ(m_keys.registerHotKey(3, 0, kControl + kOption), QString());     // key code 0 is the A key
    EXPECT_EQ(m_keys.registerHotKey(4, kOne, kCommand + kCommand), QString()); // the sum is shift
    struct Case {
        std::initializer_list<Key> chord;
        Ids expected;
    };
    const Case cases[] = {
        {{Key::Super, Key::Digit1}, {1}},
        {{Key::Super, Key::Shift, Key::Digit1}, {2}},
        {{Key::Control, Key::Alt, Key::A}, {3}},
        {{Key::Shift, Key::Digit1}, {4}},
        {{Key::Digit1}, {}},
        {{Key::Control, Key::Super, Key::Digit1}, {}},
        {{Key::Super, Key::A}, {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::PrintToString(c.expected));
        strike(c.chord);
        EXPECT_EQ(takePressed(), c.expected);
    }
    m_keys.unregisterHotKey(1);
    m_keys.unregisterHotKey(99);
    strike({Key::Super, Key::Digit1});
    strike({Key::Super, Key::Shift, Key::Digit1});
    EXPECT_EQ(takePressed(), Ids{2});
}

TEST_F(NativeHotKeysTest, FireWhateverTheLocksAre)
{
    m_keys.registerHotKey(1, kOne, kCommand);
    for (const Key lock : {kCapsLock, kNumLock, kCapsLock, kNumLock}) { // on, both, one, none
        strike({lock});
        strike({Key::Super, Key::Digit1});
        EXPECT_EQ(takePressed(), Ids{1}) << int(lock);
    }
}

TEST_F(NativeHotKeysTest, FireOnceForAHeldKey)
{
    m_keys.registerHotKey(1, kOne, kCommand);
    m_user.press(Key::Super);
    m_user.press(Key::Digit1);
    letPass(1000);
    EXPECT_EQ(takePressed(), Ids{1});
    m_user.release(Key::Digit1);
    letPass(5); // faster than a finger
    m_user.press(Key::Digit1);
    letPass(50);
    EXPECT_EQ(takePressed(), Ids{1});
}

TEST_F(NativeHotKeysTest, FireOnceForAKeyHeldThroughACapture)
{
    m_keys.registerHotKey(1, kOne, kCommand);
    for (const bool isModifierHeld : {true, false}) {
        SCOPED_TRACE(isModifierHeld);
        Overlay overlay;
        m_user.press(Key::Super);
        m_user.press(Key::Digit1);
        EXPECT_TRUE(waitFor([this] { return !m_pressed.empty(); }));
        overlay.grab.grabKeyboard(overlay.window);
        letPass(900); // the overlay gets the repeats
        if (!isModifierHeld)
            m_user.release(Key::Super);
        overlay.grab.release();
        letPass(300);
        EXPECT_EQ(takePressed(), Ids{1});
        m_user.releaseAll(); // the key's release goes elsewhere
        letPass(150);
        strike({Key::Super, Key::Digit1});
        EXPECT_EQ(takePressed(), Ids{1});
    }
}

TEST_F(NativeHotKeysTest, SayWhyTheyAreRefused)
{
    // Only one of the lock's variants is taken: none must stay grabbed.
    ASSERT_TRUE(m_other.grabKey(Key::Digit1, XCB_MOD_MASK_4 | XCB_MOD_MASK_LOCK));
    EXPECT_EQ(m_keys.registerHotKey(1, kOne, kCommand), QStringLiteral("is taken by another program"));
    EXPECT_TRUE(m_other.grabKey(Key::Digit1, XCB_MOD_MASK_4));
    EXPECT_EQ(m_keys.registerHotKey(2, 10, kCommand), QStringLiteral("is on no key of this keyboard"));
    EXPECT_EQ(m_keys.registerHotKey(3, kOne, kControl), QString());
    EXPECT_EQ(m_keys.registerHotKey(4, kOne, kControl), QStringLiteral("is used twice"));
    m_keys.unregisterHotKey(4); // leaves the other one alone
    strike({Key::Control, Key::Digit1});
    EXPECT_EQ(takePressed(), Ids{3});
}

TEST_F(NativeHotKeysTest, StayOnTheirKeyInAnotherLayout)
{
    m_keys.registerHotKey(1, kOne, kCommand);
    for (const char* layout : {"fr", "ru", "us"}) {
        SCOPED_TRACE(layout);
        ASSERT_TRUE(runTool("setxkbmap", layout));
        letPass(150);
        strike({Key::Super, Key::Digit1});
        EXPECT_EQ(takePressed(), Ids{1});
    }
    EXPECT_TRUE(m_changes.empty());
}

TEST_F(NativeHotKeysTest, FollowTheirModifierAndTryRefusedKeysAgain)
{
    ASSERT_TRUE(m_other.grabKey(Key::Digit1, XCB_MOD_MASK_4));
    EXPECT_FALSE(m_keys.registerHotKey(1, kOne, kCommand).isEmpty());
    ASSERT_TRUE(runTool("setxkbmap", "-option altwin:swap_alt_win")); // Super is on the Alt key now
    letPass(150);
    EXPECT_TRUE(m_changes.empty()); // still taken
    m_other.ungrabKey(Key::Digit1, XCB_MOD_MASK_4);
    ASSERT_TRUE(runTool("setxkbmap", "-option -layout us"));
    ASSERT_TRUE(waitFor([this] { return !m_changes.empty(); }));
    EXPECT_EQ(m_changes.front(), std::make_pair(1u, QString()));
    ASSERT_TRUE(runTool("xmodmap", R"(-e "remove mod4 = Super_L" -e "add mod3 = Super_L")"));
    letPass(150);
    strike({Key::Super, Key::Digit1});
    EXPECT_EQ(takePressed(), Ids{1});
    ASSERT_TRUE(runTool("setxkbmap", "-layout us"));
    letPass(150);
    strike({Key::Super, Key::Digit1});
    EXPECT_EQ(takePressed(), Ids{1});
}
