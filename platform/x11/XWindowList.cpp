#include "platform/x11/XWindowList.h"

#include <QFile>

#include <algorithm>

namespace {

constexpr uint32_t kTextWords = 64;      // 256 bytes of a title or a name are enough
constexpr uint32_t kMostTypes = 8;       // a window names several, the best first
constexpr uint32_t kMostClients = 65536; // words
constexpr int kMostFrames = 2;           // around a program's window, one in the other
constexpr double kOpaque = 0xffffffff;   // of an opacity

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

// The plain type of text is Latin-1; whatever else names a window is UTF-8.
QString text(const PropertyReply& reply)
{
    const bool isLatin = reply && reply->type == XCB_ATOM_STRING;
    return isLatin ? QString::fromLatin1(bytes(reply)) : QString::fromUtf8(bytes(reply));
}

// WM_CLASS holds two texts that end with a zero each: the instance and the class.
QString classOf(const PropertyReply& reply)
{
    const QList<QByteArray> texts = bytes(reply).split('\0');
    return texts.size() > 1 ? QString::fromUtf8(texts[1]) : QString();
}

// Empty when the property does not tell a process, or there is none.
QString nameOfProcess(const PropertyReply& id)
{
    const std::vector<uint32_t> number = numbers(id);
    QFile file(QStringLiteral("/proc/%1/comm").arg(number.empty() ? 0 : number[0]));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll().trimmed()) : QString();
}

// 0 to 1; 1 without the property.
double alphaOf(const PropertyReply& opacity)
{
    const std::vector<uint32_t> number = numbers(opacity);
    return number.empty() ? 1 : number[0] / kOpaque;
}

// Without the shadow's widths on the left, the right, the top and the bottom. A shadow that leaves no window
// is none.
QRect withoutShadow(QRect pixels, const PropertyReply& shadow)
{
    const std::vector<uint32_t> widths = numbers(shadow);
    if (widths.size() != 4 || qint64(widths[0]) + widths[1] >= pixels.width() ||
        qint64(widths[2]) + widths[3] >= pixels.height())
        return pixels;
    return pixels.adjusted(int(widths[0]), int(widths[2]), -int(widths[1]), -int(widths[3]));
}

// The lowest first; none when the window is gone.
std::vector<xcb_window_t> children(xcb_connection_t* connection, xcb_query_tree_cookie_t cookie)
{
    XReply<xcb_query_tree_reply_t> reply(xcb_query_tree_reply(connection, cookie, nullptr));
    if (!reply)
        return {};
    const xcb_window_t* first = xcb_query_tree_children(reply.get());
    return {first, first + xcb_query_tree_children_length(reply.get())};
}

// None when the window is gone.
xcb_window_t parent(xcb_connection_t* connection, xcb_query_tree_cookie_t cookie)
{
    XReply<xcb_query_tree_reply_t> reply(xcb_query_tree_reply(connection, cookie, nullptr));
    return reply ? reply->parent : xcb_window_t(XCB_NONE);
}

// Borders included; empty when the window is gone.
QRect outerPixels(xcb_connection_t* connection, xcb_get_geometry_cookie_t cookie)
{
    XReply<xcb_get_geometry_reply_t> g(xcb_get_geometry_reply(connection, cookie, nullptr));
    if (!g)
        return {};
    const int borders = 2 * g->border_width;
    return {g->x, g->y, g->width + borders, g->height + borders};
}

// Whether there is anything of it to see.
bool isShown(xcb_connection_t* connection, xcb_get_window_attributes_cookie_t cookie)
{
    XReply<xcb_get_window_attributes_reply_t> a(xcb_get_window_attributes_reply(connection, cookie, nullptr));
    return a && a->map_state == XCB_MAP_STATE_VIEWABLE && a->_class == XCB_WINDOW_CLASS_INPUT_OUTPUT;
}

}

XWindowList::XWindowList(std::shared_ptr<XConnection> connection)
    : m_x(std::move(connection))
    , m_clients{m_x->atom("_NET_CLIENT_LIST_STACKING"), kMostClients}
    , m_active{m_x->atom("_NET_ACTIVE_WINDOW"), 1}
    , m_dock(m_x->atom("_NET_WM_WINDOW_TYPE_DOCK"))
    , m_questions{{
          {XCB_ATOM_WM_CLASS, kTextWords},
          {m_x->atom("_NET_WM_WINDOW_TYPE"), kMostTypes},
          {m_x->atom("_NET_WM_WINDOW_OPACITY"), 1},
          {m_x->atom("_NET_WM_WINDOW_OPACITY"), 1, true},
          {m_x->atom("_GTK_FRAME_EXTENTS"), 4},
          {m_x->atom("_NET_WM_NAME"), kTextWords},
          {XCB_ATOM_WM_NAME, kTextWords},
          {m_x->atom("_NET_WM_PID"), 1},
      }}
{
}

std::vector<WindowRecord> XWindowList::read() const
{
    return m_x->isAlive() ? described(visibleEntries()) : std::vector<WindowRecord>();
}

std::optional<WindowRecord> XWindowList::active() const
{
    if (!m_x->isAlive())
        return std::nullopt;
    const std::vector<uint32_t> named = numbers(answer(ask(m_x->root(), m_active)));
    const std::vector<Entry> entries = visibleEntries();
    for (const xcb_window_t window : {named.empty() ? xcb_window_t(XCB_NONE) : named[0], focus()}) {
        const auto found = std::ranges::find(entries, topOf(window), &Entry::top);
        if (found == entries.end())
            continue;
        auto records = described({*found});
        if (!records.empty())
            return std::move(records.front());
    }
    return std::nullopt;
}

