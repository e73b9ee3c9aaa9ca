#include "bench/desktop/Benches.h"
#include "bench/desktop/ProcessFacts.h"
#include "bench/desktop/Subjects.h"

#include <limits>

namespace {

constexpr int kPins = 20;

void pin(BenchDesktop& bench, QPoint corner)
{
    bench.openOverlay(Subjects::kRegionKey);
    bench.input().drag(corner, corner + QPoint(120, 80));
    bench.input().chord({Key::Control, Key::P});
    BenchDesktop::restAfterCapture();
}

}

void benchPins(BenchDesktop& bench, BenchTable& table)
{
    const Resident program = Subjects::ours(bench.desktop());
    const auto windows = [&bench] { return bench.desktop().server().visibleWindows().size(); };
    const size_t before = windows();
    for (int i = 0; i < kPins; ++i)
        pin(bench, {300 + i % 5 * 130, 300 + i / 5 * 90});
    bench.input().moveTo({10, 10});
    const bool areOpen = windows() == before + kPins;
    table.add({QStringLiteral("wake-ups in 10 s, 20 pins"), bench.size(), {},
        areOpen ? double(ProcessFacts::contextSwitchesIn10s(program.pid()))
                : std::numeric_limits<double>::infinity(),
        QStringLiteral("count"), 0});
}
