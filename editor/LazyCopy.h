#pragma once

#include <QImage>

#include <vector>

// A copy of a picture that is made tile by tile, where it is first needed. Format_RGB32.
class LazyCopy {
public:
    // Holds the source, whose pixels must stay as they are.
    explicit LazyCopy(const QImage& source = {});

    // The copy, of the source's size and real at least within `pixels`, which lies inside it.
    QImage& with(const QRect& pixels);

    // Copies the pixels of a rectangle that lies inside both pictures.
    static void copyPixels(QImage& to, const QImage& from, const QRect& pixels);

private:
    static constexpr int kTile = 128; // pixels a side

    QImage m_source;
    QImage m_copy;
    std::vector<bool> m_isCopied; // a tile each, by rows
    int m_columns = 0;
};
