#pragma once

#include <functional>

// Tells what the mouse does anywhere on the screen, whoever gets its events. Main thread only.
class MouseMonitor {
public:
    // Numbered as macOS numbers its events.
    enum class Action { LeftDown = 1, LeftUp = 2, RightDown = 3, RightUp = 4, Moved = 5, LeftDragged = 6 };

    virtual ~MouseMonitor() = default;

    // Costs nothing before; runs until the object's end. False when the desktop does not tell. Nothing
    // changes when it runs already.
    virtual bool start() = 0;

    std::function<void(Action)> onAction;
};
