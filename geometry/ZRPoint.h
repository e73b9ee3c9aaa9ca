#pragma once

// A place in points; which origin it counts from is said where it is used, y always grows upwards.
struct ZRPoint {
    double x = 0, y = 0;
    friend bool operator==(ZRPoint, ZRPoint) = default;
};
