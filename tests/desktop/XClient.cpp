#include "tests/desktop/XClient.h"

#include <QDeadlineTimer>

#include <algorithm>
#include <cstring>
#include <random>

namespace {

template <class Reply>
XClient::Owned<Reply> owned(Reply* reply)
{
    return XClient::Owned<Reply>(reply);
}

bool isViewable(xcb_connection_t* connection, xcb_window_t window)
{
    const auto cookie = xcb_get_window_attributes(connection, window);
    const auto attributes = owned(xcb_get_window_attributes_reply(connection, cookie, nullptr));
    return attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE &&
           attributes->_class == XCB_WINDOW_CLASS_INPUT_OUTPUT;
}

std::vector<xcb_window_t> children(xcb_connection_t* connection, xcb_window_t window)
{
    const auto tree = owned(xcb_query_tree_reply(connection, xcb_query_tree(connection, window), nullptr));
    if (!tree)
        return {};
    const xcb_window_t* first = xcb_query_tree_children(tree.get());
    return {first, first + xcb_query_tree_children_length(tree.get())};
}

} // namespace

XClient::XClient(const QString& displayName)
    : m_connection(xcb_connect(displayName.toLatin1().constData(), nullptr))
{
    if (isConnected())
        m_screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
}

XClient::~XClient()
{
    xcb_disconnect(m_connection);
}

void XClient::sync() const
{
    owned(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
}

QImage XClient::pixels(QRect area) const
{
    const auto cookie = xcb_get_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, root(), area.x(), area.y(),
        area.width(), area.height(), ~0u);
    const auto reply = owned(xcb_get_image_reply(m_connection, cookie, nullptr));
    if (!reply)
        return {};
    QImage image(area.size(), QImage::Format_RGB32);
    std::memcpy(image.bits(), xcb_get_image_data(reply.get()), image.sizeInBytes());
    return image;
}

std::vector<xcb_window_t> XClient::visibleWindows() const
{
    std::vector<xcb_window_t> windows = children(m_connection, root());
    std::erase_if(windows, [this](xcb_window_t window) { return !isViewable(m_connection, window); });
    return windows;
}

int XClient::windowCount() const
{
    return int(children(m_connection, root()).size());
}

bool XClient::waitForHidden(xcb_window_t window) const
{
    const QDeadlineTimer deadline(5000);
    while (isViewable(m_connection, window)) {
        if (deadline.hasExpired())
            return false;
    }
    return true;
}

XClient::Owned<xcb_generic_event_t> XClient::nextEvent() const
{
    return owned(xcb_poll_for_event(m_connection));
}

QString XClient::title(xcb_window_t window) const
{
    const QByteArray text = property(window, atom("_NET_WM_NAME"));
    return QString::fromUtf8(text.isEmpty() ? property(window, XCB_ATOM_WM_NAME) : text);
}

std::vector<xcb_window_t> XClient::windowsTitled(const char* title) const
{
    std::vector<xcb_window_t> windows = visibleWindows();
    std::erase_if(
        windows, [&](xcb_window_t window) { return this->title(window) != QString::fromUtf8(title); });
    return windows;
}

QRect XClient::geometry(xcb_window_t window) const
{
    const auto reply =
        owned(xcb_get_geometry_reply(m_connection, xcb_get_geometry(m_connection, window), nullptr));
    return reply ? QRect(reply->x, reply->y, reply->width, reply->height) : QRect();
}

QRect XClient::outline(xcb_window_t window) const
{
    const auto reply =
        owned(xcb_get_geometry_reply(m_connection, xcb_get_geometry(m_connection, window), nullptr));
    if (!reply)
        return {};
    const int borders = 2 * reply->border_width;
    return {reply->x, reply->y, reply->width + borders, reply->height + borders};
}

xcb_window_t XClient::parent(xcb_window_t window) const
{
    const auto reply =
        owned(xcb_query_tree_reply(m_connection, xcb_query_tree(m_connection, window), nullptr));
    return reply ? reply->parent : xcb_window_t(XCB_NONE);
}

