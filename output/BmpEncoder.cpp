#include "output/BmpEncoder.h"

#include <QImage>
#include <QtEndian>

#include <array>
#include <cstring>
#include <limits>

namespace {

constexpr size_t kHeaderBytes = 54;

void put16(uint8_t* at, quint16 number)
{
    qToLittleEndian(number, at);
}

void put32(uint8_t* at, size_t number)
{
    qToLittleEndian(quint32(number), at);
}

// The file header and the 40-byte description; what stays zero says uncompressed, no palette, no resolution.
std::array<uint8_t, kHeaderBytes> header(const QImage& image, size_t pixelBytes)
{
    std::array<uint8_t, kHeaderBytes> bytes{'B', 'M'};
    put32(&bytes[2], kHeaderBytes + pixelBytes);
    put32(&bytes[10], kHeaderBytes);
    put32(&bytes[14], 40);
    put32(&bytes[18], size_t(image.width()));
    put32(&bytes[22], size_t(image.height())); // positive: the lowest row comes first
    put16(&bytes[26], 1);
    put16(&bytes[28], 24);
    put32(&bytes[34], pixelBytes);
    return bytes;
}

void putRow(uint8_t* bgr, const QRgb* row, int width)
{
    for (int x = 0; x < width; ++x, bgr += 3) {
        bgr[0] = uint8_t(qBlue(row[x]));
        bgr[1] = uint8_t(qGreen(row[x]));
        bgr[2] = uint8_t(qRed(row[x]));
    }
}

} // namespace

PageBuffer BmpEncoder::encode(const QImage& image)
{
    const size_t rowBytes = (size_t(image.width()) * 3 + 3) / 4 * 4;
    const size_t pixelBytes = rowBytes * size_t(image.height());
    if (pixelBytes > std::numeric_limits<quint32>::max() - kHeaderBytes)
        return {};
    PageBuffer bmp(kHeaderBytes + pixelBytes);
    if (bmp.isNull())
        return {};
    bmp.append(header(image, pixelBytes).data(), kHeaderBytes);
    uint8_t* to = bmp.data() + kHeaderBytes;
    for (int y = image.height() - 1; y >= 0; --y, to += rowBytes)
        putRow(to, reinterpret_cast<const QRgb*>(image.constScanLine(y)), image.width());
    bmp.setSize(kHeaderBytes + pixelBytes);
    return bmp;
}
