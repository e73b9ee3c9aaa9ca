#include "platform/macos/NativeWindow.h"

namespace {

// Kept: this very level; the system keeps only its cursor and a few reserved levels above it.
constexpr NSInteger kOverlayLevel = 2147483627;

}

NSWindow* nativeWindow(const QWindow& window)
{
    return ((__bridge NSView*)reinterpret_cast<void*>(window.winId())).window;
}

void keepAboveEverything(NSWindow* window)
{
    window.level = kOverlayLevel;
    window.hasShadow = NO;
    window.collectionBehavior =
        NSWindowCollectionBehaviorCanJoinAllSpaces | NSWindowCollectionBehaviorStationary |
        NSWindowCollectionBehaviorFullScreenAuxiliary | NSWindowCollectionBehaviorIgnoresCycle;
    [window orderFrontRegardless];
}
