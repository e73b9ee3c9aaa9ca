#include "bench/desktop/Benches.h"
#include "bench/desktop/Subjects.h"

void benchOverlay(BenchDesktop& bench, BenchTable& table)
{
    constexpr int kRounds = 17;
    const Resident floorProgram = Subjects::overlayFloor(bench.desktop());
    const Resident ourProgram = Subjects::ours(bench.desktop());
    const auto opened = [&](Key hotKey) {
        const double milliseconds = bench.openOverlay(hotKey);
        bench.closeOverlay();
        return milliseconds;
    };
    std::vector<double> floor;
    std::vector<double> ours;
    for (int round = -1; round < kRounds; ++round) { // the first round warms up
        const double floorTime = opened(floorProgram.hotKey());
        const double ourTime = opened(Subjects::kRegionKey);
        if (round < 0)
            continue;
        floor.push_back(floorTime);
        ours.push_back(ourTime);
    }
    table.add({QStringLiteral("hot key to settled overlay"), bench.size(), median(floor), median(ours),
        QStringLiteral("ms"), 1.2});
}
