// Compiled for AVX2 with fused multiplication; nothing here runs before the processor was asked for both.
#include "editor/GaussianRowKernels.h"

const GaussianRows* GaussianRows::avx2()
{
#if defined(__AVX2__) && defined(__FMA__)
    return __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma") ? &kGaussianRows<8> : nullptr;
#else
    return nullptr;
#endif
}
