#pragma once

#include <QImage>

#include <vector>

// Enlarges a sample of pixels without smoothing into a round picture with a grid between the pixels. The
// sample's middle pixel, in column and row side / 2, is the middle of the circle: the first column and row of
// the sample stay outside of it.
class MagnifierLens {
public:
    // Device pixels of the lens that one sampled pixel takes, the last of them its part of the grid.
    static constexpr int kCell = 5;

    // The diameter of the lens for a sample, in device pixels.
    static int diameter(int sampleSide) { return (sampleSide - 1) * kCell; }
    // The middle pixel's place in such a lens, without its part of the grid.
    static QRect middleCell(int sampleSide);

    // `sample` is square, its side even, Format_RGB32; a null one empties the lens.
    void setContent(const QImage& sample);
    // Premultiplied, transparent around the circle, whose edge is not smooth: a frame covers it.
    const QImage& picture() const { return m_picture; }

private:
    void resize(int side);
    void fillLines(const QRgb* pixels, int count);
    void copyRow(const std::vector<QRgb>& line, int row);

    QImage m_picture;
    std::vector<int> m_insets;    // of each row: the pixels before the circle, as many after it
    std::vector<QRgb> m_cellLine; // one row of the lens through the cells
    std::vector<QRgb> m_gridLine; // and one along the grid
};
