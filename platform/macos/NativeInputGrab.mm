#include "platform/macos/NativeInputGrab.h"

#include "platform/macos/NativeWindow.h"

#include <QCoreApplication>
#include <QMouseEvent>

#include <utility>

namespace {

constexpr int kRetryMs = 30;
constexpr int kLimitMs = 2000;

void activateProgram()
{
    if (@available(macOS 14.0, *))
        [NSApp activate];
    else
        [NSApp activateIgnoringOtherApps:YES];
}

QPointF pointerInQtsPoints()
{
    const NSPoint location = NSEvent.mouseLocation;
    return {location.x, NSScreen.screens.firstObject.frame.size.height - location.y};
}

struct PointerEvent {
    QEvent::Type type;
    Qt::MouseButton button;
};

PointerEvent pointerEvent(NSEventType type)
{
    switch (type) {
    case NSEventTypeLeftMouseDown:
        return {QEvent::MouseButtonPress, Qt::LeftButton};
    case NSEventTypeLeftMouseUp:
        return {QEvent::MouseButtonRelease, Qt::LeftButton};
    case NSEventTypeRightMouseDown:
        return {QEvent::MouseButtonPress, Qt::RightButton};
    case NSEventTypeRightMouseUp:
        return {QEvent::MouseButtonRelease, Qt::RightButton};
    default:
        return {QEvent::MouseMove, Qt::NoButton};
    }
}

}

NativeInputGrab::NativeInputGrab()
{
    m_retry.setSingleShot(true);
    m_limit.setSingleShot(true);
    QObject::connect(&m_retry, &QTimer::timeout, &m_retry, [this] { tryToGrab(); });
    QObject::connect(&m_limit, &QTimer::timeout, &m_limit, [this] { giveUp(); });
    m_hold.onEnd = [this] { letGo(); };
}

NativeInputGrab::~NativeInputGrab()
{
    release();
    releasePointer();
}

void NativeInputGrab::grabKeyboard(const QWindow& window)
{
    if (m_hold.isHeld())
        m_hold.end();
    m_window = nativeWindow(window);
    m_window.styleMask |= NSWindowStyleMaskNonactivatingPanel;
    listenToKeys();
    m_limit.start(kLimitMs);
    tryToGrab();
}

// Without the combinations' rest the keyboard is still the window's; the system may refuse it.
void NativeInputGrab::tryToGrab()
{
    activateProgram();
    keepAboveEverything(m_window);
    [m_window makeKeyWindow];
    if (!m_window.isKeyWindow) {
        m_retry.start(kRetryMs);
        return;
    }
    m_limit.stop();
    if (!m_restingKeys)
        m_restingKeys = PushSymbolicHotKeyMode(kHIHotKeyModeAllDisabled);
}

void NativeInputGrab::giveUp()
{
    release();
    if (onRefused)
        onRefused(QStringLiteral("another program keeps the keyboard"));
}

// The program stays the active one until then, and what the key still sends ends in it.
void NativeInputGrab::releaseWithKey()
{
    m_retry.stop();
    m_limit.stop();
    m_window = nil;
    m_hold.begin(
        [this] { return CGEventSourceKeyState(kCGEventSourceStateCombinedSessionState, m_lastKey); });
}

void NativeInputGrab::release()
{
    if (m_hold.isHeld())
        m_hold.end();
    else
        letGo();
}

void NativeInputGrab::letGo()
{
    m_retry.stop();
    m_limit.stop();
    m_window = nil;
    if (const id monitor = std::exchange(m_keyMonitor, nil))
        [NSEvent removeMonitor:monitor];
    if (void* token = std::exchange(m_restingKeys, nullptr))
        PopSymbolicHotKeyMode(token);
}

bool NativeInputGrab::holdsKeyboard() const
{
    return m_hold.isHeld() || m_window.isKeyWindow;
}

void NativeInputGrab::listenToKeys()
{
    if (m_keyMonitor)
        return;
    m_keyMonitor =
        [NSEvent addLocalMonitorForEventsMatchingMask:NSEventMaskKeyDown | NSEventMaskKeyUp
                                              handler:^NSEvent*(NSEvent* event) { return heardKey(event); }];
}

// Nil swallows the event.
NSEvent* NativeInputGrab::heardKey(NSEvent* event)
{
    const bool isSwallowed = m_hold.isHeld();
    if (event.type == NSEventTypeKeyUp)
        m_hold.keyReleased();
    else if (!isSwallowed)
        m_lastKey = event.keyCode;
    return isSwallowed ? nil : event;
}

bool NativeInputGrab::grabPointer(const QWindow& window)
{
    releasePointer();
    m_pointerWindow = const_cast<QWindow*>(&window); // events are sent to it
    const NSEventMask mask = NSEventMaskMouseMoved | NSEventMaskLeftMouseDragged | NSEventMaskLeftMouseDown |
                             NSEventMaskLeftMouseUp | NSEventMaskRightMouseDown | NSEventMaskRightMouseUp;
    m_pointerMonitor =
        [NSEvent addGlobalMonitorForEventsMatchingMask:mask
                                               handler:^(NSEvent* event) { heardPointer(event); }];
    return m_pointerMonitor != nil;
}

void NativeInputGrab::releasePointer()
{
    if (const id monitor = std::exchange(m_pointerMonitor, nil))
        [NSEvent removeMonitor:monitor];
    m_pointerWindow.clear();
}

// Of other programs' windows alone; those of ours come through Qt.
void NativeInputGrab::heardPointer(NSEvent* event)
{
    if (!m_pointerWindow)
        return;
    const auto [type, button] = pointerEvent(event.type);
    const QPointF global = pointerInQtsPoints();
    const QPointF local = m_pointerWindow->mapFromGlobal(global);
    const auto held =
        Qt::MouseButtons::fromInt(int(NSEvent.pressedMouseButtons & 3)); // left 1, right 2 in both
    QMouseEvent moved(type, local, local, global, button, held, Qt::NoModifier);
    QCoreApplication::sendEvent(m_pointerWindow, &moved);
}
