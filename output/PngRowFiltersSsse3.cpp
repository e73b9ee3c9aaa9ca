// Compiled for SSSE3; nothing here runs before the processor was asked for it.
#include "output/PngRowKernels.h"

#ifdef __SSSE3__
#include <tmmintrin.h>

namespace {

struct SixteenBytes {
    static constexpr size_t width = 16;
    using Sum = __m128i; // two 64-bit sums

    __m128i value;

    static SixteenBytes all(uint8_t value) { return {_mm_set1_epi8(char(value))}; }
    static SixteenBytes load(const uint8_t* from)
    {
        return {_mm_loadu_si128(reinterpret_cast<const __m128i*>(from))};
    }
    void store(uint8_t* to) const { _mm_storeu_si128(reinterpret_cast<__m128i*>(to), value); }

    friend SixteenBytes operator-(SixteenBytes a, SixteenBytes b) { return {_mm_sub_epi8(a.value, b.value)}; }
    friend SixteenBytes operator&(SixteenBytes a, SixteenBytes b)
    {
        return {_mm_and_si128(a.value, b.value)};
    }
    friend SixteenBytes operator|(SixteenBytes a, SixteenBytes b) { return {_mm_or_si128(a.value, b.value)}; }
    friend SixteenBytes operator^(SixteenBytes a, SixteenBytes b)
    {
        return {_mm_xor_si128(a.value, b.value)};
    }
    static SixteenBytes lesser(SixteenBytes a, SixteenBytes b) { return {_mm_min_epu8(a.value, b.value)}; }
    static SixteenBytes greater(SixteenBytes a, SixteenBytes b) { return {_mm_max_epu8(a.value, b.value)}; }
    static SixteenBytes mean(SixteenBytes a, SixteenBytes b) { return {_mm_avg_epu8(a.value, b.value)}; }
    static SixteenBytes equal(SixteenBytes a, SixteenBytes b) { return {_mm_cmpeq_epi8(a.value, b.value)}; }
    static SixteenBytes choose(SixteenBytes mask, SixteenBytes a, SixteenBytes b)
    {
        return {_mm_or_si128(_mm_and_si128(mask.value, a.value), _mm_andnot_si128(mask.value, b.value))};
    }

    static Sum noSum() { return _mm_setzero_si128(); }
    static Sum add(Sum sum, SixteenBytes bytes)
    {
        return _mm_add_epi64(sum, _mm_sad_epu8(bytes.value, _mm_setzero_si128()));
    }
    static uint64_t total(Sum sum)
    {
        return uint64_t(_mm_cvtsi128_si64(sum)) + uint64_t(_mm_cvtsi128_si64(_mm_unpackhi_epi64(sum, sum)));
    }
};

// Four pixels a step. Each store writes four bytes more than the step, so the last two steps go one by one.
void packFour(const uint8_t* bgrx, uint8_t* rgb, size_t pixels)
{
    const __m128i order = _mm_setr_epi8(2, 1, 0, 6, 5, 4, 10, 9, 8, 14, 13, 12, -1, -1, -1, -1);
    size_t i = 0;
    for (; i + 8 <= pixels; i += 4) {
        const __m128i four = SixteenBytes::load(bgrx + 4 * i).value;
        SixteenBytes{_mm_shuffle_epi8(four, order)}.store(rgb + 3 * i);
    }
    packFrom(i, bgrx, rgb, pixels);
}

} // namespace

const PngRowFilters* PngRowFilters::ssse3()
{
    static constexpr PngRowFilters filters{packFour, residualSums<SixteenBytes>, applyFilter<SixteenBytes>};
    return __builtin_cpu_supports("ssse3") ? &filters : nullptr;
}

#else

const PngRowFilters* PngRowFilters::ssse3()
{
    return nullptr;
}

#endif
