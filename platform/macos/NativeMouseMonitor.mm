#include "platform/macos/NativeMouseMonitor.h"

namespace {

using Action = MouseMonitor::Action;

static_assert(NSEventType(Action::LeftDown) == NSEventTypeLeftMouseDown);
static_assert(NSEventType(Action::LeftUp) == NSEventTypeLeftMouseUp);
static_assert(NSEventType(Action::RightDown) == NSEventTypeRightMouseDown);
static_assert(NSEventType(Action::RightUp) == NSEventTypeRightMouseUp);
static_assert(NSEventType(Action::Moved) == NSEventTypeMouseMoved);
static_assert(NSEventType(Action::LeftDragged) == NSEventTypeLeftMouseDragged);

constexpr NSEventMask kMask = NSEventMaskLeftMouseDown | NSEventMaskLeftMouseUp | NSEventMaskRightMouseDown |
                              NSEventMaskRightMouseUp | NSEventMaskMouseMoved | NSEventMaskLeftMouseDragged;

}

NativeMouseMonitor::~NativeMouseMonitor()
{
    if (m_others)
        [NSEvent removeMonitor:m_others];
    if (m_own)
        [NSEvent removeMonitor:m_own];
}

bool NativeMouseMonitor::start()
{
    if (m_others)
        return true;
    m_others = [NSEvent addGlobalMonitorForEventsMatchingMask:kMask
                                                      handler:^(NSEvent* event) { tell(event); }];
    m_own = [NSEvent addLocalMonitorForEventsMatchingMask:kMask
                                                  handler:^NSEvent*(NSEvent* event) {
                                                      tell(event);
                                                      return event;
                                                  }];
    return m_others != nil;
}

void NativeMouseMonitor::tell(NSEvent* event) const
{
    if (onAction)
        onAction(Action(event.type));
}
