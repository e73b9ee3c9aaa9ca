#include "platform/macos/NativeWindowServer.h"

#include "platform/macos/NativeDisplays.h"
#include "platform/macos/NativeScreenSource.h"
#include "platform/macos/NativeWindow.h"
#include "platform/macos/WindowListRules.h"

#include <AppKit/AppKit.h>
#include <CoreGraphics/CoreGraphics.h>

#include <algorithm>

namespace {

NSString* key(CFStringRef name)
{
    return (__bridge NSString*)name;
}

ListedWindow listedWindow(NSDictionary<NSString*, id>* description)
{
    CGRect bounds = CGRectZero;
    const id boundsOfWindow = description[key(kCGWindowBounds)];
    if (boundsOfWindow)
        CGRectMakeWithDictionaryRepresentation((__bridge CFDictionaryRef)boundsOfWindow, &bounds);
    NSNumber* alpha = description[key(kCGWindowAlpha)];
    return {{bounds.origin.x, bounds.origin.y, bounds.size.width, bounds.size.height},
        QString::fromNSString(description[key(kCGWindowOwnerName)]),
        QString::fromNSString(description[key(kCGWindowName)]), alpha ? alpha.doubleValue : 1};
}

// As the window list names the application in front; empty when there is none.
QString activeOwner()
{
    for (NSRunningApplication* application in NSWorkspace.sharedWorkspace.runningApplications) {
        if (application.isActive)
            return QString::fromNSString(application.localizedName);
    }
    return {};
}

}

NativeWindowServer::NativeWindowServer(const NativeDisplays& displays)
    : m_displays(displays)
    , m_reader(makeScreenSource())
{
}

std::vector<WindowRecord> NativeWindowServer::onScreenWindows() const
{
    CFArrayRef copied = CGWindowListCopyWindowInfo(kCGWindowListOptionOnScreenOnly, kCGNullWindowID);
    NSArray<NSDictionary<NSString*, id>*>* descriptions = CFBridgingRelease(copied);
    std::vector<ListedWindow> windows;
    for (NSDictionary<NSString*, id>* description in descriptions)
        windows.push_back(listedWindow(description));
    return recordsOf(windows, m_displays.all());
}

// The application in front puts its key window before its others.
std::optional<WindowRecord> NativeWindowServer::activeWindow() const
{
    const QString owner = activeOwner();
    std::vector<WindowRecord> windows = onScreenWindows();
    const auto window = std::ranges::find(windows, owner, &WindowRecord::owner);
    return owner.isEmpty() || window == windows.end() ? std::nullopt : std::optional(std::move(*window));
}

void NativeWindowServer::prepare(const DisplayRecord&)
{
    m_reader.prepare();
}

std::shared_ptr<const Frame> NativeWindowServer::freeze(const DisplayRecord& display, QString* reason)
{
    return m_reader.freeze(display, reason);
}

// The system would keep a window of Qt's below the menu bar.
bool NativeWindowServer::present(const Frame& frame, const QWindow& window, const Dimming&)
{
    NSWindow* native = nativeWindow(window);
    const ZRRect f = frame.display().frame;
    keepAboveEverything(native);
    [native setFrame:NSMakeRect(f.x, f.y, f.width, f.height) display:NO];
    return false;
}
