// Time and size of the encoders beside Qt's own, in one process and in turns, as ratios.
//   bench_png [picture.png ...]    without pictures: a 4K desktop of windows and text, and one with a
//   wallpaper
#include "bench/png/ScreenPictures.h"
#include "output/ImageWriter.h"

#include <QBuffer>
#include <QColorSpace>
#include <QFileInfo>
#include <QGuiApplication>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <vector>

namespace {

constexpr int kRounds = 7;
constexpr QSize k4K(3840, 2160);

struct Contestant {
    const char* name;
    size_t floor;                                   // the contestant whose time and size are 1
    std::function<qsizetype(const QImage&)> encode; // returns the bytes of the file
    std::vector<double> milliseconds{};
    qsizetype bytes = 0;

    double median()
    {
        std::sort(milliseconds.begin(), milliseconds.end());
        return milliseconds[milliseconds.size() / 2];
    }
};

qsizetype savedByQt(const QImage& image, const char* format, int quality)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    return image.save(&buffer, format, quality) ? bytes.size() : 0;
}

qsizetype writtenByUs(const QImage& image, const char* type, PngEffort effort = PngEffort::Small)
{
    return ImageWriter::encode(image, QLatin1String(type), effort).size();
}

std::vector<Contestant> contestants()
{
    return {
        {"QImage::save png", 0, [](const QImage& i) { return savedByQt(i, "PNG", -1); }},
        {"png, small", 0, [](const QImage& i) { return writtenByUs(i, ".png"); }},
        {"png, quick", 0, [](const QImage& i) { return writtenByUs(i, ".png", PngEffort::Quick); }},
        {"QImage::save jpg 90", 3, [](const QImage& i) { return savedByQt(i, "JPG", 90); }},
        {"jpg", 3, [](const QImage& i) { return writtenByUs(i, ".jpg"); }},
    };
}

void run(Contestant& contestant, const QImage& image)
{
    const auto start = std::chrono::steady_clock::now();
    contestant.bytes = contestant.encode(image);
    const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
    contestant.milliseconds.push_back(taken.count());
}

void compare(const QString& name, const QImage& image)
{
    std::vector<Contestant> all = contestants();
    for (int round = 0; round < kRounds; ++round) {
        for (Contestant& contestant : all)
            run(contestant, image);
    }
    std::printf("%s, %dx%d, median of %d\n", qPrintable(name), image.width(), image.height(), kRounds);
    std::printf("  %-20s %8s %6s %10s %6s\n", "", "ms", "time", "bytes", "size");
    for (Contestant& c : all) {
        std::printf("  %-20s %8.1f %6.3f %10lld %6.3f\n", c.name, c.median(),
            c.median() / all[c.floor].median(), static_cast<long long>(c.bytes),
            double(c.bytes) / double(all[c.floor].bytes));
    }
}

// The pixels alone, as a screen read has them: no colour space or text of the file.
QImage screenFrom(const QString& path)
{
    QImage image = QImage(path).convertToFormat(QImage::Format_RGB32);
    image.setColorSpace({});
    return image;
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    for (const QString& path : application.arguments().mid(1)) {
        const QImage image = screenFrom(path);
        if (image.isNull())
            std::fprintf(stderr, "%s cannot be read\n", qPrintable(path));
        else
            compare(QFileInfo(path).fileName(), image);
    }
    if (argc == 1) {
        compare(QStringLiteral("windows and text"), ScreenPictures::flatDesktop(k4K));
        compare(QStringLiteral("noisy wallpaper"), ScreenPictures::noisyDesktop(k4K));
    }
}
