#include "output/TiffEncoder.h"

#include "output/PngRowFilters.h"

#include <QImage>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <vector>

#include <tiffio.h>

namespace {

constexpr int kRowsPerStrip = 64;

// The file in memory that the library writes and seeks in.
struct MemoryFile {
    PageBuffer pages;
    size_t position = 0;
};

MemoryFile& fileOf(thandle_t handle)
{
    return *static_cast<MemoryFile*>(handle);
}

tmsize_t readNothing(thandle_t, void*, tmsize_t)
{
    return 0;
}

tmsize_t writeAtPosition(thandle_t handle, void* bytes, tmsize_t count)
{
    MemoryFile& file = fileOf(handle);
    const size_t end = file.pages.size();
    file.pages.setSize(file.position);
    const bool written = file.pages.append(bytes, size_t(count));
    file.position = file.pages.size();
    file.pages.setSize(std::max(end, file.position));
    return written ? count : -1;
}

toff_t seek(thandle_t handle, toff_t offset, int from)
{
    MemoryFile& file = fileOf(handle);
    const size_t base = from == SEEK_SET ? 0 : from == SEEK_CUR ? file.position : file.pages.size();
    file.position = base + size_t(offset);
    return file.position;
}

int closeNothing(thandle_t)
{
    return 0;
}

toff_t sizeOf(thandle_t handle)
{
    return fileOf(handle).pages.size();
}

int keepQuiet(TIFF*, void*, const char*, const char*, va_list)
{
    return 1;
}

using Tiff = std::unique_ptr<TIFF, decltype(&TIFFClose)>;
using Options = std::unique_ptr<TIFFOpenOptions, decltype(&TIFFOpenOptionsFree)>;

Tiff openIn(MemoryFile& file)
{
    const Options options(TIFFOpenOptionsAlloc(), TIFFOpenOptionsFree);
    if (!options)
        return {nullptr, TIFFClose};
    TIFFOpenOptionsSetErrorHandlerExtR(options.get(), keepQuiet, nullptr);
    TIFFOpenOptionsSetWarningHandlerExtR(options.get(), keepQuiet, nullptr);
    return {TIFFClientOpenExt("picture", "w", &file, readNothing, writeAtPosition, seek, closeNothing, sizeOf,
                nullptr, nullptr, options.get()),
        TIFFClose};
}

bool setTags(TIFF* tiff, const QImage& image)
{
    return TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, uint32_t(image.width())) &&
           TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, uint32_t(image.height())) &&
           TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, 8) && TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, 3) &&
           TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_RGB) &&
           TIFFSetField(tiff, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG) &&
           TIFFSetField(tiff, TIFFTAG_ORIENTATION, ORIENTATION_TOPLEFT) &&
           TIFFSetField(tiff, TIFFTAG_COMPRESSION, COMPRESSION_LZW) &&
           TIFFSetField(tiff, TIFFTAG_PREDICTOR, PREDICTOR_HORIZONTAL) &&
           TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, kRowsPerStrip);
}

bool writeRows(TIFF* tiff, const QImage& image)
{
    std::vector<uint8_t> rgb(size_t(image.width()) * 3);
    for (int y = 0; y < image.height(); ++y) {
        PngRowFilters::best().pack(image.constScanLine(y), rgb.data(), size_t(image.width()));
        if (TIFFWriteScanline(tiff, rgb.data(), uint32_t(y), 0) < 0)
            return false;
    }
    return true;
}

bool writeInto(MemoryFile& file, const QImage& image)
{
    const Tiff tiff = openIn(file);
    return tiff && setTags(tiff.get(), image) && writeRows(tiff.get(), image) &&
           TIFFWriteDirectory(tiff.get());
}

} // namespace

PageBuffer TiffEncoder::encode(const QImage& image)
{
    constexpr size_t kTags = 65536; // beyond what the tags and the strip table need
    const size_t pixels = size_t(image.width()) * size_t(image.height());
    MemoryFile file{PageBuffer(pixels * 6 + size_t(image.height()) * 16 + kTags)};
    if (file.pages.isNull() || !writeInto(file, image))
        return {};
    return std::move(file.pages);
}
