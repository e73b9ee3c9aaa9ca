#pragma once

#include "editor/GaussianRows.h"

#include <cstring>

// The rows' work written once for vectors of any width, which the compiler maps to its target's. A source
// that includes this is compiled for one instruction set. All names are private to that source, so that no
// code for one processor can be linked into the path of another.
namespace {

template <size_t lanes>
struct Floats {
    typedef float Vector __attribute__((vector_size(lanes * sizeof(float))));

    static Vector load(const float* from)
    {
        Vector vector;
        std::memcpy(&vector, from, sizeof vector);
        return vector;
    }
    static void store(Vector vector, float* to) { std::memcpy(to, &vector, sizeof vector); }
};

[[maybe_unused]] void widenBytes(const uint8_t* bytes, const uint8_t* mask, float* floats, size_t count)
{
    for (size_t i = 0; i < count; ++i)
        floats[i] = float(bytes[i] | mask[i]);
}

// Several vectors go together, so that an addition need not wait for the one before it.
template <size_t lanes>
void sumAcross(const float* line, const float* taps, size_t reach, float* sums, size_t count)
{
    using F = Floats<lanes>;
    constexpr size_t together = lanes < 16 ? 8 : 4;
    static_assert(GaussianRows::kBlock % (lanes * together) == 0);
    for (size_t i = 0; i < count; i += lanes * together) {
        const float* middle = line + 4 * reach + i;
        typename F::Vector sum[together];
        for (size_t v = 0; v < together; ++v)
            sum[v] = taps[0] * F::load(middle + v * lanes);
        for (size_t k = 1; k <= reach; ++k) {
            for (size_t v = 0; v < together; ++v) {
                const float* at = middle + v * lanes;
                sum[v] += taps[k] * (F::load(at - 4 * k) + F::load(at + 4 * k));
            }
        }
        for (size_t v = 0; v < together; ++v)
            F::store(sum[v], sums + i + v * lanes);
    }
}

// Each row is loaded once for all the sums that it takes part in.
template <size_t lanes>
void sumDown(const float* const* rows, size_t rowCount, const float* taps, float* sums, size_t count)
{
    using F = Floats<lanes>;
    constexpr size_t together = GaussianRows::kRowsAtOnce;
    for (size_t i = 0; i < count; i += lanes) {
        typename F::Vector sum[together] = {};
        for (size_t m = 0; m < rowCount; ++m) {
            const auto row = F::load(rows[m] + i);
            for (size_t j = 0; j < together; ++j)
                sum[j] += *(taps + m - j) * row;
        }
        for (size_t j = 0; j < together; ++j)
            F::store(sum[j], sums + j * count + i);
    }
}

[[maybe_unused]] void composeOver(float* sums, const uint8_t* bytes, const uint8_t* mask, size_t count)
{
    for (size_t i = 0; i < count; i += 4) {
        const float uncovered = 1 - sums[i + 3] / 255;
        for (size_t c = i; c < i + 4; ++c)
            sums[c] += uncovered * float(bytes[c] | mask[c]);
    }
}

[[maybe_unused]] void narrowToBytes(const float* floats, uint8_t* bytes, size_t count)
{
    for (size_t i = 0; i < count; ++i)
        bytes[i] = uint8_t(int(floats[i] + 0.5f));
}

template <size_t lanes>
constexpr GaussianRows kGaussianRows{
    widenBytes, sumAcross<lanes>, sumDown<lanes>, composeOver, narrowToBytes};

} // namespace
