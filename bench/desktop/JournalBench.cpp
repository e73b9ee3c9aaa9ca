#include "bench/desktop/Benches.h"
#include "bench/desktop/Subjects.h"
#include "settings/SettingsKeys.h"
#include "tests/desktop/Program.h"

namespace {

// Makes a capture that is kept, or not, and gives the milliseconds to the next overlay.
double openedAfterCapture(BenchDesktop& bench, bool isKept)
{
    const QPoint corner(bench.size().width(), bench.size().height());
    Program(bench.desktop(), Subjects::program()).writeSettings({{SettingsKeys::kKeepLastCapture, isKept}});
    BenchDesktop::restAfterCapture(); // in which the program reads its settings
    bench.openOverlay(Subjects::kRegionKey);
    bench.input().drag(corner / 8, corner * 7 / 8);
    bench.closeOverlay();
    const double milliseconds = bench.openOverlay(Subjects::kRegionKey);
    bench.closeOverlay();
    return milliseconds;
}

}

void benchJournal(BenchDesktop& bench, BenchTable& table)
{
    constexpr int kRounds = 17;
    const Resident program = Subjects::ours(bench.desktop());
    std::vector<double> without, with;
    for (int round = -1; round < kRounds; ++round) { // the first round warms up
        const double withoutTime = openedAfterCapture(bench, false);
        const double withTime = openedAfterCapture(bench, true);
        if (round < 0)
            continue;
        without.push_back(withoutTime);
        with.push_back(withTime);
    }
    table.add({QStringLiteral("overlay, last capture kept or not"), bench.size(), median(without),
        median(with), QStringLiteral("ms"), 1.15});
}
