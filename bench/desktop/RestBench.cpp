#include "bench/desktop/Benches.h"
#include "bench/desktop/ProcessFacts.h"
#include "bench/desktop/Stopwatch.h"
#include "bench/desktop/Subjects.h"
#include "output/NotificationRules.h"

namespace {

// A notice that shows is no rest: waits until the last one has gone, and for what is done when all is quiet.
void comeToRest()
{
    std::this_thread::sleep_for(std::chrono::milliseconds(
        NotificationRules::kShownMs + NotificationRules::kShownLongerMs + NotificationRules::kSlideMs));
    std::this_thread::sleep_for(std::chrono::seconds(2));
}

// A region capture with its drag, then one of the full screen.
void captureTwice(BenchDesktop& bench, FileArrival& files)
{
    const QPoint corner(bench.size().width(), bench.size().height());
    bench.openOverlay(Subjects::kRegionKey);
    bench.input().drag(corner / 8, corner * 7 / 8);
    bench.input().chord({Key::Control, Key::S});
    millisecondsUntil({}, [&] { return files.hasArrived(); });
    BenchDesktop::restAfterCapture();
    bench.saveScreen(Subjects::kFullScreenKey, files);
}

double wakeUps(qint64 pid)
{
    return double(ProcessFacts::contextSwitchesIn10s(pid));
}

double restingMegabytes(qint64 pid)
{
    comeToRest();
    return ProcessFacts::residentMegabytes(pid);
}

}

void benchRest(BenchDesktop& bench, BenchTable& table)
{
    constexpr int kWarmUp = 5;
    constexpr int kCaptures = 25;
    constexpr double kMostMegabytes = 60;
    const Resident program = Subjects::ours(bench.desktop());
    FileArrival files(bench.saveFolder());
    const QString megabytes = QStringLiteral("MB");
    const auto add = [&](const char* name, std::optional<double> floor, double ours, const QString& unit,
                         double limit) {
        table.add({QLatin1String(name), bench.size(), floor, ours, unit, limit});
    };

    add("resident set after start", {}, restingMegabytes(program.pid()), megabytes, kMostMegabytes);
    add("wake-ups in 10 s after start", {}, wakeUps(program.pid()), QStringLiteral("count"), 0);
    for (int i = 0; i < kWarmUp; ++i)
        captureTwice(bench, files);
    const double warm = restingMegabytes(program.pid());
    add("resident set after 10 captures", {}, warm, megabytes, kMostMegabytes);
    add("wake-ups in 10 s after captures", {}, wakeUps(program.pid()), QStringLiteral("count"), 0);
    for (int i = 0; i < kCaptures; ++i)
        captureTwice(bench, files);
    add("resident set, 50 captures more", warm, restingMegabytes(program.pid()), megabytes, 1.1);
}
