#pragma once

#include <QWindow>

#include <functional>

// Keeps one window of ours in front of the windows that other programs put above it. Main thread only.
class FrontKeeper {
public:
    virtual ~FrontKeeper() = default;

    // For a shown window that no window manager manages, until release() or until it goes. Windows of the
    // same kind that are ours and lie above it stay there.
    virtual void keepInFront(const QWindow& window) = 0;
    virtual void release() = 0;

    // Asked before each raise; the window may always be raised without it. What an input method shows lies
    // above the window on purpose while a text is edited.
    std::function<bool()> mayRaise;
};
