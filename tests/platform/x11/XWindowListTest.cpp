#include "platform/x11/XWindowList.h"

#include "tests/desktop/Process.h"
#include "tests/platform/x11/XServer.h"

#include <QFile>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <unistd.h>

namespace {

struct Property {
    const char* name;
    const char* type;
    int format; // bits of a value
    QByteArray data;
};

Property numbers(const char* name, const std::vector<quint32>& values, const char* type = "CARDINAL")
{
    const auto* first = reinterpret_cast<const char*>(values.data());
    return {name, type, 32, QByteArray(first, qsizetype(values.size() * sizeof(quint32)))};
}

Property ofClass(const char* name)
{
    return {"WM_CLASS", "STRING", 8, QByteArray("instance").append('\0').append(name).append('\0')};
}

QString ownName()
{
    QFile file(QStringLiteral("/proc/self/comm"));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll().trimmed()) : QString();
}

// A server with windows to list, and the list of them.
class ListedServer {
public:
    const OtherProgram& client() const { return m_client; }
    QString display() const { return m_server.display(); }
    void kill() { m_server.kill(); }
    std::vector<WindowRecord> read() const { return m_list.read(); }
    QStringList owners() const
    {
        QStringList owners;
        for (const WindowRecord& window : read())
            owners << window.owner;
        return owners;
    }
    xcb_atom_t atom(const char* name) const { return m_x->atom(name); }
    void set(xcb_window_t window, const Property& p)
    {
        xcb_change_property(m_client.connection(), XCB_PROP_MODE_REPLACE, window, atom(p.name), atom(p.type),
            p.format, p.data.size() * 8 / p.format, p.data.constData());
        m_client.sync();
    }
    xcb_window_t open(const QRect& pixels, const char* ofProgram)
    {
        const xcb_window_t window = m_client.openWindow(pixels, 0);
        set(window, ofClass(ofProgram));
        return window;
    }
    void putInto(xcb_window_t parent, xcb_window_t window)
    {
        xcb_reparent_window(m_client.connection(), window, parent, 2, 20);
        m_client.sync();
    }
    // As a window manager tells it.
    void setClients(const std::vector<quint32>& windows)
    {
        set(m_client.root(), numbers("_NET_CLIENT_LIST_STACKING", windows, "WINDOW"));
    }

private:
    XServer m_server{QStringLiteral("800x600x24")};
    const OtherProgram m_client{m_server.display()};
    const XClient m_own{m_server.display()};
    std::shared_ptr<XConnection> m_x = std::make_shared<XConnection>(m_own.connection(), 0);
    XWindowList m_list{m_x};
};

}

TEST(XWindowList, ReadsWhatAWindowTells)
{
    constexpr QRect kPixels(50, 60, 200, 100);
    const struct {
        const char* what;
        std::vector<Property> properties;
        WindowRecord expected;
    } cases[] = {
        {"nothing", {}, {kPixels, {}, {}, 1}},
        {"both titles", {{"WM_NAME", "STRING", 8, "old"}, {"_NET_WM_NAME", "UTF8_STRING", 8, "n\xc3\xa9w"}},
            {kPixels, {}, QStringLiteral("n\u00e9w"), 1}},
        {"older title", {{"WM_NAME", "STRING", 8, "caf\xe9"}}, {kPixels, {}, QStringLiteral("caf\u00e9"), 1}},
        {"process", {numbers("_NET_WM_PID", {quint32(getpid())})}, {kPixels, ownName(), {}, 1}},
        {"class before process", {ofClass("Clock"), numbers("_NET_WM_PID", {quint32(getpid())})},
            {kPixels, QStringLiteral("Clock"), {}, 1}},
        {"no such process", {numbers("_NET_WM_PID", {0x7fffffff})}, {kPixels, {}, {}, 1}},
        {"half opaque", {numbers("_NET_WM_WINDOW_OPACITY", {0x7fffffff})}, {kPixels, {}, {}, 0.5}},
        {"opacity that is no number", {{"_NET_WM_WINDOW_OPACITY", "STRING", 8, "half"}},
            {kPixels, {}, {}, 1}},
        {"shadow", {numbers("_GTK_FRAME_EXTENTS", {10, 20, 5, 25})}, {{60, 65, 170, 70}, {}, {}, 1}},
        {"shadow as large as the window", {numbers("_GTK_FRAME_EXTENTS", {100, 100, 0, 0})},
            {kPixels, {}, {}, 1}},
        {"shadow beyond all numbers", {numbers("_GTK_FRAME_EXTENTS", {1, 2, ~0U, 3})}, {kPixels, {}, {}, 1}},
        {"shadow of one side", {numbers("_GTK_FRAME_EXTENTS", {10})}, {kPixels, {}, {}, 1}},
    };
    ListedServer server;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const xcb_window_t window = server.client().openWindow(kPixels, 0);
        for (const Property& property : c.properties)
            server.set(window, property);
        const std::vector<WindowRecord> windows = server.read();
        ASSERT_EQ(windows.size(), 1);
        EXPECT_EQ(windows[0].pixels, c.expected.pixels);
        EXPECT_EQ(windows[0].owner, c.expected.owner);
        EXPECT_EQ(windows[0].name, c.expected.name);
        EXPECT_NEAR(windows[0].alpha, c.expected.alpha, 1e-6);
        xcb_destroy_window(server.client().connection(), window);
    }
}

