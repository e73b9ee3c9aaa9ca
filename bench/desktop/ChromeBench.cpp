#include "bench/desktop/Benches.h"
#include "bench/desktop/DamageWatch.h"
#include "bench/desktop/ProcessFacts.h"
#include "bench/desktop/Subjects.h"

#include <limits>

namespace {

constexpr int kRounds = 5;
constexpr int kSteps = 200;

// Adds the milliseconds that the process works for each move of the pointer over free ground; infinite for a
// move that changed nothing.
void chromeSteps(BenchDesktop& bench, DamageWatch& damage, qint64 pid, std::vector<double>& cpu)
{
    const QPoint start(bench.size().width() / 2, bench.size().height() / 2);
    bench.input().moveTo(start);
    damage.takePixels();
    for (int step = 1; step <= kSteps; ++step) {
        const double before = ProcessFacts::cpuMilliseconds(pid);
        bench.input().moveTo(start + QPoint(step * 11 % 400, step * 7 % 130));
        const bool isShown = damage.takePixels() > 0;
        const double after = ProcessFacts::cpuMilliseconds(pid);
        cpu.push_back(isShown ? after - before : std::numeric_limits<double>::infinity());
    }
}

void chromeOnce(
    BenchDesktop& bench, DamageWatch& damage, const Resident& program, Key hotKey, std::vector<double>& cpu)
{
    bench.openOverlay(hotKey);
    chromeSteps(bench, damage, program.pid(), cpu);
    bench.closeOverlay();
}

void benchChromeAt(int scale, BenchDesktop& bench, BenchTable& table)
{
    const Resident floorProgram = Subjects::overlayFloor(bench.desktop(), scale);
    const Resident ourProgram = Subjects::ours(bench.desktop(), scale);
    DamageWatch damage(bench.desktop().displayName());
    std::vector<double> floor;
    std::vector<double> ours;
    for (int round = 0; round < kRounds; ++round) {
        chromeOnce(bench, damage, floorProgram, floorProgram.hotKey(), floor);
        chromeOnce(bench, damage, ourProgram, Subjects::kRegionKey, ours);
    }
    table.add({QStringLiteral("pointer step, CPU, scale %1").arg(scale), bench.size(), median(floor),
        median(ours), QStringLiteral("ms"), 1.5});
}

}

void benchChrome(BenchDesktop& bench, BenchTable& table)
{
    for (const int scale : {1, 2})
        benchChromeAt(scale, bench, table);
}
