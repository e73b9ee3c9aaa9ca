#include "platform/x11/NativeWindowServer.h"

#include "platform/x11/NativeDisplays.h"
#include "tests/platform/x11/XServer.h"

#include <QPainter>

#include <gtest/gtest.h>

#include <cstring>

namespace {

// What any program reads of the screen, through the socket.
QImage screenshot(const XClient& client, QRect r)
{
    const auto cookie = xcb_get_image(client.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, client.screen().root, r.x(),
        r.y(), r.width(), r.height(), 0xffffffff);
    XReply<xcb_get_image_reply_t> reply(xcb_get_image_reply(client.get(), cookie, nullptr));
    QImage image(r.size(), QImage::Format_RGB32);
    std::memcpy(image.bits(), xcb_get_image_data(reply.get()), size_t(image.sizeInBytes()));
    return image;
}

// A server of its own, and this program's connection to it.
struct OtherServer {
    explicit OtherServer(const char* screen, const char* options = "")
        : server(QString::fromUtf8(screen), QProcess::splitCommand(QString::fromUtf8(options)))
        , client(server.display())
        , x(std::make_shared<XConnection>(client.get(), 0))
        , displays(x)
        , windowServer(x, displays)
    {
    }
    XServer server;
    XClient client;
    std::shared_ptr<XConnection> x;
    NativeDisplays displays;
    NativeWindowServer windowServer;
};

struct ApplicationServer {
    std::shared_ptr<XConnection> x = XConnection::ofApplication();
    NativeDisplays displays{x};
    NativeWindowServer windowServer{x, displays};
    XClient client{mainDisplay()};
};

// All greys beside each other in the upper half, colours below; no two rows of a column repeat nearby.
QImage allLevels(QSize size = {256, 64})
{
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const int level = (x + y) & 0xff;
            image.setPixel(
                x, y, y < image.height() / 2 ? qRgb(level, level, level) : qRgb(level, x & 0xff, y & 0xff));
        }
    }
    return image;
}

void paint(const XClient& client, xcb_window_t window, const QImage& image)
{
    const xcb_gcontext_t gc = xcb_generate_id(client.get());
    xcb_create_gc(client.get(), gc, window, 0, nullptr);
    xcb_put_image(client.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, window, gc, image.width(), image.height(), 0, 0, 0,
        client.screen().root_depth, uint32_t(image.sizeInBytes()), image.constBits());
    xcb_free_gc(client.get(), gc);
    client.sync();
}

class Overlay : public QWindow {
public:
    explicit Overlay(QRect r)
    {
        setFlags(Qt::FramelessWindowHint | Qt::BypassWindowManagerHint);
        setGeometry(r);
        show();
    }
};

}

TEST(NativeWindowServer, FreezesTheScreensOwnPixels)
{
    ApplicationServer desktop;
    const QImage picture = allLevels({1500, 1100}); // larger than all strips together
    const xcb_window_t window = desktop.client.openWindow({{37, 21}, picture.size()}, 0);
    paint(desktop.client, window, picture);
    const DisplayRecord display = desktop.displays.all().at(0);
    QString reason;
    const auto frame = desktop.windowServer.freeze(display, &reason);
    ASSERT_TRUE(frame) << qPrintable(reason);
    EXPECT_EQ(frame->display(), display);
    EXPECT_EQ(frame->image().format(), QImage::Format_RGB32);
    EXPECT_EQ(frame->image(), screenshot(desktop.client, display.pixels));
    EXPECT_EQ(frame->crop({{37, 21}, picture.size()}), picture);
}

