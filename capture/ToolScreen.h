#pragma once

#include "platform/Displays.h"
#include "platform/ScreenInfo.h"

#include <QScreen>

#include <optional>
#include <vector>

// Maps displays, points and rectangles to each other. Screen coordinates: points, origin bottom-left of the
// first display, y grows upwards. Class-level; needs install() first, without it there is no display.
class ToolScreen {
public:
    ToolScreen() = delete;

    // Borrowed; null forgets.
    static void install(const Displays* displays);

    // All displays, the first one first.
    static std::vector<DisplayRecord> screens();
    // The rectangle around them, as Displays has it.
    static QRect virtualScreen();
    static int numberOfScreens();
    static std::optional<ScreenInfo> getMainScreenInfo();
    static std::vector<ScreenInfo> screenInfos();
    static std::optional<ScreenInfo> getScreenInfoWithScreen(const std::optional<DisplayRecord>& screen);
    // The first display that shares an area with the rectangle.
    static std::optional<ScreenInfo> getScreenInfoWithRect(ZRRect rect);
    // Kept: a negative y counts as 0.
    static std::optional<ScreenInfo> getScreenInfoWithPoint(ZRPoint point);
    // The first display at x 0, else the main one.
    static std::optional<DisplayRecord> getFirstScreen();
    static std::optional<DisplayRecord> getScreenWithWindowDisplayId(int displayId);

    // The display that holds the pointer, decided in device pixels.
    static std::optional<DisplayRecord> screenUnderPointer();
    // Where the pointer is on the screen; empty when no display holds it.
    static std::optional<ZRPoint> mouseLocation();
    // Qt's screen of a display; null when it is gone.
    static QScreen* qtScreen(const DisplayRecord& display);
};
