#include "capture/MagnifierLens.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int kGridShare = 44; // of 256: how far the grid's colour is from the pixel's

// A pixel's part of the grid: darker where the pixel is light, lighter where it is dark.
QRgb gridColour(QRgb pixel)
{
    const int target = qGray(pixel) >= 128 ? 0 : 255;
    const auto mixed = [target](int value) { return value + (target - value) * kGridShare / 256; };
    return qRgb(mixed(qRed(pixel)), mixed(qGreen(pixel)), mixed(qBlue(pixel)));
}

// How much of a row lies before the circle that fills a square.
int inset(int row, int diameter)
{
    const double radius = diameter / 2.0;
    const double dy = row + 0.5 - radius;
    return int(std::ceil(radius - std::sqrt(radius * radius - dy * dy)));
}

}

void MagnifierLens::setContent(const QImage& sample)
{
    if (sample.isNull()) {
        m_picture = {};
        return;
    }
    resize(diameter(sample.width()));
    const int cells = sample.width() - 1;
    for (int cell = 0; cell < cells; ++cell) {
        fillLines(reinterpret_cast<const QRgb*>(sample.constScanLine(cell + 1)) + 1, cells);
        for (int row = 0; row < kCell; ++row)
            copyRow(row < kCell - 1 ? m_cellLine : m_gridLine, cell * kCell + row);
    }
}

QRect MagnifierLens::middleCell(int sampleSide)
{
    const int first = (sampleSide / 2 - 1) * kCell;
    return {first, first, kCell - 1, kCell - 1};
}

void MagnifierLens::resize(int side)
{
    if (m_picture.width() == side)
        return;
    m_picture = QImage(side, side, QImage::Format_ARGB32_Premultiplied);
    m_picture.fill(Qt::transparent);
    m_cellLine.resize(side);
    m_gridLine.resize(side);
    m_insets.resize(side);
    for (int row = 0; row < side; ++row)
        m_insets[row] = inset(row, side);
}

void MagnifierLens::fillLines(const QRgb* pixels, int count)
{
    for (int i = 0; i < count; ++i) {
        const QRgb opaque = pixels[i] | 0xff000000;
        const QRgb grid = gridColour(opaque);
        QRgb* cell = &m_cellLine[i * kCell];
        std::fill_n(cell, kCell - 1, opaque);
        cell[kCell - 1] = grid;
        std::fill_n(&m_gridLine[i * kCell], kCell, grid);
    }
}

void MagnifierLens::copyRow(const std::vector<QRgb>& line, int row)
{
    const int from = m_insets[row];
    auto* to = reinterpret_cast<QRgb*>(m_picture.scanLine(row));
    std::copy(line.begin() + from, line.end() - from, to + from);
}
