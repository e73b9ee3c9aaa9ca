#include "bench/floors/GrabbedKey.h"

#include <cstdlib>

bool GrabbedKey::grab(xcb_connection_t* connection) const
{
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    const auto cookie = xcb_grab_key_checked(
        connection, true, root, m_modifiers, m_position, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    xcb_generic_error_t* error = xcb_request_check(connection, cookie);
    std::free(error);
    return !error;
}

bool GrabbedKey::isPressedBy(const void* event) const
{
    const auto* key = static_cast<const xcb_key_press_event_t*>(event);
    return (key->response_type & 0x7f) == XCB_KEY_PRESS && key->detail == m_position;
}
