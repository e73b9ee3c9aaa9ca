#include "bench/desktop/KeyProbe.h"

#include <cstdlib>

bool isHotKeyTaken(const XClient& server, Key key)
{
    xcb_connection_t* c = server.connection();
    const auto position = xcb_keycode_t(key);
    xcb_grab_server(c);
    const auto cookie = xcb_grab_key_checked(
        c, false, server.root(), XCB_MOD_MASK_4, position, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    xcb_ungrab_key(c, position, server.root(), XCB_MOD_MASK_4);
    xcb_ungrab_server(c);
    xcb_generic_error_t* error = xcb_request_check(c, cookie);
    std::free(error);
    return error != nullptr;
}
