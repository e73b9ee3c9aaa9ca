#pragma once

#include "bench/desktop/BenchTable.h"

#include <functional>

// Processor time of this process, which a busy machine disturbs less than the time of a clock.
namespace ProcessorTime {

// Milliseconds.
double of(const std::function<void()>& work);

// Measures both once to warm up, then in turns, and adds the row with the medians. `floor` and `ours` give
// the milliseconds that they measured.
void compare(BenchRow row, int rounds, const std::function<double()>& floor,
    const std::function<double()>& ours, BenchTable& table);

}
