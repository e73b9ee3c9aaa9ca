#pragma once

// An extent in points.
struct ZRSize {
    double width = 0, height = 0;
    friend bool operator==(ZRSize, ZRSize) = default;
};