xcb_window_t XClient::topmost(xcb_window_t window) const
{
    for (xcb_window_t above = window; above != root() && above != XCB_NONE; above = parent(above))
        window = above;
    return window;
}

xcb_window_t XClient::windowAt(QRect outline) const
{
    const std::vector<xcb_window_t> windows = visibleWindows();
    const auto found = std::find_if(windows.begin(), windows.end(),
        [&](xcb_window_t window) { return this->outline(window) == outline; });
    return found == windows.end() ? xcb_window_t(XCB_NONE) : *found;
}

xcb_window_t XClient::focusedWindow() const
{
    const auto reply =
        owned(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    return reply ? reply->focus : XCB_NONE;
}

// Asking is trying. The server serves nobody else meanwhile: another client's own grab must not meet this
// one.
bool XClient::isKeyboardTaken() const
{
    xcb_grab_server(m_connection);
    const auto cookie = xcb_grab_keyboard(
        m_connection, false, root(), XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    xcb_ungrab_keyboard(m_connection, XCB_CURRENT_TIME);
    xcb_ungrab_server(m_connection);
    const auto reply = owned(xcb_grab_keyboard_reply(m_connection, cookie, nullptr));
    return reply && reply->status == XCB_GRAB_STATUS_ALREADY_GRABBED;
}

bool XClient::isPointerTaken() const
{
    xcb_grab_server(m_connection);
    const auto cookie = xcb_grab_pointer(m_connection, false, root(), 0, XCB_GRAB_MODE_ASYNC,
        XCB_GRAB_MODE_ASYNC, XCB_NONE, XCB_NONE, XCB_CURRENT_TIME);
    xcb_ungrab_pointer(m_connection, XCB_CURRENT_TIME);
    xcb_ungrab_server(m_connection);
    const auto reply = owned(xcb_grab_pointer_reply(m_connection, cookie, nullptr));
    return reply && reply->status == XCB_GRAB_STATUS_ALREADY_GRABBED;
}

bool XClient::isManaged() const
{
    return !property(root(), atom("_NET_SUPPORTING_WM_CHECK")).isEmpty();
}

void XClient::wakeWindowManager() const
{
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, root(), atom("LUMORA_TEST_WAKE"),
        XCB_ATOM_CARDINAL, 32, 0, nullptr);
    sync();
}

void XClient::paintNoise() const
{
    constexpr QSize tile(509, 503);
    std::vector<quint32> noise(std::size_t(tile.width()) * tile.height());
    std::minstd_rand random(7);
    for (quint32& pixel : noise)
        pixel = random() & 0xffffff;

    const xcb_pixmap_t pixmap = xcb_generate_id(m_connection);
    const xcb_gcontext_t context = xcb_generate_id(m_connection);
    xcb_create_pixmap(m_connection, m_screen->root_depth, pixmap, root(), tile.width(), tile.height());
    xcb_create_gc(m_connection, context, pixmap, 0, nullptr);
    xcb_put_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap, context, tile.width(), tile.height(), 0, 0,
        0, m_screen->root_depth, noise.size() * sizeof(quint32),
        reinterpret_cast<const quint8*>(noise.data()));
    xcb_change_window_attributes(m_connection, root(), XCB_CW_BACK_PIXMAP, &pixmap);
    xcb_clear_area(m_connection, false, root(), 0, 0, 0, 0);
    xcb_free_gc(m_connection, context);
    xcb_free_pixmap(m_connection, pixmap);
    sync();
}

QByteArray XClient::property(xcb_window_t window, xcb_atom_t property, bool isReadAway) const
{
    const auto cookie =
        xcb_get_property(m_connection, isReadAway, window, property, XCB_ATOM_ANY, 0, 1 << 24);
    const auto reply = owned(xcb_get_property_reply(m_connection, cookie, nullptr));
    if (!reply)
        return {};
    return {static_cast<const char*>(xcb_get_property_value(reply.get())),
        xcb_get_property_value_length(reply.get())};
}

xcb_atom_t XClient::atom(const char* name) const
{
    const auto cookie = xcb_intern_atom(m_connection, false, std::strlen(name), name);
    const auto reply = owned(xcb_intern_atom_reply(m_connection, cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}
