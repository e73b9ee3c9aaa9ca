#pragma once

#include "output/OneByte.h"
#include "output/PngRowFilters.h"

// The row filters written once for any vector of bytes. A source that includes this is compiled for one
// instruction set and brings a vector type with the operations of OneByte. All names are private to
// that source, so that no code for one processor can be linked into the path of another.
namespace {

template <class Bytes>
struct Pixels {
    Bytes here, left, above, aboveLeft;

    static Pixels at(const PngRow& row, size_t i)
    {
        return {Bytes::load(row.current + i), Bytes::load(row.current + i - 3), Bytes::load(row.above + i),
            Bytes::load(row.above + i - 3)};
    }
};

template <class Bytes>
inline Bytes meanRoundedDown(Bytes a, Bytes b)
{
    return Bytes::mean(a, b) - ((a ^ b) & Bytes::all(1));
}

template <class Bytes>
inline Bytes distance(Bytes a, Bytes b)
{
    return Bytes::greater(a, b) - Bytes::lesser(a, b);
}

// The neighbour nearest to left + above - aboveLeft; of equals left, then above. Where left and above lie on
// one side of aboveLeft, its own distance is the sum of theirs and never the least: 255 stands for it. Where
// they lie on two sides it is their difference. So everything fits in a byte.
template <class Bytes>
inline Bytes paethPredictor(const Pixels<Bytes>& p)
{
    const Bytes ofLeft = distance(p.above, p.aboveLeft);
    const Bytes ofAbove = distance(p.left, p.aboveLeft);
    const Bytes aboveLies = Bytes::equal(Bytes::lesser(p.above, p.aboveLeft), p.above);
    const Bytes leftLies = Bytes::equal(Bytes::lesser(p.left, p.aboveLeft), p.left);
    const Bytes ofAboveLeft = distance(ofLeft, ofAbove) | Bytes::equal(aboveLies, leftLies);
    const Bytes least = Bytes::lesser(ofAboveLeft, Bytes::lesser(ofLeft, ofAbove));
    const Bytes aboveOrAboveLeft = Bytes::choose(Bytes::equal(least, ofAbove), p.above, p.aboveLeft);
    return Bytes::choose(Bytes::equal(least, ofLeft), p.left, aboveOrAboveLeft);
}

template <PngFilter filter, class Bytes>
inline Bytes filtered(const Pixels<Bytes>& p)
{
    if constexpr (filter == PngFilter::Sub)
        return p.here - p.left;
    else if constexpr (filter == PngFilter::Up)
        return p.here - p.above;
    else if constexpr (filter == PngFilter::Average)
        return p.here - meanRoundedDown(p.left, p.above);
    else if constexpr (filter == PngFilter::Paeth)
        return p.here - paethPredictor(p);
    else
        return p.here;
}

template <class Bytes>
inline Bytes absolute(Bytes signedBytes)
{
    return Bytes::lesser(signedBytes, Bytes::all(0) - signedBytes);
}

// From byte `i` on in whole vectors. Adds to the sums; returns the first byte left over.
template <class Bytes>
inline size_t sumResiduals(const PngRow& row, size_t i, uint64_t sums[kPngFilters])
{
    auto none = Bytes::noSum(), sub = none, up = none, average = none, paeth = none;
    for (; i + Bytes::width <= row.bytes; i += Bytes::width) {
        const auto p = Pixels<Bytes>::at(row, i);
        none = Bytes::add(none, absolute(filtered<PngFilter::None>(p)));
        sub = Bytes::add(sub, absolute(filtered<PngFilter::Sub>(p)));
        up = Bytes::add(up, absolute(filtered<PngFilter::Up>(p)));
        average = Bytes::add(average, absolute(filtered<PngFilter::Average>(p)));
        paeth = Bytes::add(paeth, absolute(filtered<PngFilter::Paeth>(p)));
    }
    const uint64_t totals[kPngFilters] = {
        Bytes::total(none), Bytes::total(sub), Bytes::total(up), Bytes::total(average), Bytes::total(paeth)};
    for (int f = 0; f < kPngFilters; ++f)
        sums[f] += totals[f];
    return i;
}

template <class Bytes>
void residualSums(const PngRow& row, uint64_t sums[kPngFilters])
{
    for (int f = 0; f < kPngFilters; ++f)
        sums[f] = 0;
    sumResiduals<OneByte>(row, sumResiduals<Bytes>(row, 0, sums), sums);
}

template <PngFilter filter, class Bytes>
inline size_t applyWhole(const PngRow& row, size_t i, uint8_t* to, uint64_t& busy)
{
    auto notZero = Bytes::noSum();
    for (; i + Bytes::width <= row.bytes; i += Bytes::width) {
        const Bytes residual = filtered<filter>(Pixels<Bytes>::at(row, i));
        residual.store(to + i);
        notZero = Bytes::add(notZero, Bytes::lesser(residual, Bytes::all(1)));
    }
    busy += Bytes::total(notZero);
    return i;
}

template <PngFilter filter, class Bytes>
inline uint64_t applyOne(const PngRow& row, uint8_t* to)
{
    uint64_t busy = 0;
    applyWhole<filter, OneByte>(row, applyWhole<filter, Bytes>(row, 0, to, busy), to, busy);
    return busy;
}

template <class Bytes>
uint64_t applyFilter(const PngRow& row, PngFilter filter, uint8_t* to)
{
    switch (filter) {
    case PngFilter::None:
        return applyOne<PngFilter::None, Bytes>(row, to);
    case PngFilter::Sub:
        return applyOne<PngFilter::Sub, Bytes>(row, to);
    case PngFilter::Up:
        return applyOne<PngFilter::Up, Bytes>(row, to);
    case PngFilter::Average:
        return applyOne<PngFilter::Average, Bytes>(row, to);
    case PngFilter::Paeth:
        return applyOne<PngFilter::Paeth, Bytes>(row, to);
    }
    return 0;
}

// Pixels from `i` on, one at a time.
[[maybe_unused]] inline void packFrom(size_t i, const uint8_t* bgrx, uint8_t* rgb, size_t pixels)
{
    for (; i < pixels; ++i) {
        rgb[3 * i] = bgrx[4 * i + 2];
        rgb[3 * i + 1] = bgrx[4 * i + 1];
        rgb[3 * i + 2] = bgrx[4 * i];
    }
}

} // namespace
