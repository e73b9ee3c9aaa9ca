#include "platform/x11/NativeFrontKeeper.h"

#include <QRect>

#include <algorithm>
#include <utility>

namespace {

constexpr int kSettleMs = 10;

// The window whose place among the root's children changed; XCB_NONE for every other event.
xcb_window_t restackedWindow(const xcb_generic_event_t& event)
{
    switch (typeOf(event)) {
    case XCB_MAP_NOTIFY:
        return reinterpret_cast<const xcb_map_notify_event_t&>(event).window;
    case XCB_CONFIGURE_NOTIFY:
        return reinterpret_cast<const xcb_configure_notify_event_t&>(event).window;
    case XCB_CIRCULATE_NOTIFY:
        return reinterpret_cast<const xcb_circulate_notify_event_t&>(event).window;
    case XCB_REPARENT_NOTIFY:
        return reinterpret_cast<const xcb_reparent_notify_event_t&>(event).window;
    default:
        return XCB_NONE;
    }
}

QRect rectangleOf(const xcb_get_geometry_reply_t& g)
{
    return {g.x, g.y, g.width + 2 * g.border_width, g.height + 2 * g.border_width};
}

}

NativeFrontKeeper::NativeFrontKeeper(std::shared_ptr<XConnection> connection)
    : m_x(std::move(connection))
{
    m_settled.setSingleShot(true);
    QObject::connect(&m_settled, &QTimer::timeout, &m_settled, [this] { raiseWhereCovered(); });
    m_x->addListener(this);
}

NativeFrontKeeper::~NativeFrontKeeper()
{
    m_x->removeListener(this);
    release();
}

void NativeFrontKeeper::keepInFront(const QWindow& window)
{
    m_window = xcb_window_t(window.winId());
    listenToRoot(true);
    m_settled.start(kSettleMs); // what came before we listened
}

void NativeFrontKeeper::release()
{
    m_settled.stop();
    if (std::exchange(m_window, XCB_NONE) != XCB_NONE)
        listenToRoot(false);
}

void NativeFrontKeeper::handleEvent(const xcb_generic_event_t& event)
{
    if (m_window == XCB_NONE)
        return;
    const auto& unmap = reinterpret_cast<const xcb_unmap_notify_event_t&>(event);
    if (typeOf(event) == XCB_UNMAP_NOTIFY && unmap.window == m_window) {
        release();
        return;
    }
    const xcb_window_t window = restackedWindow(event);
    if (window != XCB_NONE && !m_x->owns(window) && !m_settled.isActive())
        m_settled.start(kSettleMs);
}

// The rest of what this connection hears of the root stays as it is.
void NativeFrontKeeper::listenToRoot(bool isOn) const
{
    const auto cookie = xcb_get_window_attributes(m_x->get(), m_x->root());
    const XReply<xcb_get_window_attributes_reply_t> reply(
        xcb_get_window_attributes_reply(m_x->get(), cookie, nullptr));
    if (!reply)
        return;
    const uint32_t others = reply->your_event_mask & ~uint32_t(XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
    const uint32_t mask = others | (isOn ? XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY : 0);
    xcb_change_window_attributes(m_x->get(), m_x->root(), XCB_CW_EVENT_MASK, &mask);
    xcb_flush(m_x->get());
}

void NativeFrontKeeper::raiseWhereCovered()
{
    const std::vector<xcb_window_t> covering = coveringWindows();
    const auto isOurs = [this](xcb_window_t window) { return m_x->owns(window); };
    if (std::all_of(covering.begin(), covering.end(), isOurs) || (mayRaise && !mayRaise()))
        return;
    raise(m_window);
    for (xcb_window_t window : covering) // the lowest first
        if (isOurs(window))
            raise(window);
    xcb_flush(m_x->get());
}

// The visible ones above the window that share a pixel with it, the lowest first.
std::vector<xcb_window_t> NativeFrontKeeper::coveringWindows() const
{
    xcb_connection_t* c = m_x->get();
    const std::vector<xcb_window_t> above = windowsAbove();
    std::vector<std::pair<xcb_get_window_attributes_cookie_t, xcb_get_geometry_cookie_t>> asked;
    for (xcb_window_t window : above)
        asked.emplace_back(xcb_get_window_attributes(c, window), xcb_get_geometry(c, window));
    const XReply<xcb_get_geometry_reply_t> own(
        xcb_get_geometry_reply(c, xcb_get_geometry(c, m_window), nullptr));
    std::vector<xcb_window_t> covering;
    for (size_t i = 0; i < above.size(); ++i) {
        const XReply<xcb_get_window_attributes_reply_t> attributes(
            xcb_get_window_attributes_reply(c, asked[i].first, nullptr));
        const XReply<xcb_get_geometry_reply_t> geometry(xcb_get_geometry_reply(c, asked[i].second, nullptr));
        if (own && attributes && geometry && attributes->map_state == XCB_MAP_STATE_VIEWABLE &&
            attributes->_class == XCB_WINDOW_CLASS_INPUT_OUTPUT &&
            rectangleOf(*geometry).intersects(rectangleOf(*own)))
            covering.push_back(above[i]);
    }
    return covering;
}

std::vector<xcb_window_t> NativeFrontKeeper::windowsAbove() const
{
    const XReply<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(m_x->get(), xcb_query_tree(m_x->get(), m_x->root()), nullptr));
    if (!tree)
        return {};
    const xcb_window_t* first = xcb_query_tree_children(tree.get());
    const xcb_window_t* end = first + xcb_query_tree_children_length(tree.get());
    const xcb_window_t* own = std::find(first, end, m_window);
    return own == end ? std::vector<xcb_window_t>{} : std::vector<xcb_window_t>(own + 1, end);
}

void NativeFrontKeeper::raise(xcb_window_t window) const
{
    const uint32_t above = XCB_STACK_MODE_ABOVE;
    m_x->discard(xcb_configure_window_checked(m_x->get(), window, XCB_CONFIG_WINDOW_STACK_MODE, &above));
}
