#pragma once

#include "platform/InputGrab.h"
#include "platform/macos/KeyHold.h"

#include <QPointer>
#include <QTimer>

#include <AppKit/AppKit.h>
#include <Carbon/Carbon.h>

// The keyboard belongs to the key window of the active program, so the window is made that, and the system's
// own combinations rest meanwhile. The pointer can be heard everywhere but taken from nobody: a press beside
// the window reaches the program there, too.
class NativeInputGrab final : public InputGrab {
public:
    NativeInputGrab();
    ~NativeInputGrab() override;

    void grabKeyboard(const QWindow& window) override;
    void releaseWithKey() override;
    void release() override;
    bool holdsKeyboard() const override;
    bool grabPointer(const QWindow& window) override;
    void releasePointer() override;
    bool holdsPointer() const override { return m_pointerMonitor != nil; }

    // At once, or when the keyboard is let go.
    void whenFree(std::function<void()> action) { m_hold.whenOver(std::move(action)); }

private:
    void listenToKeys();
    NSEvent* heardKey(NSEvent* event);
    void heardPointer(NSEvent* event);
    void tryToGrab();
    void giveUp();
    void letGo();

    __weak NSWindow* m_window = nil; // asked for the keyboard for
    QPointer<QWindow> m_pointerWindow;
    id m_keyMonitor = nil;
    id m_pointerMonitor = nil;
    void* m_restingKeys = nullptr; // the system's combinations, while they rest
    unsigned short m_lastKey = 0;  // pressed last while the keyboard was ours
    KeyHold m_hold;
    QTimer m_retry;
    QTimer m_limit;
};
