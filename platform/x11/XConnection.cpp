#include "platform/x11/XConnection.h"

#include <QGuiApplication>

#include <algorithm>
#include <cstring>

namespace {

// Its name is no display's, so xcb answers with a connection that is broken from the start.
xcb_connection_t* brokenConnection()
{
    return xcb_connect("-", nullptr);
}

xcb_connection_t* qtConnection()
{
    // Other platforms of Qt answer with an interface that has no connection.
    if (!qGuiApp || QGuiApplication::platformName() != QStringLiteral("xcb"))
        return nullptr;
    auto* interface = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return interface ? interface->connection() : nullptr;
}

int screenNumberOfDisplay()
{
    char* host = nullptr;
    int display = 0;
    int screen = 0;
    if (xcb_parse_display(nullptr, &host, &display, &screen))
        std::free(host);
    return screen;
}

const xcb_screen_t* screenOf(xcb_connection_t* connection, int number)
{
    const xcb_setup_t* setup = xcb_get_setup(connection);
    if (!setup)
        return nullptr;
    xcb_screen_iterator_t it = xcb_setup_roots_iterator(setup);
    for (; it.rem > 1 && number > 0; --number)
        xcb_screen_next(&it);
    return it.data;
}

}

std::shared_ptr<XConnection> XConnection::ofApplication()
{
    xcb_connection_t* connection = qtConnection();
    return std::make_shared<XConnection>(
        connection ? connection : brokenConnection(), screenNumberOfDisplay());
}

XConnection::XConnection(xcb_connection_t* connection, int screenNumber)
    : m_connection(connection)
    , m_screen(screenOf(connection, screenNumber))
{
    if (qGuiApp)
        qGuiApp->installNativeEventFilter(this);
}

XConnection::~XConnection() = default;

const xcb_query_extension_reply_t* XConnection::extension(xcb_extension_t* id) const
{
    const xcb_query_extension_reply_t* data = xcb_get_extension_data(m_connection, id);
    return data && data->present ? data : nullptr;
}

xcb_atom_t XConnection::atom(const char* name) const
{
    const auto cookie = xcb_intern_atom(m_connection, false, std::strlen(name), name);
    XReply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(m_connection, cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

bool XConnection::owns(xcb_window_t window) const
{
    const xcb_setup_t* setup = xcb_get_setup(m_connection);
    return setup && (window & ~setup->resource_id_mask) == setup->resource_id_base;
}

bool XConnection::isKeyDown(xcb_keycode_t key) const
{
    XReply<xcb_query_keymap_reply_t> map(
        xcb_query_keymap_reply(m_connection, xcb_query_keymap(m_connection), nullptr));
    return map && (map->keys[key / 8] >> (key % 8)) & 1;
}

void XConnection::discard(xcb_void_cookie_t checkedRequest) const
{
    xcb_discard_reply(m_connection, checkedRequest.sequence);
}

void XConnection::addListener(XEventListener* listener)
{
    m_listeners.push_back(listener);
}

void XConnection::removeListener(XEventListener* listener)
{
    m_listeners.erase(std::remove(m_listeners.begin(), m_listeners.end(), listener), m_listeners.end());
}

bool XConnection::nativeEventFilter(const QByteArray&, void* message, qintptr*)
{
    // By index: a listener may add another while it is called.
    for (size_t i = 0; i < m_listeners.size(); ++i)
        m_listeners[i]->handleEvent(*static_cast<const xcb_generic_event_t*>(message));
    return isOfRootsChild(*static_cast<const xcb_generic_event_t*>(message));
}

// Qt is not told: it would take what happens to a window on the root for a change of the screens.
bool XConnection::isOfRootsChild(const xcb_generic_event_t& event) const
{
    const int type = typeOf(event);
    if (type < XCB_CREATE_NOTIFY || type > XCB_CIRCULATE_NOTIFY)
        return false;
    // The first two fields are the same for all of them: where it was heard, and what it is about.
    const auto& change = reinterpret_cast<const xcb_unmap_notify_event_t&>(event);
    return change.event == root() && change.window != root();
}
