#include "bench/desktop/BenchDesktop.h"

#include "bench/desktop/Stopwatch.h"
#include "bench/png/ScreenPictures.h"

BenchDesktop::BenchDesktop(QSize size)
    : m_desktop({size})
{
    if (!m_desktop.isReady())
        return;
    paintRoot(ScreenPictures::flatDesktop(size));
    rememberScreen();
}

void BenchDesktop::rememberScreen()
{
    m_desktop.settledScreen();
    m_screen.emplace(m_desktop.server());
}

QString BenchDesktop::saveFolder() const
{
    return m_desktop.picturesFolder() + QStringLiteral("/Lumora Mac Screenshot");
}

double BenchDesktop::openOverlay(Key hotKey)
{
    if (!m_screen->isPlain())
        return std::numeric_limits<double>::infinity();
    input().moveTo({size().width() * 2 / 5, size().height() / 5});
    return millisecondsFromKey(hotKey, [this] { return m_screen->isDimmed(); });
}

void BenchDesktop::closeOverlay()
{
    input().chord({Key::Escape});
    millisecondsUntil({}, [this] { return m_screen->isPlain(); });
    restAfterCapture();
}

double BenchDesktop::saveScreen(Key hotKey, FileArrival& files)
{
    const double milliseconds = millisecondsFromKey(hotKey, [&] { return files.hasArrived(); });
    restAfterCapture();
    return milliseconds;
}

void BenchDesktop::restAfterCapture()
{
    std::this_thread::sleep_for(std::chrono::milliseconds(600));
}

template <class Condition>
double BenchDesktop::millisecondsFromKey(Key hotKey, Condition holds)
{
    input().press(Key::Super);
    const Stopwatch watch;
    input().press(hotKey);
    const double milliseconds = millisecondsUntil(watch, holds);
    input().release(hotKey);
    input().release(Key::Super);
    return milliseconds;
}

void BenchDesktop::paintRoot(const QImage& picture) const
{
    constexpr int kRows = 256; // of a 4K screen they fit into one request
    const XClient& server = m_desktop.server();
    xcb_connection_t* c = server.connection();
    const xcb_pixmap_t pixmap = xcb_generate_id(c);
    const xcb_gcontext_t context = xcb_generate_id(c);
    xcb_create_pixmap(c, 24, pixmap, server.root(), picture.width(), picture.height());
    xcb_create_gc(c, context, pixmap, 0, nullptr);
    for (int y = 0; y < picture.height(); y += kRows) {
        const int rows = std::min(kRows, picture.height() - y);
        xcb_put_image(c, XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap, context, picture.width(), rows, 0, y, 0, 24,
            rows * picture.bytesPerLine(), picture.constScanLine(y));
    }
    xcb_change_window_attributes(c, server.root(), XCB_CW_BACK_PIXMAP, &pixmap);
    xcb_clear_area(c, false, server.root(), 0, 0, 0, 0);
    xcb_free_gc(c, context);
    xcb_free_pixmap(c, pixmap);
    server.sync();
}
