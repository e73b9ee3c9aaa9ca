#pragma once

#include <qrgb.h>

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

class QImage;

// At most 256 colours for a picture, and the way from its pixels to them. With no more colours than that in
// the picture all are kept. Otherwise the colours, grouped by the upper five bits of each part, are halved
// again and again where they differ most, and each group takes the nearest mean; nothing is dithered, which
// keeps text and plain areas clean.
class ColourPalette {
public:
    // `image` is Format_RGB32.
    explicit ColourPalette(const QImage& image);

    const std::vector<QRgb>& colours() const { return m_colours; }
    // The palette's indices for pixels of the picture that it was made for.
    void mapRow(const QRgb* pixels, uint8_t* indices, size_t count) const;

private:
    bool keepAll(const QImage& image);
    void chooseBest(const QImage& image);

    std::vector<QRgb> m_colours;
    std::unordered_map<QRgb, uint8_t> m_exact; // by colour; empty when the picture has too many
    std::vector<uint8_t> m_ofGroup;            // by group; empty when all colours are kept
};