TEST(NativeWindowServer, FreezesEveryKindOfServer)
{
    struct Case {
        const char* screen;
        const char* options;
        uint32_t pixel; // in the server's own form
        QRgb expected;
    };
    const Case cases[] = {
        {"320x200x24", "", 0x336699, qRgb(0x33, 0x66, 0x99)},
        {"320x200x24", "-extension MIT-SHM", 0x336699, qRgb(0x33, 0x66, 0x99)},
        {"320x200x24", "-extension RANDR", 0x336699, qRgb(0x33, 0x66, 0x99)},
        {"321x200x16", "", 0xf81f, qRgb(255, 0, 255)},
        {"321x200x16", "-extension MIT-SHM", 0x8410, qRgb(132, 130, 132)},
        {"320x200x30", "", 0x3ff00000, qRgb(255, 0, 0)},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.screen << " " << c.options);
        OtherServer other(c.screen, c.options);
        ASSERT_EQ(other.displays.all().size(), 1u);
        const DisplayRecord display = other.displays.all().at(0);
        other.client.openWindow({1, 2, 100, 50}, c.pixel);
        QString reason;
        const auto frame = other.windowServer.freeze(display, &reason);
        ASSERT_TRUE(frame) << qPrintable(reason);
        EXPECT_EQ(frame->image().size(), display.pixels.size());
        EXPECT_EQ(frame->image().pixel(1, 2), c.expected);
        EXPECT_EQ(frame->image().pixel(100, 51), c.expected);
        EXPECT_EQ(frame->image().pixel(0, 2), qRgb(0, 0, 0));
    }
}

TEST(NativeWindowServer, SaysWhyItCannotFreeze)
{
    OtherServer other("320x200x24");
    DisplayRecord gone = other.displays.all().at(0);
    gone.pixels.translate(320, 0);
    QString reason;
    EXPECT_FALSE(other.windowServer.freeze(gone, &reason));
    EXPECT_FALSE(reason.isEmpty());
    OtherServer palette("320x200x8");
    EXPECT_FALSE(palette.windowServer.freeze(palette.displays.all().at(0), &reason));
    EXPECT_TRUE(reason.contains(QStringLiteral("depth 8"))) << qPrintable(reason);
}

TEST(NativeWindowServer, OutlivesItsServer)
{
    OtherServer other("320x200x24");
    const DisplayRecord display = other.displays.all().at(0);
    const auto frame = other.windowServer.freeze(display, nullptr);
    ASSERT_TRUE(frame);
    other.server.kill();
    QString reason;
    EXPECT_FALSE(other.windowServer.freeze(display, &reason));
    EXPECT_FALSE(reason.isEmpty());
    EXPECT_FALSE(other.displays.pointer());
    EXPECT_EQ(frame->image().pixel(0, 0), qRgb(0, 0, 0)); // what is frozen stays
}

TEST(NativeWindowServer, PresentsTheFrameDimmedAsAPainterDims)
{
    ApplicationServer desktop;
    const DisplayRecord display = desktop.displays.all().at(0);
    const QImage picture = allLevels(display.pixels.size());
    const xcb_window_t below = desktop.client.openWindow(display.pixels, 0);
    for (double dim : {0.0, 0.25, 0.5, 1.0}) {
        SCOPED_TRACE(dim);
        letPass(20); // until the last overlay has uncovered the window
        paint(desktop.client, below, picture);
        const auto frame = desktop.windowServer.freeze(display, nullptr);
        ASSERT_TRUE(frame);
        ASSERT_EQ(frame->image(), picture);
        QImage expected = frame->image().copy();
        QPainter(&expected).fillRect(expected.rect(), QColor(0, 0, 0, qRound(dim * 255)));
        Overlay overlay(display.pixels);
        ASSERT_TRUE(desktop.windowServer.present(*frame, overlay, {dim, {}}));
        letPass(50);
        EXPECT_EQ(screenshot(desktop.client, display.pixels), expected);
        EXPECT_EQ(frame->image(), picture); // the frame itself stays bright
    }
}

TEST(NativeWindowServer, LeavesOtherWindowsToPaintThemselves)
{
    ApplicationServer desktop;
    const DisplayRecord display = desktop.displays.all().at(0);
    const auto frame = desktop.windowServer.freeze(display, nullptr);
    QWindow translucent;
    QSurfaceFormat format;
    format.setAlphaBufferSize(8);
    translucent.setFormat(format);
    translucent.show();
    EXPECT_FALSE(desktop.windowServer.present(*frame, translucent, {0.5, {}}));
    Overlay overlay(display.pixels);
    OtherServer unshared("320x200x24", "-extension MIT-SHM");
    EXPECT_FALSE(unshared.windowServer.present(*frame, overlay, {0.5, {}}));
}
