#pragma once

#include "tests/desktop/KeyRecorder.h"
#include "tests/desktop/ProgramTest.h"

// The measuring or the colour tool on two displays, over noise alone. Device pixels of the root.
class ToolTest : public ProgramTest {
protected:
    explicit ToolTest(bool hasWindowManager = true)
        : ProgramTest({.size = {1640, 900}, .hasWindowManager = hasWindowManager, .hasClients = false})
    {
    }

    // The program with the displays at these scale factors, such as "FIRST=1;SECOND=2".
    testing::AssertionResult startAt(const char* scales)
    {
        for (const char* name : {"SECOND", "FIRST"})
            m_desktop.removeDisplay(QLatin1String(name));
        m_program.setEnvironment(QStringLiteral("QT_SCREEN_SCALE_FACTORS"), QLatin1String(scales));
        m_desktop.input().moveTo(kFirst.center());
        const bool isStarted = m_desktop.setPrimaryDisplay(QStringLiteral("FIRST"), kFirst) &&
                               m_desktop.setDisplay(QStringLiteral("SECOND"), kSecond) &&
                               m_program.startResident();
        return isStarted ? testing::AssertionSuccess() : testing::AssertionFailure() << "not started";
    }
    std::vector<xcb_window_t> windowsTitled(const char* title) const
    {
        std::vector<xcb_window_t> windows = m_desktop.server().visibleWindows();
        std::erase_if(windows,
            [&](xcb_window_t window) { return m_desktop.server().title(window) != QLatin1String(title); });
        return windows;
    }
    // One tool covers the display, no pixel more and none less, and has keyboard and pointer.
    bool waitForTool(QRect display) const
    {
        return waitUntil([&] {
            const auto tools = windowsTitled("Lumora Tool");
            return tools.size() == 1 && m_desktop.server().geometry(tools[0]) == display &&
                   m_desktop.server().isKeyboardTaken() && m_desktop.server().isPointerTaken();
        });
    }
    bool waitForNoTool() const
    {
        return waitUntil([&] {
            return windowsTitled("Lumora Tool").empty() && !m_desktop.server().isKeyboardTaken() &&
                   !m_desktop.server().isPointerTaken();
        });
    }

    static constexpr QRect kFirst{0, 0, 1000, 700}; // no whole points wide at 1.5
    static constexpr QRect kSecond{1000, 120, 640, 480};
};
