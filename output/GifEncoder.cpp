#include "output/GifEncoder.h"

#include "output/ColourPalette.h"

#include <QImage>

#include <memory>
#include <vector>

#include <gif_lib.h>

namespace {

constexpr int kLongestSide = 65535;

int appendTo(GifFileType* gif, const GifByteType* bytes, int count)
{
    return static_cast<PageBuffer*>(gif->UserData)->append(bytes, size_t(count)) ? count : 0;
}

struct Close {
    void operator()(GifFileType* gif) const { EGifCloseFile(gif, nullptr); }
};
struct FreeColours {
    void operator()(ColorMapObject* map) const { GifFreeMapObject(map); }
};
using Gif = std::unique_ptr<GifFileType, Close>;
using Colours = std::unique_ptr<ColorMapObject, FreeColours>;

// The format counts colours in powers of two; those beyond the palette stay black and unused.
Colours colourMap(const ColourPalette& palette)
{
    const auto& colours = palette.colours();
    Colours map(GifMakeMapObject(1 << GifBitSize(std::max(2, int(colours.size()))), nullptr));
    if (!map)
        return map;
    for (size_t i = 0; i < colours.size(); ++i)
        map->Colors[i] = {
            GifByteType(qRed(colours[i])), GifByteType(qGreen(colours[i])), GifByteType(qBlue(colours[i]))};
    return map;
}

bool writeRows(GifFileType* gif, const QImage& image, const ColourPalette& palette)
{
    std::vector<GifPixelType> row(size_t(image.width()));
    for (int y = 0; y < image.height(); ++y) {
        palette.mapRow(reinterpret_cast<const QRgb*>(image.constScanLine(y)), row.data(), row.size());
        if (EGifPutLine(gif, row.data(), image.width()) != GIF_OK)
            return false;
    }
    return true;
}

bool write(const QImage& image, PageBuffer& pages)
{
    const ColourPalette palette(image);
    const Colours colours = colourMap(palette);
    Gif gif(EGifOpen(&pages, appendTo, nullptr));
    if (!colours || !gif)
        return false;
    const int w = image.width(), h = image.height();
    if (EGifPutScreenDesc(gif.get(), w, h, 8, 0, colours.get()) != GIF_OK ||
        EGifPutImageDesc(gif.get(), 0, 0, w, h, false, nullptr) != GIF_OK ||
        !writeRows(gif.get(), image, palette))
        return false;
    return EGifCloseFile(gif.release(), nullptr) == GIF_OK;
}

} // namespace

PageBuffer GifEncoder::encode(const QImage& image)
{
    if (std::max(image.width(), image.height()) > kLongestSide)
        return {};
    constexpr size_t kTables = 65536; // beyond what the header and the palette need
    PageBuffer pages(size_t(image.width()) * size_t(image.height()) * 2 + kTables);
    if (pages.isNull() || !write(image, pages))
        return {};
    return pages;
}
