#pragma once

#include <functional>

// Whether the desktop has a place for status items, and when it comes. Main thread only.
class StatusItemHost {
public:
    virtual ~StatusItemHost() = default;

    // Begins to look and goes on looking until a place is found; waits for nobody's answer.
    virtual void watch() = 0;
    // Whether the desktop takes an item's picture as a mask and paints it in a colour of its own.
    virtual bool tintsItems() const = 0;

    // Called once, from the event loop: an item made from here on finds its place.
    std::function<void()> onFound;
};
