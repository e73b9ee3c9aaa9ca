#include "platform/x11/NativeWindowServer.h"

#include "platform/x11/NativeDisplays.h"
#include "tests/platform/x11/XServer.h"

#include <QPainter>

#include <gtest/gtest.h>

namespace {

// A server of its own, and this program's connection to it.
struct OtherServer {
    explicit OtherServer(const char* screen, const char* options = "")
        : server(QString::fromUtf8(screen), QProcess::splitCommand(QString::fromUtf8(options)))
        , client(server.display())
        , x(std::make_shared<XConnection>(client.connection(), 0))
        , displays(x)
        , windowServer(x, displays)
    {
    }
    XServer server;
    OtherProgram client;
    std::shared_ptr<XConnection> x;
    NativeDisplays displays;
    NativeWindowServer windowServer;
};

struct ApplicationServer {
    std::shared_ptr<XConnection> x = XConnection::ofApplication();
    NativeDisplays displays{x};
    NativeWindowServer windowServer{x, displays};
    OtherProgram client{mainDisplay()};
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

void paint(const OtherProgram& client, xcb_window_t window, const QImage& image)
{
    const xcb_gcontext_t gc = xcb_generate_id(client.connection());
    xcb_create_gc(client.connection(), gc, window, 0, nullptr);
    xcb_put_image(client.connection(), XCB_IMAGE_FORMAT_Z_PIXMAP, window, gc, image.width(), image.height(),
        0, 0, 0, client.screen().root_depth, uint32_t(image.sizeInBytes()), image.constBits());
    xcb_free_gc(client.connection(), gc);
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

TEST(NativeWindowServer, SaysWhyItCannotFreezeAndOutlivesItsServer)
{
    OtherServer palette("320x200x8");
    QString reason;
    EXPECT_FALSE(palette.windowServer.freeze(palette.displays.all().at(0), &reason));
    EXPECT_TRUE(reason.contains(QStringLiteral("depth 8"))) << qPrintable(reason);
    OtherServer other("320x200x24");
    DisplayRecord display = other.displays.all().at(0);
    const auto frame = other.windowServer.freeze(display, nullptr);
    ASSERT_TRUE(frame);
    const auto isRefused = [&] {
        reason.clear();
        return !other.windowServer.freeze(display, &reason) && !reason.isEmpty();
    };
    display.pixels.translate(320, 0);
    EXPECT_TRUE(isRefused());
    display.pixels.translate(-320, 0);
    other.server.kill();
    EXPECT_TRUE(isRefused());
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
        EXPECT_EQ(frame->display(), display);
        QImage expected = frame->image().copy();
        QPainter(&expected).fillRect(expected.rect(), QColor(0, 0, 0, qRound(dim * 255)));
        Overlay overlay(display.pixels);
        ASSERT_TRUE(desktop.windowServer.present(*frame, overlay, {dim, {}}));
        letPass(50);
        EXPECT_EQ(desktop.client.pixels(display.pixels), expected);
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
