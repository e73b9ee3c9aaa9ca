#include "output/PngRowKernels.h"

static void packPlain(const uint8_t* bgrx, uint8_t* rgb, size_t pixels)
{
    packFrom(0, bgrx, rgb, pixels);
}

const PngRowFilters& PngRowFilters::portable()
{
    static constexpr PngRowFilters filters{packPlain, residualSums<OneByte>, applyFilter<OneByte>};
    return filters;
}

const PngRowFilters& PngRowFilters::best()
{
    if (const PngRowFilters* widest = avx2())
        return *widest;
    if (const PngRowFilters* wide = ssse3())
        return *wide;
    return portable();
}
