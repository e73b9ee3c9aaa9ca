#include "tests/desktop/XClient.h"

#include <QDeadlineTimer>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <random>

namespace {

struct Free {
    void operator()(void* reply) const { std::free(reply); }
};
template <class Reply>
using Owned = std::unique_ptr<Reply, Free>;

template <class Reply>
Owned<Reply> owned(Reply* reply)
{
    return Owned<Reply>(reply);
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
    std::vector<xcb_window_t> visible;
    const auto tree =
        owned(xcb_query_tree_reply(m_connection, xcb_query_tree(m_connection, root()), nullptr));
    if (!tree)
        return visible;
    const xcb_window_t* children = xcb_query_tree_children(tree.get());
    for (int i = 0; i < xcb_query_tree_children_length(tree.get()); ++i) {
        const auto cookie = xcb_get_window_attributes(m_connection, children[i]);
        const auto attributes = owned(xcb_get_window_attributes_reply(m_connection, cookie, nullptr));
        if (attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE &&
            attributes->_class == XCB_WINDOW_CLASS_INPUT_OUTPUT)
            visible.push_back(children[i]);
    }
    return visible;
}

int XClient::windowCount() const
{
    const auto tree =
        owned(xcb_query_tree_reply(m_connection, xcb_query_tree(m_connection, root()), nullptr));
    return tree ? xcb_query_tree_children_length(tree.get()) : 0;
}

bool XClient::waitForHidden(xcb_window_t window) const
{
    const QDeadlineTimer deadline(5000);
    while (!deadline.hasExpired()) {
        const auto cookie = xcb_get_window_attributes(m_connection, window);
        const auto attributes = owned(xcb_get_window_attributes_reply(m_connection, cookie, nullptr));
        if (!attributes || attributes->map_state != XCB_MAP_STATE_VIEWABLE)
            return true;
    }
    return false;
}

QString XClient::title(xcb_window_t window) const
{
    const QByteArray text = property(window, "_NET_WM_NAME");
    return QString::fromUtf8(text.isEmpty() ? property(window, "WM_NAME") : text);
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
    return !property(root(), "_NET_SUPPORTING_WM_CHECK").isEmpty();
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

QByteArray XClient::property(xcb_window_t window, const char* name) const
{
    const auto cookie = xcb_get_property(m_connection, false, window, atom(name), XCB_ATOM_ANY, 0, 1024);
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
