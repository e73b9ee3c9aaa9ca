#include "platform/macos/NativeWorkspace.h"

#include "platform/macos/NativeInputGrab.h"

#include <QFileInfo>

#include <utility>

#include <AppKit/AppKit.h>

namespace {

void bringToFront(pid_t process)
{
    NSRunningApplication* application =
        [NSRunningApplication runningApplicationWithProcessIdentifier:process];
    if (!application)
        return;
    if (@available(macOS 14.0, *)) {
        [NSApp yieldActivationToApplication:application];
        [application activateFromApplication:NSRunningApplication.currentApplication options:0];
    } else {
        [application activateWithOptions:NSApplicationActivateIgnoringOtherApps];
    }
}

}

NativeWorkspace::NativeWorkspace(NativeInputGrab& grab)
    : m_grab(grab)
    , m_next(std::make_shared<quint64>(0))
{
}

// While this program only keeps the keyboard for a key, the one it is kept from counts as active.
ActiveApplication NativeWorkspace::activeApplication() const
{
    if (*m_next != 0)
        return {*m_next, 0};
    for (NSRunningApplication* application in NSWorkspace.sharedWorkspace.runningApplications) {
        if (application.isActive)
            return {quint64(application.processIdentifier), 0};
    }
    return {};
}

void NativeWorkspace::activate(const ActiveApplication& application)
{
    *m_next = application.window;
    m_grab.whenFree([next = m_next] { bringToFront(pid_t(std::exchange(*next, 0))); });
}

bool NativeWorkspace::openLink(const QUrl& link)
{
    NSURL* url = link.toNSURL();
    return url && [NSWorkspace.sharedWorkspace openURL:url];
}

bool NativeWorkspace::revealFile(const QString& path)
{
    if (QFileInfo::exists(path)) {
        NSURL* file = [NSURL fileURLWithPath:path.toNSString()];
        [NSWorkspace.sharedWorkspace activateFileViewerSelectingURLs:@[ file ]];
        return true;
    }
    const QString folder = QFileInfo(path).path();
    return QFileInfo(folder).isDir() &&
           [NSWorkspace.sharedWorkspace openURL:[NSURL fileURLWithPath:folder.toNSString()]];
}