xcb_window_t XWindowList::focus() const
{
    XReply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(m_x->get(), xcb_get_input_focus(m_x->get()), nullptr));
    return reply ? reply->focus : xcb_window_t(XCB_NONE);
}

xcb_window_t XWindowList::underPointer() const
{
    XReply<xcb_query_pointer_reply_t> reply(
        xcb_query_pointer_reply(m_x->get(), xcb_query_pointer(m_x->get(), m_x->root()), nullptr));
    return reply ? reply->child : xcb_window_t(XCB_NONE);
}

xcb_window_t XWindowList::topOf(xcb_window_t window) const
{
    if (window == XCB_INPUT_FOCUS_POINTER_ROOT || window == m_x->root())
        return underPointer();
    for (xcb_window_t above = window; above != XCB_NONE;) {
        window = above;
        above = parent(m_x->get(), xcb_query_tree(m_x->get(), window));
        if (above == m_x->root())
            return window;
    }
    return XCB_NONE;
}

std::vector<XWindowList::Entry> XWindowList::visibleEntries() const
{
    struct Cookies {
        xcb_get_window_attributes_cookie_t attributes;
        xcb_get_geometry_cookie_t geometry;
    };
    xcb_connection_t* c = m_x->get();
    const auto askedScreen = xcb_get_geometry(c, m_x->root());
    const auto askedClients = ask(m_x->root(), m_clients);
    std::vector<xcb_window_t> tops = children(c, xcb_query_tree(c, m_x->root()));
    const QRect screen = outerPixels(c, askedScreen);
    const std::vector<xcb_window_t> clients = numbers(answer(askedClients));
    std::reverse(tops.begin(), tops.end());
    std::vector<Cookies> asked;
    asked.reserve(tops.size());
    for (const xcb_window_t top : tops)
        asked.push_back({xcb_get_window_attributes(c, top), xcb_get_geometry(c, top)});
    const Insides insides = insidesOf(tops, clients);
    std::vector<Entry> entries;
    for (size_t i = 0; i < tops.size(); ++i) {
        const bool isVisible = isShown(c, asked[i].attributes);
        const QRect pixels = outerPixels(c, asked[i].geometry);
        if (isVisible && pixels.intersects(screen))
            entries.push_back({tops[i], insides.at(tops[i]), pixels});
    }
    return entries;
}

// From each program's window up to the frame on the root: of the few windows around a program that is shorter
// than down from the root, where a frame may hold dozens. Windows that no manager knows, menus among them,
// tell about themselves. So do all when the manager has died and left its list.
XWindowList::Insides XWindowList::insidesOf(
    const std::vector<xcb_window_t>& tops, const std::vector<xcb_window_t>& clients) const
{
    Insides insides;
    for (const xcb_window_t top : tops)
        insides.emplace(top, top);
    std::vector<xcb_window_t> reached = clients;
    for (int frame = 0; frame < kMostFrames; ++frame)
        stepUp(reached, insides);
    for (size_t i = 0; i < clients.size(); ++i)
        if (const auto inside = insides.find(reached[i]); inside != insides.end())
            inside->second = clients[i]; // the highest of several in one frame is the one that shows
    return insides;
}

// To the parent of each window that is not on the root yet.
void XWindowList::stepUp(std::vector<xcb_window_t>& windows, const Insides& insides) const
{
    std::vector<std::pair<xcb_window_t*, xcb_query_tree_cookie_t>> asked;
    for (xcb_window_t& window : windows)
        if (!insides.contains(window))
            asked.emplace_back(&window, xcb_query_tree(m_x->get(), window));
    for (const auto& [window, tree] : asked)
        *window = parent(m_x->get(), tree);
}

std::vector<WindowRecord> XWindowList::described(const std::vector<Entry>& entries) const
{
    std::vector<xcb_get_property_cookie_t> asked;
    asked.reserve(entries.size() * kFacts);
    for (const Entry& entry : entries)
        for (const Question& question : m_questions)
            asked.push_back(ask(question.isOfFrame ? entry.top : entry.client, question));
    std::vector<WindowRecord> records;
    records.reserve(entries.size());
    auto next = asked.cbegin();
    for (const Entry& entry : entries) {
        Answers answers;
        for (auto& each : answers)
            each = answer(*next++);
        if (auto window = record(entry.pixels, answers))
            records.push_back(*std::move(window));
    }
    return records;
}

std::optional<WindowRecord> XWindowList::record(QRect pixels, const Answers& answers) const
{
    const bool isGone = !answers[Class];
    if (isGone)
        return std::nullopt;
    WindowRecord window{withoutShadow(pixels, answers[Shadow]), classOf(answers[Class]), text(answers[Name]),
        std::min(alphaOf(answers[Opacity]), alphaOf(answers[FrameOpacity]))};
    const std::vector<uint32_t> types = numbers(answers[Type]);
    if (std::find(types.begin(), types.end(), m_dock) != types.end())
        window.owner = QStringLiteral("Dock");
    else if (window.owner.isEmpty())
        window.owner = nameOfProcess(answers[Process]);
    if (window.name.isEmpty())
        window.name = text(answers[OlderName]);
    return window;
}

xcb_get_property_cookie_t XWindowList::ask(xcb_window_t window, const Question& question) const
{
    return xcb_get_property(
        m_x->get(), false, window, question.property, XCB_GET_PROPERTY_TYPE_ANY, 0, question.words);
}

XReply<xcb_get_property_reply_t> XWindowList::answer(xcb_get_property_cookie_t cookie) const
{
    return XReply<xcb_get_property_reply_t>(xcb_get_property_reply(m_x->get(), cookie, nullptr));
}
