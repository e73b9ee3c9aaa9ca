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
    testing::AssertionResult startAt(const char* scales) { return startOnDisplays(kFirst, kSecond, scales); }
    // One tool covers the display, no pixel more and none less, and has keyboard and pointer.
    bool waitForTool(QRect display) const
    {
        return waitUntil([&] {
            const auto tools = server().windowsTitled("Lumora Tool");
            return tools.size() == 1 && server().geometry(tools[0]) == display &&
                   server().isKeyboardTaken() && server().isPointerTaken();
        });
    }
    bool waitForNoTool() const
    {
        return waitUntil([&] {
            return server().windowsTitled("Lumora Tool").empty() && !server().isKeyboardTaken() &&
                   !server().isPointerTaken();
        });
    }

    static constexpr QRect kFirst{0, 0, 1000, 700}; // no whole points wide at 1.5
    static constexpr QRect kSecond{1000, 120, 640, 480};
};
