#include "platform/x11/NativeDisplays.h"

#include "platform/x11/DisplayRules.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>

#include <xcb/randr.h>

namespace {

const QScreen* screenAt(QPoint rootPixel)
{
    // Qt leaves a screen's corner in device pixels and divides only its size.
    for (const QScreen* screen : QGuiApplication::screens()) {
        if (screen->geometry().topLeft() == rootPixel)
            return screen;
    }
    return nullptr;
}

DisplayRecord displayAt(QRect rootPixels, int id)
{
    DisplayRecord display;
    display.id = id;
    display.pixels = rootPixels;
    if (const QScreen* screen = screenAt(rootPixels.topLeft())) {
        display.name = screen->name();
        display.scale = screen->devicePixelRatio();
    }
    return display;
}

bool hasMonitorList(const XConnection& x)
{
    if (!x.extension(&xcb_randr_id))
        return false;
    const auto cookie = xcb_randr_query_version(x.get(), 1, 5);
    XReply<xcb_randr_query_version_reply_t> reply(xcb_randr_query_version_reply(x.get(), cookie, nullptr));
    return reply && (reply->major_version > 1 || reply->minor_version >= 5);
}

}

NativeDisplays::NativeDisplays(std::shared_ptr<XConnection> connection)
    : m_x(std::move(connection))
    , m_hasMonitors(hasMonitorList(*m_x))
{
    if (const auto* randr = m_x->extension(&xcb_randr_id))
        m_randrEvents = randr->first_event;
    watchScreens();
    m_x->addListener(this);
    begin();
}

NativeDisplays::~NativeDisplays()
{
    m_x->removeListener(this);
}

std::optional<QPoint> NativeDisplays::pointer() const
{
    const auto cookie = xcb_query_pointer(m_x->get(), m_x->root());
    XReply<xcb_query_pointer_reply_t> reply(xcb_query_pointer_reply(m_x->get(), cookie, nullptr));
    if (!reply || !reply->same_screen)
        return std::nullopt;
    return QPoint(reply->root_x, reply->root_y) - originOnRoot();
}

QRect NativeDisplays::virtualScreen() const
{
    return {-originOnRoot(), rootSize()};
}

QPoint NativeDisplays::originOnRoot() const
{
    all(); // reads it, too
    return m_origin;
}

void NativeDisplays::handleEvent(const xcb_generic_event_t& event)
{
    const int type = typeOf(event);
    const bool isRandr = m_randrEvents && (type == m_randrEvents + XCB_RANDR_SCREEN_CHANGE_NOTIFY ||
                                              type == m_randrEvents + XCB_RANDR_NOTIFY);
    const bool isRootResize =
        type == XCB_CONFIGURE_NOTIFY &&
        reinterpret_cast<const xcb_configure_notify_event_t&>(event).window == m_x->root();
    if (isRandr || isRootResize)
        markStale();
}

void NativeDisplays::watchScreens()
{
    QObject::connect(qGuiApp, &QGuiApplication::screenAdded, &context(), [this](QScreen* screen) {
        watchScreen(screen);
        markStale();
    });
    QObject::connect(qGuiApp, &QGuiApplication::screenRemoved, &context(), [this] { markStale(); });
    QObject::connect(qGuiApp, &QGuiApplication::primaryScreenChanged, &context(), [this] { markStale(); });
    for (QScreen* screen : QGuiApplication::screens())
        watchScreen(screen);
}

void NativeDisplays::watchScreen(QScreen* screen)
{
    QObject::connect(screen, &QScreen::geometryChanged, &context(), [this] { markStale(); });
    QObject::connect(screen, &QScreen::logicalDotsPerInchChanged, &context(), [this] { markStale(); });
}

std::optional<std::vector<DisplayRecord>> NativeDisplays::read() const
{
    if (!m_x->isAlive())
        return std::nullopt;
    std::vector<DisplayRecord> onRoot = monitors();
    if (onRoot.empty())
        onRoot.push_back(displayAt(QRect({0, 0}, rootSize()), int(m_x->root())));
    m_origin = onRoot.front().pixels.topLeft();
    return arrangedDisplays(std::move(onRoot));
}

// In root pixels.
std::vector<DisplayRecord> NativeDisplays::monitors() const
{
    std::vector<DisplayRecord> found;
    if (!m_hasMonitors)
        return found;
    const auto cookie = xcb_randr_get_monitors(m_x->get(), m_x->root(), true);
    XReply<xcb_randr_get_monitors_reply_t> reply(xcb_randr_get_monitors_reply(m_x->get(), cookie, nullptr));
    if (!reply)
        return found;
    for (auto it = xcb_randr_get_monitors_monitors_iterator(reply.get()); it.rem;
         xcb_randr_monitor_info_next(&it)) {
        const DisplayRecord display =
            displayAt(QRect(it.data->x, it.data->y, it.data->width, it.data->height), int(it.data->name));
        if (display.isValid())
            found.insert(it.data->primary ? found.begin() : found.end(), display);
    }
    return found;
}

QSize NativeDisplays::rootSize() const
{
    const auto cookie = xcb_get_geometry(m_x->get(), m_x->root());
    XReply<xcb_get_geometry_reply_t> reply(xcb_get_geometry_reply(m_x->get(), cookie, nullptr));
    return reply ? QSize(reply->width, reply->height) : QSize();
}
