#include "platform/x11/NativeMouseMonitor.h"

#include <utility>

#include <xcb/xinput.h>

namespace {

constexpr uint32_t kLeft = 1;
constexpr uint32_t kRight = 3;
constexpr uint32_t kEvents = XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS |
                             XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_RELEASE | XCB_INPUT_XI_EVENT_MASK_RAW_MOTION;

constexpr uint32_t bit(uint32_t button)
{
    return button < 32 ? 1U << button : 0;
}

}

NativeMouseMonitor::NativeMouseMonitor(std::shared_ptr<XConnection> connection)
    : m_x(std::move(connection))
{
}

NativeMouseMonitor::~NativeMouseMonitor()
{
    if (!m_extension)
        return;
    m_x->removeListener(this);
    select(0);
}

bool NativeMouseMonitor::start()
{
    if (m_extension)
        return true;
    const xcb_query_extension_reply_t* extension = m_x->extension(&xcb_input_id);
    if (!extension || !m_x->isAlive())
        return false;
    m_extension = extension->major_opcode;
    readButtons();
    select(kEvents);
    m_x->addListener(this);
    return true;
}

void NativeMouseMonitor::handleEvent(const xcb_generic_event_t& event)
{
    const auto& raw = reinterpret_cast<const xcb_input_raw_button_press_event_t&>(event);
    if (typeOf(event) != XCB_GE_GENERIC || raw.extension != m_extension)
        return;
    std::optional<Action> action;
    if (raw.event_type == XCB_INPUT_RAW_MOTION)
        action = pointerMoved();
    else if (raw.event_type == XCB_INPUT_RAW_BUTTON_PRESS || raw.event_type == XCB_INPUT_RAW_BUTTON_RELEASE)
        action = buttonMoved(raw.detail, raw.event_type == XCB_INPUT_RAW_BUTTON_PRESS);
    if (action && onAction)
        onAction(*action);
}

void NativeMouseMonitor::select(uint32_t events) const
{
    struct {
        xcb_input_event_mask_t head;
        uint32_t mask;
    } const selection{{XCB_INPUT_DEVICE_ALL_MASTER, 1}, events};
    xcb_input_xi_select_events(m_x->get(), m_x->root(), 1, &selection.head);
    xcb_flush(m_x->get());
}

void NativeMouseMonitor::readButtons()
{
    const XReply<xcb_query_pointer_reply_t> pointer(
        xcb_query_pointer_reply(m_x->get(), xcb_query_pointer(m_x->get(), m_x->root()), nullptr));
    const uint32_t state = pointer ? pointer->mask : 0;
    m_buttonsDown = (state & XCB_KEY_BUT_MASK_BUTTON_1 ? bit(kLeft) : 0) |
                    (state & XCB_KEY_BUT_MASK_BUTTON_3 ? bit(kRight) : 0);
}

std::optional<MouseMonitor::Action> NativeMouseMonitor::buttonMoved(uint32_t button, bool isDown)
{
    m_buttonsDown = isDown ? m_buttonsDown | bit(button) : m_buttonsDown & ~bit(button);
    if (button == kLeft)
        return isDown ? Action::LeftDown : Action::LeftUp;
    if (button == kRight)
        return isDown ? Action::RightDown : Action::RightUp;
    return std::nullopt;
}

// Nothing is told of a drag with another button.
std::optional<MouseMonitor::Action> NativeMouseMonitor::pointerMoved() const
{
    if (m_buttonsDown & bit(kLeft))
        return Action::LeftDragged;
    return m_buttonsDown ? std::nullopt : std::optional(Action::Moved);
}
