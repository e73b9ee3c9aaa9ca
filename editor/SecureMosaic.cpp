#include "editor/SecureMosaic.h"

#include <algorithm>
#include <vector>

namespace {

// How far a block may lie from the colour that its surroundings suggest; blocks must be seen on a plain
// ground.
constexpr int kJitter = 20;
constexpr float kMiddle = 128;

// Levels of red, green and blue times a weight, and that weight. No weight: nothing is known.
struct Colour {
    float red = 0, green = 0, blue = 0, weight = 0;

    void add(float r, float g, float b, float w)
    {
        red += r * w;
        green += g * w;
        blue += b * w;
        weight += w;
    }
    void add(QRgb pixel) { add(float(qRed(pixel)), float(qGreen(pixel)), float(qBlue(pixel)), 1); }
    void add(const Colour& mean, float w)
    {
        if (mean.weight > 0)
            add(mean.red / mean.weight, mean.green / mean.weight, mean.blue / mean.weight, w);
    }
};

// One side of the ring: for each block beside it the colour of the pixels that it touches.
using Side = std::vector<Colour>;

// What may be seen around an area.
struct Surroundings {
    const QImage& frame;
    const QRegion visible; // of the frame

    // Of the pixels of `part` that are visible.
    Colour colourOf(const QRect& part) const
    {
        Colour colour;
        for (const QRect& r : visible.intersected(part))
            for (int y = r.top(); y <= r.bottom(); ++y)
                for (int x = r.left(); x <= r.right(); ++x)
                    colour.add(frame.pixel(x, y));
        return colour;
    }
};

// The ring around an area, in the blocks' steps.
struct Ring {
    Side top, bottom; // from the left
    Side left, right; // from the top

    Ring(const Surroundings& around, QRect area, int blockSize)
    {
        for (int x = 0; x < area.width(); x += blockSize) {
            const QRect across(area.x() + x, area.y(), std::min(blockSize, area.width() - x), 1);
            top.push_back(around.colourOf(across.translated(0, -1)));
            bottom.push_back(around.colourOf(across.translated(0, area.height())));
        }
        for (int y = 0; y < area.height(); y += blockSize) {
            const QRect down(area.x(), area.y() + y, 1, std::min(blockSize, area.height() - y));
            left.push_back(around.colourOf(down.translated(-1, 0)));
            right.push_back(around.colourOf(down.translated(area.width(), 0)));
        }
    }

    // The mean of the four pieces of the ring that a block faces, the nearer ones weighing more; grey where
    // the frame has none of them.
    Colour facing(size_t column, size_t row) const
    {
        Colour colour;
        colour.add(top[column], 1 / (float(row) + 0.5f));
        colour.add(bottom[column], 1 / (float(left.size() - row) - 0.5f));
        colour.add(left[row], 1 / (float(column) + 0.5f));
        colour.add(right[row], 1 / (float(top.size() - column) - 0.5f));
        if (colour.weight == 0)
            colour.add(kMiddle, kMiddle, kMiddle, 1);
        return colour;
    }
};

// The colour's level, moved by `jitter` and kept off the ends of the scale so that it can move both ways.
int moved(float level, int jitter)
{
    return std::clamp(int(level), kJitter, 255 - kJitter) + jitter;
}

QRgb blockColour(const Colour& facing, QRandomGenerator& random)
{
    const int jitter = random.bounded(-kJitter, kJitter + 1);
    return qRgb(moved(facing.red / facing.weight, jitter), moved(facing.green / facing.weight, jitter),
        moved(facing.blue / facing.weight, jitter));
}

} // namespace

QImage secureMosaic(
    const QImage& frame, QRect area, int blockSize, QRandomGenerator random, const QRegion& hidden)
{
    if (area.isEmpty() || blockSize < 1)
        return {};
    QImage mosaic(area.size(), QImage::Format_RGB32);
    if (mosaic.isNull())
        return {};
    blockSize = std::min(blockSize, std::max(area.width(), area.height()));
    const Ring ring({frame, QRegion(frame.rect()) - hidden}, area, blockSize);
    for (int y = 0; y < mosaic.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(mosaic.scanLine(y));
        if (y % blockSize != 0) {
            std::copy_n(row - mosaic.width(), mosaic.width(), row);
            continue;
        }
        for (int x = 0; x < mosaic.width(); x += blockSize) {
            const QRgb colour =
                blockColour(ring.facing(size_t(x / blockSize), size_t(y / blockSize)), random);
            std::fill_n(row + x, std::min(blockSize, mosaic.width() - x), colour);
        }
    }
    return mosaic;
}
