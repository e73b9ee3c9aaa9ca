#include "bench/desktop/DamageWatch.h"

#include "bench/desktop/Stopwatch.h"

#include <cstdlib>

namespace {

constexpr double kPatience = 100; // milliseconds until the first drawing
constexpr double kQuiet = 2;      // milliseconds

}

DamageWatch::DamageWatch(const QString& displayName)
    : m_server(displayName)
{
    xcb_connection_t* c = m_server.connection();
    const xcb_query_extension_reply_t* extension = xcb_get_extension_data(c, &xcb_damage_id);
    if (!extension || !extension->present)
        return;
    m_event = extension->first_event + XCB_DAMAGE_NOTIFY;
    std::free(xcb_damage_query_version_reply(c, xcb_damage_query_version(c, 1, 1), nullptr));
    xcb_damage_create(c, xcb_generate_id(c), m_server.root(), XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
    m_server.sync();
}

qint64 DamageWatch::takePixels()
{
    qint64 pixels = 0;
    Stopwatch quiet;
    while (quiet.milliseconds() < (pixels ? kQuiet : kPatience)) {
        const qint64 more = arrivedPixels();
        if (more)
            quiet.restart();
        pixels += more;
        shortPause();
    }
    return pixels;
}

qint64 DamageWatch::arrivedPixels()
{
    qint64 pixels = 0;
    while (xcb_generic_event_t* event = xcb_poll_for_event(m_server.connection())) {
        const auto* damage = reinterpret_cast<xcb_damage_notify_event_t*>(event);
        if ((event->response_type & 0x7f) == m_event)
            pixels += qint64(damage->area.width) * damage->area.height;
        std::free(event);
    }
    return pixels;
}
