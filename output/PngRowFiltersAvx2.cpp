// Compiled for AVX2; nothing here runs before the processor was asked for it.
#include "output/PngRowKernels.h"

#ifdef __AVX2__
#include <immintrin.h>

namespace {

struct ThirtyTwoBytes {
    static constexpr size_t width = 32;
    using Sum = __m256i; // four 64-bit sums

    __m256i value;

    static ThirtyTwoBytes all(uint8_t value) { return {_mm256_set1_epi8(char(value))}; }
    static ThirtyTwoBytes load(const uint8_t* from)
    {
        return {_mm256_loadu_si256(reinterpret_cast<const __m256i*>(from))};
    }
    void store(uint8_t* to) const { _mm256_storeu_si256(reinterpret_cast<__m256i*>(to), value); }

    friend ThirtyTwoBytes operator-(ThirtyTwoBytes a, ThirtyTwoBytes b)
    {
        return {_mm256_sub_epi8(a.value, b.value)};
    }
    friend ThirtyTwoBytes operator&(ThirtyTwoBytes a, ThirtyTwoBytes b)
    {
        return {_mm256_and_si256(a.value, b.value)};
    }
    friend ThirtyTwoBytes operator|(ThirtyTwoBytes a, ThirtyTwoBytes b)
    {
        return {_mm256_or_si256(a.value, b.value)};
    }
    friend ThirtyTwoBytes operator^(ThirtyTwoBytes a, ThirtyTwoBytes b)
    {
        return {_mm256_xor_si256(a.value, b.value)};
    }
    static ThirtyTwoBytes lesser(ThirtyTwoBytes a, ThirtyTwoBytes b)
    {
        return {_mm256_min_epu8(a.value, b.value)};
    }
    static ThirtyTwoBytes greater(ThirtyTwoBytes a, ThirtyTwoBytes b)
    {
        return {_mm256_max_epu8(a.value, b.value)};
    }
    static ThirtyTwoBytes mean(ThirtyTwoBytes a, ThirtyTwoBytes b)
    {
        return {_mm256_avg_epu8(a.value, b.value)};
    }
    static ThirtyTwoBytes equal(ThirtyTwoBytes a, ThirtyTwoBytes b)
    {
        return {_mm256_cmpeq_epi8(a.value, b.value)};
    }
    static ThirtyTwoBytes choose(ThirtyTwoBytes mask, ThirtyTwoBytes a, ThirtyTwoBytes b)
    {
        return {_mm256_blendv_epi8(b.value, a.value, mask.value)};
    }

    static Sum noSum() { return _mm256_setzero_si256(); }
    static Sum add(Sum sum, ThirtyTwoBytes bytes)
    {
        return _mm256_add_epi64(sum, _mm256_sad_epu8(bytes.value, _mm256_setzero_si256()));
    }
    static uint64_t total(Sum sum)
    {
        const __m128i two = _mm_add_epi64(_mm256_castsi256_si128(sum), _mm256_extracti128_si256(sum, 1));
        return uint64_t(_mm_cvtsi128_si64(two)) + uint64_t(_mm_extract_epi64(two, 1));
    }
};

// Eight pixels a step. Each store writes eight bytes more than the step, so the last two steps go one by one.
void packEight(const uint8_t* bgrx, uint8_t* rgb, size_t pixels)
{
    const __m256i order = _mm256_setr_epi8(2, 1, 0, 6, 5, 4, 10, 9, 8, 14, 13, 12, -1, -1, -1, -1, //
        2, 1, 0, 6, 5, 4, 10, 9, 8, 14, 13, 12, -1, -1, -1, -1);
    const __m256i together = _mm256_setr_epi32(0, 1, 2, 4, 5, 6, 3, 7);
    size_t i = 0;
    for (; i + 16 <= pixels; i += 8) {
        const __m256i ordered = _mm256_shuffle_epi8(ThirtyTwoBytes::load(bgrx + 4 * i).value, order);
        ThirtyTwoBytes{_mm256_permutevar8x32_epi32(ordered, together)}.store(rgb + 3 * i);
    }
    packFrom(i, bgrx, rgb, pixels);
}

} // namespace

const PngRowFilters* PngRowFilters::avx2()
{
    static constexpr PngRowFilters filters{
        packEight, residualSums<ThirtyTwoBytes>, applyFilter<ThirtyTwoBytes>};
    return __builtin_cpu_supports("avx2") ? &filters : nullptr;
}

#else

const PngRowFilters* PngRowFilters::avx2()
{
    return nullptr;
}

#endif
