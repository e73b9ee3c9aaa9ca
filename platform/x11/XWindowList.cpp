#include "platform/x11/XWindowList.h"

#include <QFile>

#include <algorithm>
#include <unordered_set>

namespace {

constexpr uint32_t kTextWords = 64;      // 256 bytes of a title or a name are enough
constexpr uint32_t kMostClients = 65536; // words
constexpr double kOpaque = 0xffffffff;   // of _NET_WM_WINDOW_OPACITY

using PropertyReply = XReply<xcb_get_property_reply_t>;

// The property's 32-bit values; none when it is missing or of another size.
std::vector<uint32_t> numbers(const PropertyReply& reply)
{
    if (!reply || reply->format != 32)
        return {};
    const auto* first = static_cast<const uint32_t*>(xcb_get_property_value(reply.get()));
    return {first, first + xcb_get_property_value_length(reply.get()) / 4};
}

QByteArray bytes(const PropertyReply& reply)
{
    if (!reply || reply->format != 8)
        return {};
    return {static_cast<const char*>(xcb_get_property_value(reply.get())),
        xcb_get_property_value_length(reply.get())};
}

// WM_CLASS holds two texts that end with a zero each: the instance and the class.
QString classOf(const PropertyReply& reply)
{
    const QList<QByteArray> texts = bytes(reply).split('\0');
    return texts.size() > 1 ? QString::fromUtf8(texts[1]) : QString();
}

QString nameOfProcess(uint32_t id)
{
    QFile file(QStringLiteral("/proc/%1/comm").arg(id));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll().trimmed()) : QString();
}

std::vector<xcb_window_t> children(xcb_connection_t* connection, xcb_query_tree_cookie_t cookie)
{
    XReply<xcb_query_tree_reply_t> reply(xcb_query_tree_reply(connection, cookie, nullptr));
    if (!reply)
        return {};
    const xcb_window_t* first = xcb_query_tree_children(reply.get());
    return {first, first + xcb_query_tree_children_length(reply.get())};
}

}

// The answers that are still on their way.
struct XWindowList::Asked {
    xcb_get_property_cookie_t windowClass, type, opacity, shadow, name, process;
};

XWindowList::XWindowList(std::shared_ptr<XConnection> connection)
    : m_x(std::move(connection))
    , m_clients(m_x->atom("_NET_CLIENT_LIST"))
    , m_type(m_x->atom("_NET_WM_WINDOW_TYPE"))
    , m_dock(m_x->atom("_NET_WM_WINDOW_TYPE_DOCK"))
    , m_opacity(m_x->atom("_NET_WM_WINDOW_OPACITY"))
    , m_shadow(m_x->atom("_GTK_FRAME_EXTENTS"))
    , m_name(m_x->atom("_NET_WM_NAME"))
    , m_process(m_x->atom("_NET_WM_PID"))
{
}

std::vector<WindowRecord> XWindowList::read() const
{
    if (!m_x->isAlive())
        return {};
    std::vector<Entry> entries = visibleEntries();
    findClients(entries);
    return described(entries);
}

std::vector<XWindowList::Entry> XWindowList::visibleEntries() const
{
    struct Cookies {
        xcb_get_window_attributes_cookie_t attributes;
        xcb_get_geometry_cookie_t geometry;
        xcb_query_tree_cookie_t tree;
    };
    xcb_connection_t* c = m_x->get();
    std::vector<xcb_window_t> tops = children(c, xcb_query_tree(c, m_x->root()));
    std::reverse(tops.begin(), tops.end()); // the server tells the lowest first
    std::vector<Cookies> asked;
    asked.reserve(tops.size());
    for (const xcb_window_t top : tops)
        asked.push_back(
            {xcb_get_window_attributes(c, top), xcb_get_geometry(c, top), xcb_query_tree(c, top)});
    std::vector<Entry> entries;
    for (size_t i = 0; i < tops.size(); ++i) {
        XReply<xcb_get_window_attributes_reply_t> a(
            xcb_get_window_attributes_reply(c, asked[i].attributes, nullptr));
        XReply<xcb_get_geometry_reply_t> g(xcb_get_geometry_reply(c, asked[i].geometry, nullptr));
        std::vector<xcb_window_t> inside = children(c, asked[i].tree);
        if (!a || !g || a->map_state != XCB_MAP_STATE_VIEWABLE || a->_class != XCB_WINDOW_CLASS_INPUT_OUTPUT)
            continue;
        const int borders = 2 * g->border_width;
        entries.push_back({tops[i], tops[i], QRect(g->x, g->y, g->width + borders, g->height + borders),
            std::move(inside)});
    }
    return entries;
}

