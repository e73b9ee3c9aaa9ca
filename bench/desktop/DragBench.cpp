#include "bench/desktop/Benches.h"
#include "bench/desktop/DamageWatch.h"
#include "bench/desktop/ProcessFacts.h"
#include "bench/desktop/Subjects.h"

#include <limits>

namespace {

constexpr int kRounds = 5;
constexpr int kSteps = 200;
// Percent of the screen. Two steps may be counted as one; the region's own rectangle grows to 25.
constexpr double kLargestShare = 10;

struct DragCost {
    std::vector<double> cpu;  // milliseconds, of each step
    qint64 largestDamage = 0; // pixels of one step
};

// Drags a region from a fixed start to half the screen's width and height, one step a time.
void dragSteps(BenchDesktop& bench, DamageWatch& damage, qint64 pid, DragCost& cost)
{
    const auto place = [&bench](double part) {
        return QPoint(int(bench.size().width() * part), int(bench.size().height() * part));
    };
    bench.input().moveTo(place(0.3));
    bench.input().press(Button::Left);
    bench.input().moveTo(place(0.4));
    damage.takePixels();
    for (int step = 1; step <= kSteps; ++step) {
        const double before = ProcessFacts::cpuMilliseconds(pid);
        bench.input().moveTo(place(0.4 + 0.4 * step / kSteps));
        const qint64 pixels = damage.takePixels();
        cost.cpu.push_back(ProcessFacts::cpuMilliseconds(pid) - before);
        cost.largestDamage =
            std::max(cost.largestDamage, pixels ? pixels : std::numeric_limits<qint64>::max());
    }
    bench.input().release(Button::Left);
}

void dragOnce(BenchDesktop& bench, DamageWatch& damage, Key hotKey, qint64 pid, DragCost& cost)
{
    bench.openOverlay(hotKey);
    dragSteps(bench, damage, pid, cost);
    bench.closeOverlay();
}

}

void benchDrag(BenchDesktop& bench, BenchTable& table)
{
    const Resident floorProgram = Subjects::overlayFloor(bench.desktop());
    const Resident ourProgram = Subjects::ours(bench.desktop());
    DamageWatch damage(bench.desktop().displayName());
    DragCost floor;
    DragCost ours;
    for (int round = 0; round < kRounds; ++round) {
        dragOnce(bench, damage, floorProgram.hotKey(), floorProgram.pid(), floor);
        dragOnce(bench, damage, Subjects::kRegionKey, ourProgram.pid(), ours);
    }
    const QSize size = bench.size();
    const double share = 100.0 * double(ours.largestDamage) / (double(size.width()) * size.height());
    table.add({QStringLiteral("drag step, CPU"), size, median(floor.cpu), median(ours.cpu),
        QStringLiteral("ms"), 1.3});
    table.add(
        {QStringLiteral("drag step, largest repaint"), size, {}, share, QStringLiteral("%"), kLargestShare});
}
