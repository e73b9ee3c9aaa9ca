#include "bench/desktop/BenchWindows.h"
#include "bench/desktop/Benches.h"
#include "bench/desktop/DamageWatch.h"
#include "bench/desktop/ProcessFacts.h"
#include "bench/desktop/Subjects.h"

#include <limits>

namespace {

constexpr int kRounds = 5;
constexpr int kSteps = 200;
constexpr int kFew = 10;
constexpr int kMany = 200;

// The two windows that the pointer goes to and fro between lie side by side. Every other window is smaller
// and away from both, so that each is looked at and passed over.
void openAround(BenchWindows& windows, const QList<QRect>& pair, int count)
{
    for (const QRect& pixels : pair)
        windows.open(pixels);
    for (int i = pair.size(); i < count; ++i)
        windows.open({100 + i % 20 * 30, 100 + i / 20 * 20, 25, 15});
}

// Adds the milliseconds that the process works for each move of the pointer; infinite for a move that changed
// nothing.
void hoverSteps(
    BenchDesktop& bench, DamageWatch& damage, const QList<QRect>& pair, qint64 pid, std::vector<double>& cpu)
{
    bench.input().moveTo(pair[1].center());
    damage.takePixels();
    for (int step = 0; step < kSteps; ++step) {
        const double before = ProcessFacts::cpuMilliseconds(pid);
        bench.input().moveTo(pair[step % 2].center() + QPoint(step % 50, step % 30));
        const bool isShown = damage.takePixels() > 0;
        const double after = ProcessFacts::cpuMilliseconds(pid);
        cpu.push_back(isShown ? after - before : std::numeric_limits<double>::infinity());
    }
}

void hoverOnce(BenchDesktop& bench, DamageWatch& damage, const QList<QRect>& pair, const Resident& program,
    Key hotKey, std::vector<double>& cpu)
{
    bench.openOverlay(hotKey);
    hoverSteps(bench, damage, pair, program.pid(), cpu);
    bench.closeOverlay();
}

}

void benchHover(BenchDesktop& bench, BenchTable& table)
{
    const QPoint middle(bench.size().width() / 2 + 50, bench.size().height() / 2 + 50);
    const QList<QRect> pair{QRect(middle, QSize(240, 160)), QRect(middle + QPoint(240, 0), QSize(240, 160))};
    const Resident floorProgram = Subjects::hoverFloor(bench.desktop(), pair);
    const Resident ourProgram = Subjects::ours(bench.desktop());
    DamageWatch damage(bench.desktop().displayName());
    std::vector<double> floor;
    std::vector<double> few;
    std::vector<double> many;
    for (int round = 0; round < kRounds; ++round) {
        for (const int count : {kFew, kMany}) {
            BenchWindows windows(bench.desktop().displayName());
            openAround(windows, pair, count);
            bench.rememberScreen();
            if (count == kFew)
                hoverOnce(bench, damage, pair, floorProgram, floorProgram.hotKey(), floor);
            hoverOnce(bench, damage, pair, ourProgram, Subjects::kRegionKey, count == kFew ? few : many);
        }
    }
    bench.rememberScreen();
    const QString unit = QStringLiteral("ms");
    const QSize size = bench.size();
    table.add({QStringLiteral("hover step, CPU, 10 windows"), size, median(floor), median(few), unit, 1.3});
    table.add({QStringLiteral("hover step, CPU, 200 windows"), size, median(floor), median(many), unit, 1.3});
    table.add(
        {QStringLiteral("hover step, 200 windows beside 10"), size, median(few), median(many), unit, 1.2});
}
