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

}

// By hot key the time is the capture's alone. As a command our program has to start, as scrot has to.
void benchCapture(BenchDesktop& bench, BenchTable& table)
{
    const QString floorFolder = bench.desktop().home() + QStringLiteral("/floor");
    const QString scrotFile = bench.desktop().home() + QStringLiteral("/scrot.png");
    FileArrival floorFiles(floorFolder);
    FileArrival ourFiles(bench.saveFolder());
    const Resident floorProgram = Subjects::captureFloor(bench.desktop(), floorFolder);
    const Resident ourProgram = Subjects::ours(bench.desktop());
    std::vector<double> floor;
    std::vector<double> ours;
    std::vector<double> command;
    std::vector<double> scrot;
    for (int round = 0; round < kRounds; ++round) {
        floor.push_back(bench.saveScreen(floorProgram.hotKey(), floorFiles));
        ours.push_back(bench.saveScreen(ourProgram.hotKey(), ourFiles));
        command.push_back(runTime(bench, Subjects::program(), {QStringLiteral("full")}));
        ourFiles.hasArrived(); // the command's file is no answer to the next key
        scrot.push_back(runTime(bench, QStringLiteral("scrot"), {QStringLiteral("-o"), scrotFile}));
        BenchDesktop::restAfterCapture();
    }
    const auto add = [&](const char* name, const std::vector<double>& least,
                         const std::vector<double>& measured, double limit) {
        table.add({QLatin1String(name), bench.size(), median(least), median(measured), QStringLiteral("ms"),
            limit});
    };
    add("full screen, hot key to file", floor, ours, 1.3);
    add("full screen, hot key against scrot", scrot, ours, 0.5);
    add("full screen, command against scrot", scrot, command, 0.5);
}
