#include "editor/GaussianRowKernels.h"

const GaussianRows& GaussianRows::portable()
{
    return kGaussianRows<4>;
}

const GaussianRows& GaussianRows::best()
{
    if (const GaussianRows* widest = avx512())
        return *widest;
    if (const GaussianRows* wide = avx2())
        return *wide;
    return portable();
}
