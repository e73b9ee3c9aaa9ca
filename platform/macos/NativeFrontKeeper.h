#pragma once

#include "platform/FrontKeeper.h"

#include <QPointer>

#include <memory>

#include <AppKit/AppKit.h>

class ToolWindows;

// The window's level does the work; where another program comes to the front, the window is put in its place
// once more.
class NativeFrontKeeper final : public FrontKeeper {
public:
    NativeFrontKeeper();
    ~NativeFrontKeeper() override;

    void keepInFront(const QWindow& window) override;
    void release() override;

private:
    void raiseAgain();

    const std::unique_ptr<ToolWindows> m_toolWindows;
    __weak NSWindow* m_window = nil;
    id m_observer = nil;
};
