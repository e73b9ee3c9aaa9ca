#pragma once

#include <cstddef>
#include <cstdint>

// Private to the source that includes it, as PngRowKernels.h has it.
namespace {

// The narrowest vector: it ends the rows of the wide ones and is all there is on other processors.
struct OneByte {
    static constexpr size_t width = 1;
    using Sum = uint64_t;

    uint8_t value;

    static OneByte all(uint8_t value) { return {value}; }
    static OneByte load(const uint8_t* from) { return {*from}; }
    void store(uint8_t* to) const { *to = value; }

    friend OneByte operator-(OneByte a, OneByte b) { return {uint8_t(a.value - b.value)}; }
    friend OneByte operator&(OneByte a, OneByte b) { return {uint8_t(a.value & b.value)}; }
    friend OneByte operator|(OneByte a, OneByte b) { return {uint8_t(a.value | b.value)}; }
    friend OneByte operator^(OneByte a, OneByte b) { return {uint8_t(a.value ^ b.value)}; }
    static OneByte lesser(OneByte a, OneByte b) { return a.value < b.value ? a : b; }
    static OneByte greater(OneByte a, OneByte b) { return a.value < b.value ? b : a; }
    // Rounded up.
    static OneByte mean(OneByte a, OneByte b) { return {uint8_t((a.value + b.value + 1) / 2)}; }
    // 255 where equal, else 0.
    static OneByte equal(OneByte a, OneByte b) { return {uint8_t(a.value == b.value ? 255 : 0)}; }
    // `a` where the mask is 255, `b` where it is 0.
    static OneByte choose(OneByte mask, OneByte a, OneByte b) { return mask.value ? a : b; }

    static Sum noSum() { return 0; }
    static Sum add(Sum sum, OneByte bytes) { return sum + bytes.value; }
    static uint64_t total(Sum sum) { return sum; }
};

} // namespace
