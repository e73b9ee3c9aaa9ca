#pragma once

#include <cstddef>
#include <cstdint>

// The filter type bytes of PNG.
enum class PngFilter : uint8_t { None, Sub, Up, Average, Paeth };
constexpr int kPngFilters = 5;

// One row as packed RGB, and the row above it (zeros above the first). Three zero bytes stand before each.
struct PngRow {
    const uint8_t* current;
    const uint8_t* above;
    size_t bytes;
};

// The work on PNG rows for one kind of processor. All kinds produce the same bytes.
struct PngRowFilters {
    // Packs blue, green, red, unused to red, green, blue.
    void (*pack)(const uint8_t* bgrx, uint8_t* rgb, size_t pixels);
    // What each filter would leave: the sum over the row of the residuals taken as signed bytes, absolute.
    void (*residuals)(const PngRow& row, uint64_t sums[kPngFilters]);
    // Writes row.bytes filtered bytes, without the filter type byte; returns how many of them are not zero.
    uint64_t (*apply)(const PngRow& row, PngFilter filter, uint8_t* filtered);

    static const PngRowFilters& portable();
    // Null when this processor, or this build, does not have them.
    static const PngRowFilters* ssse3();
    static const PngRowFilters* avx2();
    // The fastest that this processor has.
    static const PngRowFilters& best();
};
