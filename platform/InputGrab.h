#pragma once

#include <QString>
#include <QWindow>

#include <functional>

// The keyboard, taken for one window while a capture runs, so that no key reaches another program, the window
// manager included; and the pointer, taken while the window has to know what it does elsewhere. Main thread
// only.
class InputGrab {
public:
    virtual ~InputGrab() = default;

    // Takes the keyboard for a shown window. Where another program holds it, tries again from the event loop
    // until release() or until two seconds have passed, then calls onRefused.
    virtual void grabKeyboard(const QWindow& window) = 0;
    // Keeps the keyboard, without a window of ours, until the key that is down now comes up, two seconds at
    // most: the repeats of the key that ended a capture reach nobody. Lets go at once when no key is down.
    // To be called while the window still shows: a window that goes takes the keyboard with it.
    virtual void releaseWithKey() = 0;
    // Lets go at once.
    virtual void release() = 0;
    // True from the moment that the keyboard is ours.
    virtual bool holdsKeyboard() const = 0;

    // Gives a shown window the pointer's movements and buttons, wherever on the screen it is. False where
    // another program holds it: then tries again until releasePointer() or until the window goes.
    virtual bool grabPointer(const QWindow& window) = 0;
    virtual void releasePointer() = 0;
    // True from the moment that the pointer is ours.
    virtual bool holdsPointer() const = 0;

    std::function<void(const QString& reason)> onRefused;
};
