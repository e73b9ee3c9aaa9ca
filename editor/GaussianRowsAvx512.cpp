// Compiled for AVX-512; nothing here runs before the processor was asked for it.
#include "editor/GaussianRowKernels.h"

const GaussianRows* GaussianRows::avx512()
{
#if defined(__AVX512F__) && defined(__AVX512BW__)
    return __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512bw") ? &kGaussianRows<16>
                                                                                   : nullptr;
#else
    return nullptr;
#endif
}
