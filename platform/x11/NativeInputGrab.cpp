#include "platform/x11/NativeInputGrab.h"

#include <array>
#include <utility>

namespace {

constexpr int kRetryMs = 15;
constexpr int kLimitMs = 2000;
constexpr uint8_t kNoAnswer = 0xff;

QString reasonOf(uint8_t status)
{
    switch (status) {
    case XCB_GRAB_STATUS_ALREADY_GRABBED:
    case XCB_GRAB_STATUS_FROZEN:
        return QStringLiteral("another program holds the keyboard");
    case XCB_GRAB_STATUS_NOT_VIEWABLE:
        return QStringLiteral("the window is not on the screen");
    default:
        return QStringLiteral("the X server refused the keyboard");
    }
}

}

NativeInputGrab::NativeInputGrab(std::shared_ptr<XConnection> connection)
    : m_x(std::move(connection))
    , m_pointer(m_x)
{
    for (QTimer* timer : {&m_retry, &m_limit})
        timer->setSingleShot(true);
    QObject::connect(&m_retry, &QTimer::timeout, &m_retry, [this] { tryToGrab(); });
    QObject::connect(&m_limit, &QTimer::timeout, &m_limit, [this] { giveUp(); });
    m_x->addListener(this);
}

NativeInputGrab::~NativeInputGrab()
{
    m_x->removeListener(this);
    release();
    if (m_keeper != XCB_NONE)
        m_x->discard(xcb_destroy_window_checked(m_x->get(), m_keeper));
}

void NativeInputGrab::grabKeyboard(const QWindow& window)
{
    m_wanted = xcb_window_t(window.winId());
    m_limit.start(kLimitMs);
    tryToGrab();
}

void NativeInputGrab::releaseWithKey()
{
    if (!holdsKeyboard() || m_lastKey == 0) {
        release();
        return;
    }
    createKeeper();
    xcb_map_window(m_x->get(), m_keeper);
    if (!take(m_keeper) || !m_x->isKeyDown(m_lastKey)) {
        release();
        return;
    }
    m_wanted = XCB_NONE;
    m_retry.stop();
    m_limit.start(kLimitMs);
}

void NativeInputGrab::release()
{
    m_wanted = XCB_NONE;
    m_retry.stop();
    m_limit.stop();
    if (std::exchange(m_holder, XCB_NONE) != XCB_NONE)
        xcb_ungrab_keyboard(m_x->get(), XCB_CURRENT_TIME);
    hideKeeper();
    xcb_flush(m_x->get());
}

void NativeInputGrab::handleEvent(const xcb_generic_event_t& event)
{
    switch (typeOf(event)) {
    case XCB_KEY_PRESS:
        m_lastKey = reinterpret_cast<const xcb_key_press_event_t&>(event).detail;
        break;
    case XCB_KEY_RELEASE:
        endWithKey(reinterpret_cast<const xcb_key_release_event_t&>(event));
        break;
    case XCB_UNMAP_NOTIFY: // the server takes the keyboard from a window that goes
        if (reinterpret_cast<const xcb_unmap_notify_event_t&>(event).window == m_holder)
            m_holder = XCB_NONE;
        break;
    }
}

void NativeInputGrab::tryToGrab()
{
    if (!take(m_wanted)) {
        m_retry.start(kRetryMs);
        return;
    }
    m_wanted = XCB_NONE;
    m_limit.stop();
    hideKeeper();
}

void NativeInputGrab::giveUp()
{
    const bool isRefused = m_wanted != XCB_NONE;
    release();
    if (isRefused && onRefused)
        onRefused(reasonOf(m_status));
}

// Takes the keyboard over from a window of ours that has it.
bool NativeInputGrab::take(xcb_window_t window)
{
    const auto cookie = xcb_grab_keyboard(
        m_x->get(), false, window, XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    XReply<xcb_grab_keyboard_reply_t> reply(xcb_grab_keyboard_reply(m_x->get(), cookie, nullptr));
    m_status = reply ? reply->status : kNoAnswer;
    if (m_status != XCB_GRAB_STATUS_SUCCESS)
        return false;
    m_holder = window;
    return true;
}

void NativeInputGrab::hideKeeper()
{
    if (m_keeper != XCB_NONE)
        xcb_unmap_window(m_x->get(), m_keeper);
}

// Outside the screen, invisible, and of no interest to a window manager.
void NativeInputGrab::createKeeper()
{
    if (m_keeper != XCB_NONE)
        return;
    m_keeper = xcb_generate_id(m_x->get());
    const uint32_t isOverrideRedirect = 1;
    xcb_create_window(m_x->get(), XCB_COPY_FROM_PARENT, m_keeper, m_x->root(), -1, -1, 1, 1, 0,
        XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_OVERRIDE_REDIRECT, &isOverrideRedirect);
}

// A held key is repeated as a release and a press; only the last release finds the key up.
void NativeInputGrab::endWithKey(const xcb_key_release_event_t& event)
{
    const bool isKept = m_holder != XCB_NONE && m_holder == m_keeper && m_wanted == XCB_NONE;
    if (isKept && event.detail == m_lastKey && !m_x->isKeyDown(m_lastKey))
        release();
}
