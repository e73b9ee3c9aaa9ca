#include "output/ColourPalette.h"

#include <QImage>

#include <algorithm>
#include <array>
#include <limits>

namespace {

constexpr size_t kMostColours = 256;
constexpr size_t kGroups = 32 * 32 * 32;
constexpr QRgb kColourBits = 0x00ffffff; // the fourth byte means nothing

size_t groupOf(QRgb pixel)
{
    return size_t(qRed(pixel) >> 3 << 10 | qGreen(pixel) >> 3 << 5 | qBlue(pixel) >> 3);
}

const QRgb* rowOf(const QImage& image, int y)
{
    return reinterpret_cast<const QRgb*>(image.constScanLine(y));
}

// Pixels taken together, as sums of their red, green and blue.
struct Group {
    double count = 0;
    std::array<double, 3> sums{};

    void add(QRgb pixel)
    {
        ++count;
        sums[0] += qRed(pixel);
        sums[1] += qGreen(pixel);
        sums[2] += qBlue(pixel);
    }
    double mean(size_t part) const { return sums[part] / count; }
    QRgb colour() const { return qRgb(qRound(mean(0)), qRound(mean(1)), qRound(mean(2))) & kColourBits; }
};

using Groups = std::vector<Group>;
using Iterator = Groups::iterator;

// A run of groups that shares one colour of the palette.
struct Box {
    Iterator first, last;
    size_t widestPart = 0;
    double error = 0; // squared, summed over the pixels, along the widest part

    Box(Iterator begin, Iterator end)
        : first(begin)
        , last(end)
    {
        const Group whole = sum();
        for (size_t part = 0; part < 3; ++part) {
            double squares = 0;
            for (Iterator g = first; g != last; ++g)
                squares += g->count * (g->mean(part) - whole.mean(part)) * (g->mean(part) - whole.mean(part));
            if (squares > error) {
                error = squares;
                widestPart = part;
            }
        }
    }
    Group sum() const
    {
        Group whole;
        for (Iterator g = first; g != last; ++g) {
            whole.count += g->count;
            for (size_t part = 0; part < 3; ++part)
                whole.sums[part] += g->sums[part];
        }
        return whole;
    }
    // Sorts the groups along the widest part; returns the first one above their mean.
    Iterator middle() const
    {
        const double mean = sum().mean(widestPart);
        return std::partition(first, last, [&](const Group& g) { return g.mean(widestPart) <= mean; });
    }
};

Groups histogram(const QImage& image)
{
    Groups groups(kGroups);
    for (int y = 0; y < image.height(); ++y) {
        const QRgb* row = rowOf(image, y);
        for (int x = 0; x < image.width(); ++x)
            groups[groupOf(row[x])].add(row[x]);
    }
    return groups;
}

// Halves the box of the largest error until there are enough boxes, or none has an error left.
std::vector<QRgb> medianCut(Groups& used)
{
    std::vector<Box> boxes{Box(used.begin(), used.end())};
    const auto lessWrong = [](const Box& a, const Box& b) { return a.error < b.error; };
    while (boxes.size() < kMostColours) {
        const auto worst = std::max_element(boxes.begin(), boxes.end(), lessWrong);
        const Iterator middle = worst->error > 0 ? worst->middle() : worst->last;
        if (middle == worst->last)
            break;
        const Iterator last = worst->last;
        *worst = Box(worst->first, middle);
        boxes.emplace_back(middle, last);
    }
    std::vector<QRgb> colours;
    for (const Box& box : boxes)
        colours.push_back(box.sum().colour());
    return colours;
}

int squaredDistance(QRgb a, QRgb b)
{
    const int red = qRed(a) - qRed(b), green = qGreen(a) - qGreen(b), blue = qBlue(a) - qBlue(b);
    return red * red + green * green + blue * blue;
}

size_t nearest(const std::vector<QRgb>& colours, QRgb wanted)
{
    const auto closer = [&](QRgb a, QRgb b) {
        return squaredDistance(a, wanted) < squaredDistance(b, wanted);
    };
    return size_t(std::min_element(colours.begin(), colours.end(), closer) - colours.begin());
}

} // namespace

ColourPalette::ColourPalette(const QImage& image)
{
    if (!keepAll(image))
        chooseBest(image);
}

bool ColourPalette::keepAll(const QImage& image)
{
    for (int y = 0; y < image.height(); ++y) {
        const QRgb* row = rowOf(image, y);
        for (int x = 0; x < image.width(); ++x) {
            if (x > 0 && row[x] == row[x - 1])
                continue;
            if (!m_exact.try_emplace(row[x] & kColourBits, uint8_t(m_colours.size())).second)
                continue;
            if (m_colours.size() == kMostColours)
                return false;
            m_colours.push_back(row[x] & kColourBits);
        }
    }
    return true;
}

void ColourPalette::chooseBest(const QImage& image)
{
    m_exact.clear();
    const Groups groups = histogram(image);
    Groups used;
    std::copy_if(
        groups.begin(), groups.end(), std::back_inserter(used), [](const Group& g) { return g.count > 0; });
    m_colours = medianCut(used);
    m_ofGroup.resize(kGroups);
    for (size_t g = 0; g < kGroups; ++g) {
        if (groups[g].count > 0)
            m_ofGroup[g] = uint8_t(nearest(m_colours, groups[g].colour()));
    }
}

void ColourPalette::mapRow(const QRgb* pixels, uint8_t* indices, size_t count) const
{
    for (size_t i = 0; i < count; ++i) {
        if (i > 0 && pixels[i] == pixels[i - 1])
            indices[i] = indices[i - 1];
        else
            indices[i] =
                m_exact.empty() ? m_ofGroup[groupOf(pixels[i])] : m_exact.at(pixels[i] & kColourBits);
    }
}
