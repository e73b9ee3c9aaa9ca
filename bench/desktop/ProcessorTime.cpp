#include "bench/desktop/ProcessorTime.h"

#include <ctime>

double ProcessorTime::of(const std::function<void()>& work)
{
    const std::clock_t start = std::clock();
    work();
    return double(std::clock() - start) * 1000 / CLOCKS_PER_SEC;
}

void ProcessorTime::compare(BenchRow row, int rounds, const std::function<double()>& floor,
    const std::function<double()>& ours, BenchTable& table)
{
    std::vector<double> floorTimes, ourTimes;
    for (int round = 0; round <= rounds; ++round) {
        const double floorTime = floor();
        const double ourTime = ours();
        if (round == 0)
            continue;
        floorTimes.push_back(floorTime);
        ourTimes.push_back(ourTime);
    }
    row.floor = median(floorTimes);
    row.ours = median(ourTimes);
    row.unit = QStringLiteral("ms");
    table.add(row);
}
