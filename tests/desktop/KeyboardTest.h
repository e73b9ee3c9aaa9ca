#pragma once

#include "tests/desktop/KeyRecorder.h"
#include "tests/desktop/ProgramTest.h"

// With the resident program, while another program's window has the keyboard.
class KeyboardTest : public EachDesktopTest {
protected:
    void SetUp() override
    {
        EachDesktopTest::SetUp();
        m_recorder = std::make_unique<KeyRecorder>(m_desktop.displayName(), kWindow);
        ASSERT_TRUE(m_recorder->hasKeyboard());
        ASSERT_TRUE(m_program.startResident());
    }

    using Event = KeyRecorder::Event;
    void type(int count)
    {
        for (int i = 0; i < count; ++i)
            input().chord({Key::A});
    }
    // What the window gets of it.
    static std::vector<Event> typed(int count)
    {
        std::vector<Event> events;
        for (int i = 0; i < count; ++i) {
            events.push_back({XCB_KEY_PRESS, quint8(Key::A)});
            events.push_back({XCB_KEY_RELEASE, quint8(Key::A)});
        }
        return events;
    }

    std::unique_ptr<KeyRecorder> m_recorder;
};