TEST(XWindowList, KnowsADockByAnyOfItsTypes)
{
    ListedServer server;
    const quint32 dock = server.atom("_NET_WM_WINDOW_TYPE_DOCK");
    const quint32 menu = server.atom("_NET_WM_WINDOW_TYPE_MENU");
    const std::pair<std::vector<quint32>, const char*> cases[] = {
        {{dock}, "Dock"}, {{menu, dock}, "Dock"}, {{menu}, "Panel"}, {{}, "Panel"}};
    const xcb_window_t window = server.open({0, 0, 800, 30}, "Panel");
    for (const auto& [types, owner] : cases) {
        server.set(window, numbers("_NET_WM_WINDOW_TYPE", types, "ATOM"));
        EXPECT_EQ(server.owners(), QStringList{QString::fromUtf8(owner)});
    }
}

TEST(XWindowList, ListsWhatShowsFromFrontToBack)
{
    ListedServer server;
    xcb_connection_t* c = server.client().connection();
    const xcb_window_t root = server.client().root();
    server.open({0, 0, 300, 300}, "low");
    const xcb_window_t raised = server.open({-150, -150, 300, 300}, "partly outside");
    xcb_unmap_window(c, server.open({0, 0, 100, 100}, "hidden"));
    server.open({-100, -100, 1, 1}, "left above");
    server.open({800, 0, 50, 50}, "right");
    const xcb_window_t bordered = server.open({100, 100, 50, 50}, "bordered");
    const uint32_t border = 7;
    xcb_configure_window(c, bordered, XCB_CONFIG_WINDOW_BORDER_WIDTH, &border);
    const xcb_window_t glass = xcb_generate_id(c);
    xcb_create_window(
        c, 0, glass, root, 0, 0, 800, 600, 0, XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_map_window(c, glass);
    const uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(c, raised, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    server.client().sync();

    const std::vector<WindowRecord> windows = server.read();
    EXPECT_EQ(server.owners(),
        QStringList({QStringLiteral("partly outside"), QStringLiteral("bordered"), QStringLiteral("low")}));
    ASSERT_EQ(windows.size(), 3);
    EXPECT_EQ(windows[0].pixels, QRect(-150, -150, 300, 300));
    EXPECT_EQ(windows[1].pixels, QRect(100, 100, 64, 64));
}

TEST(XWindowList, LooksForTheProgramInsideItsFrame)
{
    constexpr QRect kFrame(40, 30, 200, 150);
    const struct {
        int depth; // frames around the program's window
        bool isManaged;
        const char* owner;
    } cases[] = {{0, true, "Program"}, {1, true, "Program"}, {2, true, "Program"}, {1, false, "Frame"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.depth);
        ListedServer server;
        server.setClients({0x7000001}); // gone
        xcb_window_t window = server.open(c.depth ? QRect(0, 0, 100, 100) : kFrame, "Program");
        if (c.isManaged)
            server.setClients({0x7000001, window});
        for (int depth = 1; depth <= c.depth; ++depth) {
            const xcb_window_t frame =
                server.open(depth == c.depth ? kFrame : QRect(0, 0, 150, 100), "Frame");
            server.putInto(frame, window);
            window = frame;
        }
        const std::vector<WindowRecord> windows = server.read();
        ASSERT_EQ(windows.size(), 1);
        EXPECT_EQ(windows[0].owner, QString::fromUtf8(c.owner));
        EXPECT_EQ(windows[0].pixels, kFrame);
    }
}

TEST(XWindowList, TakesTheFramesBoundsAndTheLowerOpacity)
{
    const struct {
        quint32 frame, program;
        double expected;
    } cases[] = {{~0U, ~0U, 1}, {0, ~0U, 0}, {~0U, 0, 0}};
    ListedServer server;
    const xcb_window_t frame = server.client().openWindow({40, 30, 200, 150}, 0);
    const xcb_window_t hidden = server.open({0, 0, 190, 120}, "Tab below");
    const xcb_window_t program = server.open({0, 0, 190, 120}, "Tab");
    server.putInto(frame, hidden);
    server.putInto(frame, program);
    server.setClients({hidden, program});
    for (const auto& c : cases) {
        server.set(frame, numbers("_NET_WM_WINDOW_OPACITY", {c.frame}));
        server.set(program, numbers("_NET_WM_WINDOW_OPACITY", {c.program}));
        const std::vector<WindowRecord> windows = server.read();
        ASSERT_EQ(windows.size(), 1);
        EXPECT_EQ(windows[0].pixels, QRect(40, 30, 200, 150));
        EXPECT_EQ(windows[0].owner, QStringLiteral("Tab"));
        EXPECT_EQ(windows[0].alpha, c.expected);
    }
}

TEST(XWindowList, FollowsAWindowManagerUntilItsSuddenEnd)
{
    ListedServer server;
    server.set(server.client().openWindow({100, 100, 200, 100}, 0, true), ofClass("Managed"));
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DISPLAY"), server.display());
    const auto manager =
        startProcess(QStringLiteral("openbox"), {QStringLiteral("--sm-disable")}, environment);
    const auto hasFrame = [&server] {
        const std::vector<WindowRecord> windows = server.read(); // none for a moment
        return !windows.empty() && windows.back().pixels.height() > 100;
    };
    ASSERT_TRUE(waitFor(hasFrame));
    server.open({300, 300, 50, 50}, "Menu");
    EXPECT_EQ(server.owners(), QStringList({QStringLiteral("Menu"), QStringLiteral("Managed")}));
    manager->kill();
    manager->waitForFinished();
    EXPECT_TRUE(waitFor([&] { return !hasFrame(); }));
    QStringList owners = server.owners();
    owners.sort();
    EXPECT_EQ(owners, QStringList({QStringLiteral("Managed"), QStringLiteral("Menu")}));
}

TEST(XWindowList, LeavesOutWindowsThatGoWhileItReads)
{
    ListedServer server;
    server.open({0, 0, 50, 50}, "Lasting");
    std::atomic<bool> isOver = false;
    std::thread others([&isOver, display = server.display()] {
        const XClient client(display);
        const QByteArray name = ofClass("Passing").data;
        while (!isOver) {
            const xcb_window_t window = xcb_generate_id(client.connection());
            const uint32_t isUnmanaged = 1;
            xcb_create_window(client.connection(), XCB_COPY_FROM_PARENT, window, client.root(), 0, 0, 9, 9, 0,
                XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_OVERRIDE_REDIRECT, &isUnmanaged);
            xcb_change_property(client.connection(), XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_CLASS,
                XCB_ATOM_STRING, 8, name.size(), name.constData());
            xcb_map_window(client.connection(), window);
            client.sync();
            xcb_destroy_window(client.connection(), window);
        }
    });
    int passing = 0;
    for (int i = 0; i < 1000; ++i) {
        const QStringList owners = server.owners();
        EXPECT_EQ(owners.count(QStringLiteral("Lasting")), 1);
        EXPECT_EQ(owners.count(QString()), 0);
        passing += owners.size() > 1;
    }
    isOver = true;
    others.join();
    EXPECT_GT(passing, 0);
}

TEST(XWindowList, ListsThousands)
{
    constexpr int kWindows = 2000;
    ListedServer server;
    QByteArray clients;
    for (int i = 0; i < kWindows; ++i) {
        const quint32 window = server.client().openWindow({i % 800, i / 4, 10, 10}, 0);
        clients.append(reinterpret_cast<const char*>(&window), sizeof window);
    }
    const xcb_window_t last = server.open({0, 0, 10, 10}, "Last");
    server.putInto(server.client().openWindow({5, 5, 30, 30}, 0), last);
    clients.append(reinterpret_cast<const char*>(&last), sizeof last);
    server.set(server.client().root(), {"_NET_CLIENT_LIST_STACKING", "WINDOW", 32, clients});
    const std::vector<WindowRecord> windows = server.read();
    ASSERT_EQ(windows.size(), kWindows + 1);
    EXPECT_EQ(windows.front().owner, QStringLiteral("Last"));
    EXPECT_EQ(windows.back().pixels, QRect(0, 0, 10, 10));
}

TEST(XWindowList, IsEmptyWithoutAServer)
{
    ListedServer server;
    server.open({0, 0, 50, 50}, "Program");
    EXPECT_EQ(server.read().size(), 1);
    server.kill();
    EXPECT_TRUE(server.read().empty());
    EXPECT_TRUE(server.read().empty());
}
