#include "output/PngEncoder.h"

#include <QImage>
#include <QtEndian>

#include <libdeflate.h>

#include <algorithm>
#include <cstring>
#include <future>
#include <memory>
#include <system_error>
#include <vector>

static_assert(
    Q_BYTE_ORDER == Q_LITTLE_ENDIAN, "The row filters take a pixel's bytes in the order blue, green, red");

namespace {

constexpr uint8_t kSignature[] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1a, '\n'};
constexpr size_t kChunkHead = 8;   // length and type
constexpr size_t kChunkFrame = 12; // these and the check sum
constexpr size_t kHeaderBytes = 13;
// The least rows that are worth a thread of their own.
constexpr int kRowsForTwo = 128;

using Compressor = std::unique_ptr<libdeflate_compressor, decltype(&libdeflate_free_compressor)>;

void putNumber(uint8_t* at, size_t number)
{
    qToBigEndian(quint32(number), at);
}

// Turns the `size` bytes that stand behind the chunk's head into a chunk; returns its end.
uint8_t* closeChunk(uint8_t* chunk, const char* type, size_t size)
{
    putNumber(chunk, size);
    std::memcpy(chunk + 4, type, 4);
    uint8_t* end = chunk + kChunkHead + size;
    putNumber(end, libdeflate_crc32(0, chunk + 4, size + 4));
    return end + 4;
}

uint8_t* putHeader(uint8_t* at, const QImage& image)
{
    std::memcpy(at, kSignature, sizeof kSignature);
    uint8_t* chunk = at + sizeof kSignature;
    const uint8_t depthAndColour[] = {
        8, 2, 0, 0, 0}; // eight bits, RGB, deflate, five filters, not interlaced
    putNumber(chunk + kChunkHead, size_t(image.width()));
    putNumber(chunk + kChunkHead + 4, size_t(image.height()));
    std::memcpy(chunk + kChunkHead + 8, depthAndColour, sizeof depthAndColour);
    return closeChunk(chunk, "IHDR", kHeaderBytes);
}

// The rows of a picture on their way into PNG's filtered form.
class RowFilter {
public:
    RowFilter(const QImage& image, const PngRowFilters& filters, uint8_t* filtered)
        : m_image(image)
        , m_filters(filters)
        , m_filtered(filtered)
        , m_rowBytes(size_t(image.width()) * 3)
    {
    }

    // The rows from `first` up to `end`; returns how many of their bytes are not zero.
    uint64_t run(int first, int end) const
    {
        std::vector<uint8_t> rows(2 * (kLead + m_rowBytes));
        uint8_t* current = rows.data() + kLead;
        uint8_t* above = current + m_rowBytes + kLead;
        if (first > 0)
            pack(first - 1, above);
        uint64_t busy = 0;
        for (int y = first; y < end; ++y) {
            pack(y, current);
            busy += filterRow({current, above, m_rowBytes}, m_filtered + size_t(y) * (m_rowBytes + 1));
            std::swap(current, above);
        }
        return busy;
    }

private:
    static constexpr size_t kLead = 3; // the pixel of zeros before each row

    void pack(int y, uint8_t* rgb) const
    {
        m_filters.pack(m_image.constScanLine(y), rgb, size_t(m_image.width()));
    }

    uint64_t filterRow(const PngRow& row, uint8_t* to) const
    {
        uint64_t sums[kPngFilters];
        m_filters.residuals(row, sums);
        const auto least = std::min_element(sums, sums + kPngFilters) - sums;
        *to = uint8_t(least);
        return m_filters.apply(row, PngFilter(least), to + 1);
    }

    const QImage& m_image;
    const PngRowFilters& m_filters;
    uint8_t* m_filtered;
    size_t m_rowBytes;
};

uint64_t filterOnTwoThreads(const RowFilter& filter, int rows)
{
    std::future<uint64_t> lower = std::async(std::launch::async, [&] { return filter.run(rows / 2, rows); });
    const uint64_t upper = filter.run(0, rows / 2);
    return upper + lower.get();
}

uint64_t filterRows(const RowFilter& filter, int rows)
{
    if (rows < kRowsForTwo)
        return filter.run(0, rows);
    try {
        return filterOnTwoThreads(filter, rows);
    } catch (const std::system_error&) { // no thread to be had
        return filter.run(0, rows);
    }
}

// The compressor's level by the part of the filtered bytes that are not zero: a twentieth on windows and
// text, a half under a noisy wallpaper, where each level costs far more time than it saves bytes.
int levelFor(PngEffort effort, double busy)
{
    const bool noisy = busy > 0.2;
    if (effort == PngEffort::Quick)
        return noisy ? 1 : 2; // level 2 is the faster one where nearly everything repeats
    return noisy ? 4 : 5;
}

} // namespace

PageBuffer PngEncoder::encode(const QImage& image, PngEffort effort, const PngRowFilters& filters)
{
    const size_t size = (size_t(image.width()) * 3 + 1) * size_t(image.height());
    PageBuffer filtered(size);
    if (filtered.isNull())
        return {};
    const uint64_t busy = filterRows(RowFilter(image, filters, filtered.data()), image.height());

    const int level = levelFor(effort, double(busy) / double(size));
    const Compressor compressor(libdeflate_alloc_compressor(level), libdeflate_free_compressor);
    if (!compressor)
        return {};
    const size_t bound = libdeflate_zlib_compress_bound(compressor.get(), size);
    PageBuffer png(sizeof kSignature + 3 * kChunkFrame + kHeaderBytes + bound);
    if (png.isNull())
        return {};
    uint8_t* data = putHeader(png.data(), image);
    const size_t packed =
        libdeflate_zlib_compress(compressor.get(), filtered.data(), size, data + kChunkHead, bound);
    uint8_t* end = closeChunk(closeChunk(data, "IDAT", packed), "IEND", 0);
    png.setSize(size_t(end - png.data()));
    return png;
}
