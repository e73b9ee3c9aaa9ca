#include "platform/Platform.h"

#include "platform/macos/NativeDisplays.h"
#include "platform/macos/NativeFileBookmarks.h"
#include "platform/macos/NativeFrontKeeper.h"
#include "platform/macos/NativeHotKeys.h"
#include "platform/macos/NativeInputGrab.h"
#include "platform/macos/NativeLoginItem.h"
#include "platform/macos/NativeMouseMonitor.h"
#include "platform/macos/NativeStatusItemHost.h"
#include "platform/macos/NativeWindowServer.h"
#include "platform/macos/NativeWorkspace.h"

#include <CoreGraphics/CoreGraphics.h>

QString desktopProblem()
{
    CFDictionaryRef session = CGSessionCopyCurrentDictionary();
    if (!session)
        return QStringLiteral("There is no graphical session, as in a remote shell.");
    CFRelease(session);
    return {};
}

// A user has one graphical session.
QString desktopSessionName()
{
    return QStringLiteral("Aqua");
}

Platform makePlatform()
{
    auto displays = std::make_unique<NativeDisplays>();
    auto inputGrab = std::make_unique<NativeInputGrab>();
    Platform platform;
    platform.windowServer = std::make_unique<NativeWindowServer>(*displays);
    platform.displays = std::move(displays);
    platform.hotKeys = std::make_unique<NativeHotKeys>();
    platform.workspace = std::make_unique<NativeWorkspace>(*inputGrab);
    platform.inputGrab = std::move(inputGrab);
    platform.frontKeeper = std::make_unique<NativeFrontKeeper>();
    platform.mouseMonitor = std::make_unique<NativeMouseMonitor>();
    platform.loginItem = std::make_unique<NativeLoginItem>();
    platform.fileBookmarks = std::make_unique<NativeFileBookmarks>();
    platform.statusItemHost = std::make_unique<NativeStatusItemHost>();
    return platform;
}
