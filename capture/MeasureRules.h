#pragma once

#include "geometry/ZRPoint.h"
#include "geometry/ZRSize.h"

// A measurement: where its press was, once there was one. Points of the window.
struct Measurement {
    ZRPoint startPoint;
    bool isStarted = false;
};

namespace MeasureRules {

// How far the pointer is from the press, in points along x and y; zero before the first press. Kept: each
// difference is rounded to single precision, which leaves no residue of a fractional scale factor.
ZRSize measuredSize(const Measurement& measurement, ZRPoint pointer);

}
