#pragma once

#include "platform/Displays.h"
#include "platform/FileBookmarks.h"
#include "platform/FrontKeeper.h"
#include "platform/HotKeys.h"
#include "platform/InputGrab.h"
#include "platform/LoginItem.h"
#include "platform/MouseMonitor.h"
#include "platform/StatusItemHost.h"
#include "platform/WindowServer.h"
#include "platform/Workspace.h"

#include <QStringList>

#include <memory>

// Everything that only the operating system can do. One implementation a folder; it returns reasons and never
// logs: its callers do.
struct Platform {
    std::unique_ptr<Displays> displays;
    std::unique_ptr<WindowServer> windowServer;
    std::unique_ptr<HotKeys> hotKeys;
    std::unique_ptr<InputGrab> inputGrab;
    std::unique_ptr<FrontKeeper> frontKeeper;
    std::unique_ptr<MouseMonitor> mouseMonitor;
    std::unique_ptr<Workspace> workspace;
    std::unique_ptr<LoginItem> loginItem;
    std::unique_ptr<FileBookmarks> fileBookmarks;
    std::unique_ptr<StatusItemHost> statusItemHost;
};

// Why the program cannot run on this desktop, in one line for the user; empty when it can. Called before the
// application object exists, which would end the process without a display.
QString desktopProblem();
// Names this desktop session among others of the same user, as a part of a file name.
QString desktopSessionName();
// The folder of the settings, a property list "<domain>.plist" for each of these domains. What the desktop
// has kept of a domain elsewhere, where there is no such file yet, stands there afterwards.
QString preferencesFolder(const QStringList& domains);
// Every member set. Needs the application object and a desktop without a problem.
Platform makePlatform();