// A window manager puts each program's window into a frame, right inside it or one step deeper.
void XWindowList::findClients(std::vector<Entry>& entries) const
{
    const std::unordered_set<xcb_window_t> clients = managedClients();
    if (clients.empty())
        return;
    struct Deeper {
        Entry* entry;
        xcb_query_tree_cookie_t tree;
    };
    std::vector<Deeper> deeper;
    for (Entry& entry : entries) {
        if (takeClient(entry, clients, entry.children) || clients.contains(entry.top))
            continue;
        for (const xcb_window_t child : entry.children)
            deeper.push_back({&entry, xcb_query_tree(m_x->get(), child)});
    }
    for (const Deeper& d : deeper)
        takeClient(*d.entry, clients, children(m_x->get(), d.tree));
}

bool XWindowList::takeClient(
    Entry& entry, const std::unordered_set<xcb_window_t>& clients, const std::vector<xcb_window_t>& windows)
{
    const auto it = std::find_if(
        windows.begin(), windows.end(), [&clients](xcb_window_t window) { return clients.contains(window); });
    if (it != windows.end())
        entry.client = *it;
    return it != windows.end();
}

// Empty without a window manager: programs' windows then lie on the root themselves.
std::unordered_set<xcb_window_t> XWindowList::managedClients() const
{
    const std::vector<uint32_t> list = numbers(answer(property(m_x->root(), m_clients, kMostClients)));
    return {list.begin(), list.end()};
}

std::vector<WindowRecord> XWindowList::described(const std::vector<Entry>& entries) const
{
    std::vector<Asked> asked;
    asked.reserve(entries.size());
    for (const Entry& entry : entries)
        asked.push_back(ask(entry.client));
    std::vector<WindowRecord> records;
    records.reserve(entries.size());
    for (size_t i = 0; i < entries.size(); ++i)
        records.push_back(record(entries[i].pixels, asked[i]));
    return records;
}

XWindowList::Asked XWindowList::ask(xcb_window_t client) const
{
    return {property(client, XCB_ATOM_WM_CLASS, kTextWords), property(client, m_type, 1),
        property(client, m_opacity, 1), property(client, m_shadow, 4), property(client, m_name, kTextWords),
        property(client, m_process, 1)};
}

WindowRecord XWindowList::record(QRect pixels, const Asked& asked) const
{
    WindowRecord window{pixels, classOf(answer(asked.windowClass)), {}, 1};
    const std::vector<uint32_t> type = numbers(answer(asked.type));
    const std::vector<uint32_t> opacity = numbers(answer(asked.opacity));
    const std::vector<uint32_t> shadow = numbers(answer(asked.shadow));
    const std::vector<uint32_t> process = numbers(answer(asked.process));
    window.name = QString::fromUtf8(bytes(answer(asked.name)));
    if (type == std::vector{m_dock})
        window.owner = QStringLiteral("Dock");
    else if (window.owner.isEmpty() && !process.empty())
        window.owner = nameOfProcess(process[0]);
    if (!opacity.empty())
        window.alpha = opacity[0] / kOpaque;
    if (shadow.size() == 4)
        window.pixels.adjust(int(shadow[0]), int(shadow[2]), -int(shadow[1]), -int(shadow[3]));
    return window;
}

xcb_get_property_cookie_t XWindowList::property(xcb_window_t window, xcb_atom_t name, uint32_t words) const
{
    return xcb_get_property(m_x->get(), false, window, name, XCB_GET_PROPERTY_TYPE_ANY, 0, words);
}

XReply<xcb_get_property_reply_t> XWindowList::answer(xcb_get_property_cookie_t cookie) const
{
    return XReply<xcb_get_property_reply_t>(xcb_get_property_reply(m_x->get(), cookie, nullptr));
}
