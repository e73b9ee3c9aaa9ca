#include "platform/x11/PixelLayout.h"

#include <QtEndian>

#include <bit>
#include <cstring>

namespace {

// Turns one channel of a pixel into a byte.
class Channel {
public:
    explicit Channel(uint32_t mask)
        : m_mask(mask)
        , m_shift(std::countr_zero(mask))
        , m_max(mask >> m_shift)
    {
    }
    uint32_t byteOf(uint32_t pixel) const
    {
        const uint64_t value = (pixel & m_mask) >> m_shift;
        return uint32_t((value * 255 + m_max / 2) / m_max);
    }

private:
    uint32_t m_mask;
    int m_shift;
    uint32_t m_max;
};

template <typename Pixel>
void convertRow(const uchar* from, QRgb* to, int width, const PixelLayout& layout)
{
    const Channel red(layout.red), green(layout.green), blue(layout.blue);
    for (int x = 0; x < width; ++x, from += sizeof(Pixel)) {
        const uint32_t pixel =
            layout.isLittleEndian ? qFromLittleEndian<Pixel>(from) : qFromBigEndian<Pixel>(from);
        to[x] = 0xff000000u | red.byteOf(pixel) << 16 | green.byteOf(pixel) << 8 | blue.byteOf(pixel);
    }
}

const xcb_visualtype_t* rootVisual(const xcb_screen_t& screen)
{
    for (auto depth = xcb_screen_allowed_depths_iterator(&screen); depth.rem; xcb_depth_next(&depth)) {
        for (auto visual = xcb_depth_visuals_iterator(depth.data); visual.rem; xcb_visualtype_next(&visual)) {
            if (visual.data->visual_id == screen.root_visual)
                return visual.data;
        }
    }
    return nullptr;
}

}

PixelLayout PixelLayout::ofRoot(const XConnection& connection)
{
    PixelLayout layout;
    const xcb_screen_t* screen = connection.screen();
    if (!screen)
        return layout;
    const xcb_setup_t* setup = xcb_get_setup(connection.get());
    layout.depth = screen->root_depth;
    layout.isLittleEndian = setup->image_byte_order == XCB_IMAGE_ORDER_LSB_FIRST;
    for (auto format = xcb_setup_pixmap_formats_iterator(setup); format.rem; xcb_format_next(&format)) {
        if (format.data->depth == layout.depth) {
            layout.bitsPerPixel = format.data->bits_per_pixel;
            layout.rowPadding = format.data->scanline_pad;
        }
    }
    const xcb_visualtype_t* visual = rootVisual(*screen);
    if (visual && visual->_class == XCB_VISUAL_CLASS_TRUE_COLOR) {
        layout.red = visual->red_mask;
        layout.green = visual->green_mask;
        layout.blue = visual->blue_mask;
    }
    return layout;
}

bool PixelLayout::isRgb32() const
{
    const bool isHostOrder = isLittleEndian == (std::endian::native == std::endian::little);
    return bitsPerPixel == 32 && isHostOrder && red == 0xff0000 && green == 0xff00 && blue == 0xff;
}

bool PixelLayout::isReadable() const
{
    return (bitsPerPixel == 16 || bitsPerPixel == 32) && red && green && blue;
}

qsizetype PixelLayout::bytesPerLine(int width) const
{
    const qsizetype bits = qsizetype(width) * bitsPerPixel;
    return (bits + rowPadding - 1) / rowPadding * rowPadding / 8;
}

void PixelLayout::convert(const uchar* rows, int count, QImage& image, int firstRow) const
{
    const int width = image.width();
    for (int i = 0; i < count; ++i, rows += bytesPerLine(width)) {
        auto* to = reinterpret_cast<QRgb*>(image.scanLine(firstRow + i));
        if (isRgb32())
            std::memcpy(to, rows, size_t(width) * sizeof(QRgb));
        else if (bitsPerPixel == 16)
            convertRow<quint16>(rows, to, width, *this);
        else
            convertRow<quint32>(rows, to, width, *this);
    }
}
