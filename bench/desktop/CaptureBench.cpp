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

struct Times { // milliseconds
    std::vector<double> floor;
    std::vector<double> ours;
    std::vector<double> command;
    std::vector<double> scrot;
};

// In turns, with no notice on the screen.
Times measuredInTurns(BenchDesktop& bench, FileArrival& ourFiles)
{
    const QString floorFolder = bench.desktop().home() + QStringLiteral("/floor");
    const QString scrotFile = bench.desktop().home() + QStringLiteral("/scrot.png");
    FileArrival floorFiles(floorFolder);
    const Resident floorProgram = Subjects::captureFloor(bench.desktop(), floorFolder);
    const Resident ourProgram = Subjects::oursWithoutNotices(bench.desktop());
    Times times;
    for (int round = 0; round < kRounds; ++round) {
        times.floor.push_back(bench.saveScreen(floorProgram.hotKey(), floorFiles));
        times.ours.push_back(bench.saveScreen(ourProgram.hotKey(), ourFiles));
        times.command.push_back(runTime(bench, Subjects::program(), {QStringLiteral("full")}));
        ourFiles.hasArrived(); // the command's file is no answer to the next key
        times.scrot.push_back(runTime(bench, QStringLiteral("scrot"), {QStringLiteral("-o"), scrotFile}));
        BenchDesktop::restAfterCapture();
    }
    return times;
}

// Each capture but the first finds the notice of the one before it on the screen.
std::vector<double> timesWhileANoticeShows(BenchDesktop& bench, FileArrival& files)
{
    const Resident program = Subjects::ours(bench.desktop());
    bench.saveScreen(program.hotKey(), files);
    std::vector<double> times;
    for (int round = 0; round < kRounds; ++round)
        times.push_back(bench.saveScreen(program.hotKey(), files));
    return times;
}

}

// By hot key the time is the capture's alone. As a command our program has to start, as scrot has to.
void benchCapture(BenchDesktop& bench, BenchTable& table)
{
    constexpr double kUncoverMs = 50; // that the windows below a notice have to paint themselves
    FileArrival files(bench.saveFolder());
    const Times times = measuredInTurns(bench, files);
    const double ours = median(times.ours);
    const double scrot = median(times.scrot);
    const auto add = [&](const char* name, double floor, double measured, double limit) {
        table.add({QLatin1String(name), bench.size(), floor, measured, QStringLiteral("ms"), limit});
    };
    add("full screen, hot key to file", median(times.floor), ours, 1.3);
    add("full screen, hot key against scrot", scrot, ours, 0.5);
    add("full screen, command against scrot", scrot, median(times.command), 0.5);
    add("the same by hot key, a notice shows", ours + kUncoverMs,
        median(timesWhileANoticeShows(bench, files)), 1.15);
}
