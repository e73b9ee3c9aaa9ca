#include "bench/desktop/Benches.h"
#include "bench/desktop/Stopwatch.h"
#include "bench/desktop/Subjects.h"

#include <limits>

namespace {

constexpr int kRounds = 9;

// From the start of a program to its successful end.
double runTime(BenchDesktop& bench, const QString& program, const QStringList& arguments)
{
    const Stopwatch watch;
    const bool isDone = bench.desktop().run(program, arguments) == 0;
    return isDone ? watch.milliseconds() : std::numeric_limits<double>::infinity();
}

void benchKeyToFile(BenchDesktop& bench, BenchTable& table)
{
    const QString floorFolder = bench.desktop().home() + QStringLiteral("/floor");
    FileArrival floorFiles(floorFolder);
    FileArrival ourFiles(bench.saveFolder());
    const Resident floorProgram = Subjects::captureFloor(bench.desktop(), floorFolder);
    std::vector<double> floor;
    std::vector<double> ours;
    for (int round = 0; round < kRounds; ++round) {
        floor.push_back(bench.saveScreen(floorProgram.hotKey(), floorFiles));
        ours.push_back(bench.saveScreen(Subjects::kFullScreenKey, ourFiles));
    }
    table.add({QStringLiteral("full screen, hot key to file"), bench.size(), median(floor), median(ours),
        QStringLiteral("ms"), 1.3});
}

// Program against program: starting it counts.
void benchCommandToFile(BenchDesktop& bench, BenchTable& table)
{
    std::vector<double> floor;
    std::vector<double> ours;
    for (int round = 0; round < kRounds; ++round) {
        const QString file = bench.desktop().home() + QStringLiteral("/scrot%1.png").arg(round);
        floor.push_back(runTime(bench, QStringLiteral("scrot"), {file}));
        ours.push_back(runTime(bench, Subjects::program(), {QStringLiteral("full")}));
        BenchDesktop::restAfterCapture();
    }
    table.add({QStringLiteral("full screen, command, against scrot"), bench.size(), median(floor),
        median(ours), QStringLiteral("ms"), 0.5});
}

}

void benchCapture(BenchDesktop& bench, BenchTable& table)
{
    const Resident ourProgram = Subjects::ours(bench.desktop());
    benchKeyToFile(bench, table);
    benchCommandToFile(bench, table);
}
