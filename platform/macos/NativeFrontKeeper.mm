#include "platform/macos/NativeFrontKeeper.h"

#include "platform/macos/NativeWindow.h"

#include <QGuiApplication>
#include <QPlatformSurfaceEvent>

#include <utility>

// Qt hides tool windows while another program is the active one, as palettes of a document's program are
// hidden. Ours are pinned pictures, notices and the overlay, and this program is hardly ever the active one.
class ToolWindows final : public QObject {
public:
    ToolWindows() { qGuiApp->installEventFilter(this); }

private:
    bool eventFilter(QObject* object, QEvent* event) override
    {
        if (event->type() != QEvent::PlatformSurface || !object->isWindowType())
            return false;
        const auto& window = static_cast<const QWindow&>(*object);
        const auto change = static_cast<QPlatformSurfaceEvent*>(event)->surfaceEventType();
        if (window.type() == Qt::Tool && change == QPlatformSurfaceEvent::SurfaceCreated) {
            object->setProperty("_q_macAlwaysShowToolWindow", true); // for the next time that Qt decides it
            nativeWindow(window).hidesOnDeactivate = NO;
        }
        return false;
    }
};

NativeFrontKeeper::NativeFrontKeeper()
    : m_toolWindows(std::make_unique<ToolWindows>())
{
}

NativeFrontKeeper::~NativeFrontKeeper()
{
    release();
}

void NativeFrontKeeper::keepInFront(const QWindow& window)
{
    release();
    m_window = nativeWindow(window);
    keepAboveEverything(m_window);
    m_observer = [NSWorkspace.sharedWorkspace.notificationCenter
        addObserverForName:NSWorkspaceDidActivateApplicationNotification
                    object:nil
                     queue:nil
                usingBlock:^(NSNotification*) { raiseAgain(); }];
}

void NativeFrontKeeper::release()
{
    m_window = nil;
    if (const id observer = std::exchange(m_observer, nil))
        [NSWorkspace.sharedWorkspace.notificationCenter removeObserver:observer];
}

void NativeFrontKeeper::raiseAgain()
{
    if (m_window.isVisible && (!mayRaise || mayRaise()))
        keepAboveEverything(m_window);
}
