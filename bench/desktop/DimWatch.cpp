#include "bench/desktop/DimWatch.h"

#include <cstdlib>

namespace {

constexpr int kColumns = 4;
constexpr int kRows = 4;
constexpr int kBright = 60; // dimming tells such a pixel from itself

bool isHalved(int seen, int plain)
{
    return std::abs(seen - plain * 127 / 255) <= 1;
}

// All requests go out before the first answer is read.
std::vector<QRgb> pixelsAt(const XClient& server, const std::vector<QPoint>& points)
{
    std::vector<xcb_get_image_cookie_t> cookies;
    for (const QPoint p : points)
        cookies.push_back(xcb_get_image(
            server.connection(), XCB_IMAGE_FORMAT_Z_PIXMAP, server.root(), p.x(), p.y(), 1, 1, ~0U));
    std::vector<QRgb> pixels;
    for (const auto cookie : cookies) {
        auto* reply = xcb_get_image_reply(server.connection(), cookie, nullptr);
        pixels.push_back(reply ? *reinterpret_cast<const QRgb*>(xcb_get_image_data(reply)) : 0);
        std::free(reply);
    }
    return pixels;
}

// The nearest bright pixel in the row, from a point towards the middle.
QPoint brightNear(const QImage& screen, QPoint point)
{
    const int step = point.x() < screen.width() / 2 ? 1 : -1;
    while (qGray(screen.pixel(point)) < kBright && point.x() != screen.width() / 2)
        point.rx() += step;
    return point;
}

}

DimWatch::DimWatch(const XClient& server)
    : m_server(server)
{
    const QSize size = server.size();
    const QImage screen = server.pixels(QRect({}, size));
    for (int row = 0; row < kRows; ++row)
        for (int column = 0; column < kColumns; ++column)
            m_points.push_back(brightNear(screen,
                {(size.width() - 1) * column / (kColumns - 1), (size.height() - 1) * row / (kRows - 1)}));
    m_plain = pixelsAt(server, m_points);
}

bool DimWatch::isDimmed() const
{
    return allPixels([](QRgb seen, QRgb plain) {
        return isHalved(qRed(seen), qRed(plain)) && isHalved(qGreen(seen), qGreen(plain)) &&
               isHalved(qBlue(seen), qBlue(plain));
    });
}

bool DimWatch::isPlain() const
{
    return allPixels([](QRgb seen, QRgb plain) { return (seen & RGB_MASK) == (plain & RGB_MASK); });
}

template <class Same>
bool DimWatch::allPixels(Same same) const
{
    const std::vector<QRgb> seen = pixelsAt(m_server, m_points);
    return std::equal(seen.begin(), seen.end(), m_plain.begin(), same);
}
