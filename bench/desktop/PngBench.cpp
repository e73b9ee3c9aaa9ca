#include "bench/desktop/Benches.h"
#include "bench/desktop/Stopwatch.h"
#include "bench/png/ScreenPictures.h"
#include "output/PngEncoder.h"

#include <QBuffer>

namespace {

struct Limits {
    const char* time;
    double mostTime;
    const char* size;
    double mostSize;
};

qsizetype savedByQt(const QImage& picture)
{
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    picture.save(&file, "PNG");
    return file.size();
}

// The floor is Qt's own writer: it stands for what the program would do without an encoder of its own.
void benchPicture(const QImage& picture, const Limits& limits, BenchTable& table)
{
    constexpr int kRounds = 5;
    std::vector<double> floor;
    std::vector<double> ours;
    qsizetype floorSize = 0;
    std::size_t ourSize = 0;
    for (int round = 0; round < kRounds; ++round) {
        Stopwatch watch;
        floorSize = savedByQt(picture);
        floor.push_back(watch.milliseconds());
        watch.restart();
        ourSize = PngEncoder::encode(picture, PngEffort::Small).size();
        ours.push_back(watch.milliseconds());
    }
    table.add({QLatin1String(limits.time), picture.size(), median(floor), median(ours), QStringLiteral("ms"),
        limits.mostTime});
    table.add({QLatin1String(limits.size), picture.size(), double(floorSize) / 1e6, double(ourSize) / 1e6,
        QStringLiteral("MB"), limits.mostSize});
}

}

void benchPng(BenchDesktop& bench, BenchTable& table)
{
    benchPicture(ScreenPictures::flatDesktop(bench.size()),
        {"PNG of windows and text, time", 0.35, "PNG of windows and text, size", 1.00}, table);
    benchPicture(ScreenPictures::noisyDesktop(bench.size()),
        {"PNG over a noisy wallpaper, time", 0.25, "PNG over a noisy wallpaper, size", 1.02}, table);
}
