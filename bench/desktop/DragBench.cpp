#include "bench/desktop/Benches.h"
#include "bench/desktop/DamageWatch.h"
#include "bench/desktop/ProcessFacts.h"
#include "bench/desktop/Subjects.h"

#include <limits>

namespace {

constexpr int kRounds = 5;
constexpr int kSteps = 200;
constexpr double kLargestShare = 5; // percent of the screen; the region's own rectangle grows to 25

struct DragCost {
    double cpu = 0;           // milliseconds a step
    qint64 largestDamage = 0; // pixels of one step
};

// Drags a region from a fixed start to half the screen's width and height, one step a time.
DragCost dragSteps(BenchDesktop& bench, DamageWatch& damage, qint64 pid)
{
    const auto place = [&bench](double part) {
        return QPoint(int(bench.size().width() * part), int(bench.size().height() * part));
    };
    bench.input().moveTo(place(0.3));
    bench.input().press(Button::Left);
    bench.input().moveTo(place(0.4));
    damage.takePixels();
    DragCost cost;
    const double before = ProcessFacts::cpuMilliseconds(pid);
    for (int step = 1; step <= kSteps; ++step) {
        bench.input().moveTo(place(0.4 + 0.4 * step / kSteps));
        const qint64 pixels = damage.takePixels();
        cost.largestDamage =
            std::max(cost.largestDamage, pixels ? pixels : std::numeric_limits<qint64>::max());
    }
    cost.cpu = (ProcessFacts::cpuMilliseconds(pid) - before) / kSteps;
    bench.input().release(Button::Left);
    return cost;
}

DragCost dragOnce(BenchDesktop& bench, DamageWatch& damage, Key hotKey, qint64 pid)
{
    bench.openOverlay(hotKey);
    const DragCost cost = dragSteps(bench, damage, pid);
    bench.closeOverlay();
    return cost;
}

}

void benchDrag(BenchDesktop& bench, BenchTable& table)
{
    const Resident floorProgram = Subjects::overlayFloor(bench.desktop());
    const Resident ourProgram = Subjects::ours(bench.desktop());
    DamageWatch damage(bench.desktop().displayName());
    std::vector<double> floor;
    std::vector<double> ours;
    qint64 largestDamage = 0;
    for (int round = 0; round < kRounds; ++round) {
        floor.push_back(dragOnce(bench, damage, floorProgram.hotKey(), floorProgram.pid()).cpu);
        const DragCost cost = dragOnce(bench, damage, Subjects::kRegionKey, ourProgram.pid());
        ours.push_back(cost.cpu);
        largestDamage = std::max(largestDamage, cost.largestDamage);
    }
    const QSize size = bench.size();
    const double share = 100.0 * double(largestDamage) / (double(size.width()) * size.height());
    table.add(
        {QStringLiteral("drag step, CPU"), size, median(floor), median(ours), QStringLiteral("ms"), 1.3});
    table.add(
        {QStringLiteral("drag step, largest repaint"), size, {}, share, QStringLiteral("%"), kLargestShare});
}
