#pragma once

class ZRStartWindow;

// Who is told what the start window does.
class StartWindowDelegate {
public:
    virtual ~StartWindowDelegate() = default;

    // It is about to shrink: the last moment for its end rectangle.
    virtual void windowWillStop(ZRStartWindow& window) = 0;
    // Once, when it has gone from the screen.
    virtual void windowWillClose() = 0;
};
