#include "bench/desktop/Benches.h"
#include "bench/desktop/Subjects.h"

void benchStart(BenchDesktop& bench, BenchTable& table)
{
    constexpr int kRounds = 11;
    std::vector<double> floor;
    std::vector<double> ours;
    for (int round = 0; round < kRounds; ++round) {
        floor.push_back(Subjects::trayFloor(bench.desktop()).startTime());
        ours.push_back(Subjects::ours(bench.desktop()).startTime());
    }
    table.add({QStringLiteral("start to hot keys live"), bench.size(), median(floor), median(ours),
        QStringLiteral("ms"), 2.0});
}
