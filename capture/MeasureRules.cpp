#include "capture/MeasureRules.h"

#include <cmath>

ZRSize MeasureRules::measuredSize(const Measurement& measurement, ZRPoint pointer)
{
    if (!measurement.isStarted)
        return {};
    return {std::fabs(float(pointer.x - measurement.startPoint.x)),
        std::fabs(float(pointer.y - measurement.startPoint.y))};
}
