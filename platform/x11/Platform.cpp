#include "platform/Platform.h"

#include "platform/x11/DesktopRules.h"
#include "platform/x11/NativeDisplays.h"
#include "platform/x11/NativeFileBookmarks.h"
#include "platform/x11/NativeFrontKeeper.h"
#include "platform/x11/NativeHotKeys.h"
#include "platform/x11/NativeInputGrab.h"
#include "platform/x11/NativeLoginItem.h"
#include "platform/x11/NativeMouseMonitor.h"
#include "platform/x11/NativeStatusItemHost.h"
#include "platform/x11/NativeWindowServer.h"
#include "platform/x11/NativeWorkspace.h"

#include <QCoreApplication>
#include <QStandardPaths>

#include <malloc.h>

namespace {

// glibc learns from the first picture that goes that blocks of its size come and go, and from then on keeps
// twice as much of what is freed. Ours are needed for a capture only.
void giveLargeBlocksBackAtOnce()
{
#ifdef __GLIBC__
    mallopt(M_MMAP_THRESHOLD, 1 << 20);
    mallopt(M_TRIM_THRESHOLD, 2 << 20);
#endif
}

DesktopEnvironment environment()
{
    return {qEnvironmentVariable("DISPLAY"), qEnvironmentVariable("WAYLAND_DISPLAY"),
        qEnvironmentVariable("XDG_SESSION_TYPE")};
}

bool canConnect()
{
    xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
    const bool isConnected = !xcb_connection_has_error(connection);
    xcb_disconnect(connection);
    return isConnected;
}

}

QString desktopProblem()
{
    QString problem = problemOf(environment());
    if (problem.isEmpty() && !canConnect())
        return QStringLiteral("There is no X server at display %1.").arg(environment().display);
    return problem;
}

QString desktopSessionName()
{
    return sessionNameOf(environment().display);
}

QString preferencesFolder(const QStringList&)
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
}

Platform makePlatform()
{
    giveLargeBlocksBackAtOnce();
    const auto x = XConnection::ofApplication();
    auto displays = std::make_unique<NativeDisplays>(x);
    Platform platform;
    platform.windowServer = std::make_unique<NativeWindowServer>(x, *displays);
    platform.displays = std::move(displays);
    platform.hotKeys = std::make_unique<NativeHotKeys>(x);
    platform.inputGrab = std::make_unique<NativeInputGrab>(x);
    platform.frontKeeper = std::make_unique<NativeFrontKeeper>(x);
    platform.mouseMonitor = std::make_unique<NativeMouseMonitor>(x);
    platform.workspace = std::make_unique<NativeWorkspace>(x);
    platform.loginItem = std::make_unique<NativeLoginItem>(QCoreApplication::applicationFilePath());
    platform.fileBookmarks = std::make_unique<NativeFileBookmarks>();
    platform.statusItemHost = std::make_unique<NativeStatusItemHost>(x);
    return platform;
}
