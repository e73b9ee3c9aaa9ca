#include "platform/x11/XPointerGrab.h"

#include <utility>

#include <xcb/xinput.h>

namespace {

constexpr int kRetryMs = 20;
constexpr int kAttempts = 100;
constexpr uint16_t kEvents = XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE |
                             XCB_EVENT_MASK_POINTER_MOTION | XCB_EVENT_MASK_ENTER_WINDOW |
                             XCB_EVENT_MASK_LEAVE_WINDOW;

constexpr uint32_t kInputEvents = XCB_INPUT_XI_EVENT_MASK_BUTTON_PRESS |
                                  XCB_INPUT_XI_EVENT_MASK_BUTTON_RELEASE | XCB_INPUT_XI_EVENT_MASK_MOTION |
                                  XCB_INPUT_XI_EVENT_MASK_ENTER | XCB_INPUT_XI_EVENT_MASK_LEAVE;

int inputExtension(const XConnection& x)
{
    const xcb_query_extension_reply_t* extension = x.extension(&xcb_input_id);
    return extension ? extension->major_opcode : 0;
}

// The input extension's number of our pointer; 0 without one.
xcb_input_device_id_t pointerDevice(const XConnection& x)
{
    const auto cookie = xcb_input_xi_get_client_pointer(x.get(), XCB_NONE);
    const XReply<xcb_input_xi_get_client_pointer_reply_t> reply(
        xcb_input_xi_get_client_pointer_reply(x.get(), cookie, nullptr));
    return reply && reply->set ? reply->deviceid : xcb_input_device_id_t(0);
}

}

XPointerGrab::XPointerGrab(std::shared_ptr<XConnection> connection)
    : m_x(std::move(connection))
    , m_inputEvents(inputExtension(*m_x))
    , m_device(m_inputEvents ? pointerDevice(*m_x) : xcb_input_device_id_t(0))
{
    m_retry.setSingleShot(true);
    QObject::connect(&m_retry, &QTimer::timeout, &m_retry, [this] { tryToTake(); });
    m_x->addListener(this);
}

XPointerGrab::~XPointerGrab()
{
    m_x->removeListener(this);
    release();
}

bool XPointerGrab::take(xcb_window_t window)
{
    m_window = window;
    m_isGranted = false;
    m_attemptsLeft = kAttempts;
    tryToTake();
    return m_isGranted;
}

void XPointerGrab::release()
{
    m_retry.stop();
    m_window = XCB_NONE;
    if (!std::exchange(m_isGranted, false))
        return;
    if (m_device)
        xcb_input_xi_ungrab_device(m_x->get(), XCB_CURRENT_TIME, m_device);
    else
        xcb_ungrab_pointer(m_x->get(), XCB_CURRENT_TIME);
    xcb_flush(m_x->get());
}

void XPointerGrab::handleEvent(const xcb_generic_event_t& event)
{
    if (m_window == XCB_NONE)
        return;
    const auto& unmap = reinterpret_cast<const xcb_unmap_notify_event_t&>(event);
    if (typeOf(event) == XCB_UNMAP_NOTIFY && unmap.window == m_window)
        release();
    else if (!m_isGranted && isArrival(event))
        tryToTake();
}

// Of the pointer, in a window of ours.
bool XPointerGrab::isArrival(const xcb_generic_event_t& event) const
{
    const auto& generic = reinterpret_cast<const xcb_ge_generic_event_t&>(event);
    if (typeOf(event) == XCB_GE_GENERIC)
        return generic.extension == m_inputEvents && generic.event_type == XCB_INPUT_ENTER;
    return typeOf(event) == XCB_ENTER_NOTIFY;
}

void XPointerGrab::tryToTake()
{
    m_isGranted = isGrantedNow();
    if (!m_isGranted && m_attemptsLeft-- > 0)
        m_retry.start(kRetryMs);
    else
        m_retry.stop();
}

// Windows of ours get nothing of their own meanwhile: what the pointer does above them is the owner's, too.
// Qt reads the wheel from the input extension alone where there is one, so the grab is the extension's then.
bool XPointerGrab::isGrantedNow() const
{
    if (!m_device)
        return isGrantedByCore();
    const auto cookie = xcb_input_xi_grab_device(m_x->get(), m_window, XCB_CURRENT_TIME, XCB_NONE, m_device,
        XCB_INPUT_GRAB_MODE_22_ASYNC, XCB_INPUT_GRAB_MODE_22_ASYNC, false, 1, &kInputEvents);
    const XReply<xcb_input_xi_grab_device_reply_t> reply(
        xcb_input_xi_grab_device_reply(m_x->get(), cookie, nullptr));
    return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
}

bool XPointerGrab::isGrantedByCore() const
{
    const auto cookie = xcb_grab_pointer(m_x->get(), false, m_window, kEvents, XCB_GRAB_MODE_ASYNC,
        XCB_GRAB_MODE_ASYNC, XCB_NONE, XCB_NONE, XCB_CURRENT_TIME);
    const XReply<xcb_grab_pointer_reply_t> reply(xcb_grab_pointer_reply(m_x->get(), cookie, nullptr));
    return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
}
