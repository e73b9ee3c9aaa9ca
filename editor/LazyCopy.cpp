#include "editor/LazyCopy.h"

#include <cstring>

LazyCopy::LazyCopy(const QImage& source)
    : m_source(source)
    , m_copy(source.size(), QImage::Format_RGB32) // memory that is not touched costs nothing
    , m_columns((source.width() + kTile - 1) / kTile)
{
    m_isCopied.resize(size_t(m_columns) * size_t((source.height() + kTile - 1) / kTile));
}

QImage& LazyCopy::with(const QRect& pixels)
{
    for (int row = pixels.top() / kTile; row <= pixels.bottom() / kTile; ++row) {
        for (int column = pixels.left() / kTile; column <= pixels.right() / kTile; ++column) {
            const auto tile = size_t(row * m_columns + column);
            if (m_isCopied[tile])
                continue;
            copyPixels(m_copy, m_source, QRect(column * kTile, row * kTile, kTile, kTile) & m_copy.rect());
            m_isCopied[tile] = true;
        }
    }
    return m_copy;
}

void LazyCopy::copyPixels(QImage& to, const QImage& from, const QRect& pixels)
{
    const auto offset = size_t(pixels.left()) * sizeof(QRgb);
    for (int y = pixels.top(); y <= pixels.bottom(); ++y)
        std::memcpy(
            to.scanLine(y) + offset, from.constScanLine(y) + offset, size_t(pixels.width()) * sizeof(QRgb));
}
