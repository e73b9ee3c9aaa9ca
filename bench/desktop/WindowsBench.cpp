#include "bench/desktop/BenchWindows.h"
#include "bench/desktop/Benches.h"
#include "bench/desktop/Stopwatch.h"
#include "platform/x11/XWindowList.h"

#include <limits>

namespace {

constexpr int kWindows = 200;
constexpr int kRounds = 101;

// The least that tells the windows on the root: one query of the tree, then one round of requests about each.
class BareList {
public:
    explicit BareList(const XConnection& x)
        : m_x(x)
    {
        for (const char* name : {"WM_CLASS", "WM_NAME", "_NET_WM_NAME", "_NET_WM_PID", "_NET_WM_WINDOW_TYPE",
                 "_NET_WM_WINDOW_OPACITY", "_GTK_FRAME_EXTENTS"})
            m_properties.push_back(x.atom(name));
    }

    void read() const
    {
        xcb_connection_t* c = m_x.get();
        const XReply<xcb_query_tree_reply_t> tree(
            xcb_query_tree_reply(c, xcb_query_tree(c, m_x.root()), nullptr));
        const xcb_window_t* window = xcb_query_tree_children(tree.get());
        std::vector<Asked> asked;
        for (int i = 0; i < xcb_query_tree_children_length(tree.get()); ++i)
            asked.push_back(ask(window[i]));
        for (const Asked& each : asked)
            takeAnswers(each);
    }

private:
    struct Asked {
        xcb_get_window_attributes_cookie_t attributes;
        xcb_get_geometry_cookie_t geometry;
        std::vector<xcb_get_property_cookie_t> properties;
    };

    Asked ask(xcb_window_t window) const
    {
        xcb_connection_t* c = m_x.get();
        Asked asked{xcb_get_window_attributes(c, window), xcb_get_geometry(c, window), {}};
        for (const xcb_atom_t property : m_properties)
            asked.properties.push_back(
                xcb_get_property(c, false, window, property, XCB_GET_PROPERTY_TYPE_ANY, 0, 64));
        return asked;
    }

    void takeAnswers(const Asked& asked) const
    {
        xcb_connection_t* c = m_x.get();
        std::free(xcb_get_window_attributes_reply(c, asked.attributes, nullptr));
        std::free(xcb_get_geometry_reply(c, asked.geometry, nullptr));
        for (const auto property : asked.properties)
            std::free(xcb_get_property_reply(c, property, nullptr));
    }

    const XConnection& m_x;
    std::vector<xcb_atom_t> m_properties;
};

template <class Read>
double millisecondsOf(Read read)
{
    const Stopwatch watch;
    read();
    return watch.milliseconds();
}

void compare(const char* name, BenchDesktop& bench, BenchTable& table)
{
    const XClient client(bench.desktop().displayName());
    const auto x = std::make_shared<XConnection>(client.connection(), 0);
    const BareList bare(*x);
    const XWindowList list(x);
    std::vector<double> floor;
    std::vector<double> ours;
    for (int round = 0; round < kRounds; ++round) {
        floor.push_back(millisecondsOf([&] { bare.read(); }));
        ours.push_back(millisecondsOf([&] { list.read(); }));
    }
    table.add({QLatin1String(name), bench.size(), median(floor), median(ours), QStringLiteral("ms"), 2.0});
}

}

void benchWindows(BenchDesktop& bench, BenchTable& table)
{
    {
        BenchWindows windows(bench.desktop().displayName());
        for (int i = 0; i < kWindows; ++i)
            windows.open({i * 4, i * 3, 120, 90});
        compare("list of 200 bare windows", bench, table);
    }
    BenchWindows windows(bench.desktop().displayName());
    if (windows.openManaged(kWindows))
        compare("list of 200 framed windows", bench, table);
    else
        table.add({QStringLiteral("list of 200 framed windows"), bench.size(), {},
            std::numeric_limits<double>::infinity(), QStringLiteral("ms"), 2.0});
}
