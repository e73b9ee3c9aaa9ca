#pragma once

#include <cstddef>
#include <cstdint>

// The work of a Gaussian blur on rows of floats, for one kind of processor. Four floats are a pixel, in the
// order of its bytes. All kinds agree but for the rounding of single precision.
struct GaussianRows {
    // Lengths of rows are multiples of this many floats; `down` makes this many rows at once.
    static constexpr size_t kBlock = 64;
    static constexpr size_t kRowsAtOnce = 8;

    // The bytes as floats; those set in `mask` are set before.
    void (*widen)(const uint8_t* bytes, const uint8_t* mask, float* floats, size_t count);
    // Each float becomes its weighted sum with those up to `reach` pixels to its left and right. `taps`
    // begins with the middle's weight, `line` with the pixel `reach` to the left of the first result.
    void (*across)(const float* line, const float* taps, size_t reach, float* sums, size_t count);
    // The weighted sums of `rowCount` rows, for kRowsAtOnce rows that follow each other in `sums`. The weight
    // of row m in sum j is taps[m - j]: `taps` has kRowsAtOnce - 1 weights in front of where it points.
    void (*down)(const float* const* rows, size_t rowCount, const float* taps, float* sums, size_t count);
    // Lays what the sums leave uncovered, told by each pixel's fourth float, over `bytes` read as by `widen`.
    void (*compose)(float* sums, const uint8_t* bytes, const uint8_t* mask, size_t count);
    // The nearest bytes; the floats lie between 0 and 255.5.
    void (*narrow)(const float* floats, uint8_t* bytes, size_t count);

    static const GaussianRows& portable();
    // Null when this processor, or this build, does not have them.
    static const GaussianRows* avx2();
    static const GaussianRows* avx512();
    // The fastest that this processor has.
    static const GaussianRows& best();
};
