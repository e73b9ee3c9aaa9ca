// The pictures that hide something, beside their floors: a memcpy for the mosaics, OpenCV's blur for ours.
// Processor time on one thread each, in turns. Prints one table; ends with 1 when a limit is not kept.
#include "bench/desktop/ProcessorTime.h"
#include "bench/png/ScreenPictures.h"
#include "editor/GaussianBlur.h"
#include "editor/MosaicRules.h"
#include "editor/SecureMosaic.h"

#include <QGuiApplication>

#include <opencv2/imgproc.hpp>

#include <cstring>
#include <utility>

namespace {

constexpr QSize kArea(600, 400);
constexpr QSize k4K(3840, 2160);

void compare(const BenchRow& row, int rounds, const std::function<void()>& floor,
    const std::function<void()>& ours, BenchTable& table)
{
    ProcessorTime::compare(
        row, rounds, [&] { return ProcessorTime::of(floor); }, [&] { return ProcessorTime::of(ours); },
        table);
}

// OpenCV takes black for what lies outside, as ours does before it lays the rest over the picture. Both make
// a new picture.
void benchBlur(const QImage& picture, int rounds, double sigma, double limit, BenchTable& table)
{
    const cv::Mat in(picture.height(), picture.width(), CV_8UC4, const_cast<uchar*>(picture.constBits()),
        size_t(picture.bytesPerLine()));
    const auto floor = [&] {
        cv::Mat out;
        cv::GaussianBlur(in, out, cv::Size(), sigma, sigma, cv::BORDER_CONSTANT);
    };
    const auto ours = [&] { gaussianBlurred(picture, sigma, 1); };
    compare({QStringLiteral("blur, sigma %1").arg(sigma), picture.size(), {}, 0, {}, limit}, rounds, floor,
        ours, table);
}

// In place, into memory that is there, as the memcpy.
void benchMosaic(const QImage& picture, int level, BenchTable& table)
{
    QImage copy(picture.size(), picture.format());
    QImage mosaic = picture.copy();
    const auto floor = [&] { std::memcpy(copy.bits(), picture.constBits(), size_t(picture.sizeInBytes())); };
    const auto ours = [&] { mosaic = MosaicRules::transToMosaicImage(std::move(mosaic), level); };
    compare({QStringLiteral("mosaic, level %1").arg(level), picture.size(), {}, 0, {}, 1.2}, 15, floor, ours,
        table);
}

// A new picture, as the copy.
void benchSecureMosaic(const QImage& frame, int level, BenchTable& table)
{
    QImage copy;
    const auto floor = [&] { copy = frame.copy(); };
    const auto ours = [&] { secureMosaic(frame, frame.rect(), level); };
    compare({QStringLiteral("secure mosaic, level %1").arg(level), frame.size(), {}, 0, {}, 4}, 15, floor,
        ours, table);
}

} // namespace

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen"); // the pictures need fonts, not a display
    QGuiApplication app(argc, argv);
    cv::setNumThreads(1);
    BenchTable table;
    const QImage area = ScreenPictures::flatDesktop(kArea);
    const QImage screen = ScreenPictures::flatDesktop(k4K);
    for (int level : {3, 6, 9}) {
        benchBlur(area, 41, level, 1, table);
        benchBlur(screen, 9, level, level == 3 ? 1.5 : 1, table);
    }
    for (int level : {3, 6, 9})
        benchMosaic(screen, level, table);
    for (int level : {3, 6, 9})
        benchSecureMosaic(screen, level, table);
    return table.isKept() ? 0 : 1;
}
