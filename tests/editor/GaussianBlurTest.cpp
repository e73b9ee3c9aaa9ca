#include "editor/GaussianBlur.h"
#include "editor/GaussianRows.h"

#include <QImage>

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <random>
#include <vector>

namespace {

using Levels = std::vector<double>; // four a pixel, as in a picture's rows

Levels weightsOf(double sigma, int reach)
{
    Levels weights(size_t(reach) + 1);
    double sum = 0;
    for (int k = 0; k <= reach; ++k) {
        weights[size_t(k)] = std::exp(-k * k / (2 * sigma * sigma));
        sum += k == 0 ? 1 : 2 * weights[size_t(k)];
    }
    for (double& weight : weights)
        weight /= sum;
    return weights;
}

// Black beyond the ends. A line has `length` values, `step` apart.
void blurLine(const double* from, double* to, int length, int step, const Levels& weights)
{
    const int reach = int(weights.size()) - 1;
    for (int i = 0; i < length; ++i) {
        double sum = 0;
        for (int k = std::max(-reach, -i); k <= std::min(reach, length - 1 - i); ++k)
            sum += weights[size_t(std::abs(k))] * from[(i + k) * step];
        to[i * step] = sum;
    }
}

Levels levelsOf(const QImage& image)
{
    Levels levels;
    for (int y = 0; y < image.height(); ++y)
        levels.insert(levels.end(), image.constScanLine(y), image.constScanLine(y) + 4 * image.width());
    if (!image.hasAlphaChannel()) {
        for (size_t i = 3; i < levels.size(); i += 4)
            levels[i] = 255;
    }
    return levels;
}

// The exact blur in double precision, ten sigma wide, laid over the picture.
Levels exactBlur(const QImage& image, double sigma)
{
    const Levels weights = weightsOf(sigma, int(10 * sigma));
    const Levels picture = levelsOf(image);
    Levels across(picture.size()), blurred(picture.size());
    const int stride = 4 * image.width();
    for (int c = 0; c < 4; ++c) {
        for (int y = 0; y < image.height(); ++y)
            blurLine(
                &picture[size_t(y * stride + c)], &across[size_t(y * stride + c)], image.width(), 4, weights);
    }
    for (int x = 0; x < stride; ++x)
        blurLine(&across[size_t(x)], &blurred[size_t(x)], image.height(), stride, weights);
    Levels composed(blurred);
    for (size_t i = 0; i < blurred.size(); ++i)
        composed[i] += (1 - blurred[i / 4 * 4 + 3] / 255) * picture[i];
    return composed;
}

double largestError(const QImage& blurred, const Levels& exact)
{
    const Levels levels = levelsOf(blurred);
    double error = 0;
    for (size_t i = 0; i < levels.size(); ++i)
        error = std::max(error, std::abs(levels[i] - exact[i]));
    return error;
}

QImage filled(QSize size, QImage::Format format, const std::function<QRgb(int x, int y)>& colour)
{
    QImage image(size, format);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            reinterpret_cast<QRgb*>(image.scanLine(y))[x] = colour(x, y);
    }
    return image;
}

// The fourth byte of an opaque picture is noise as well: a frame leaves it undefined.
QImage noise(QSize size, QImage::Format format)
{
    std::mt19937 random(1);
    return filled(size, format, [&](int, int) { return qPremultiply(QRgb(random())); });
}

// Black beyond `radius` around the middle: of all pictures the one that a cut off Gaussian gets most wrong.
QImage disc(QSize size, double radius)
{
    return filled(size, QImage::Format_RGB32, [&](int x, int y) {
        return std::hypot(x - size.width() / 2, y - size.height() / 2) < radius ? 0xffffffff : 0xff000000;
    });
}

void expectExact(const QImage& image, double sigma)
{
    SCOPED_TRACE(testing::Message() << image.width() << "x" << image.height() << ", format " << image.format()
                                    << ", sigma " << sigma);
    const QImage blurred = gaussianBlurred(image, sigma);
    ASSERT_EQ(blurred.size(), image.size());
    EXPECT_EQ(blurred.format(), image.format());
    EXPECT_LE(largestError(blurred, exactBlur(image, sigma)), 1.2);
}

}

TEST(GaussianBlur, LiesWithinALevelOfTheExactOne)
{
    for (const QSize size : {QSize(1, 1), {1, 70}, {70, 1}, {5, 3}, {130, 90}, {523, 37}, {37, 300}}) {
        for (QImage::Format format : {QImage::Format_RGB32, QImage::Format_ARGB32_Premultiplied}) {
            for (double sigma : {1.0, 2.5, 6.0, 9.0, 18.0})
                expectExact(noise(size, format), sigma);
        }
    }
    for (double sigma : {1.0, 3.0, 6.0, 9.0}) {
        for (double radius : {sigma, 3 * sigma, 3.5 * sigma})
            expectExact(disc({101, 99}, radius), sigma);
    }
}

TEST(GaussianBlur, KeepsAPlainPictureUpToItsEdges)
{
    QImage image(60, 45, QImage::Format_RGB32);
    image.fill(qRgb(255, 130, 7));
    EXPECT_EQ(gaussianBlurred(image, 9), image);
}

TEST(GaussianBlur, IsTheSameOnTwoThreads)
{
    const QImage image = noise({700, 300}, QImage::Format_RGB32);
    EXPECT_EQ(gaussianBlurred(image, 3, 2), gaussianBlurred(image, 3, 1));
}

TEST(GaussianBlur, ReturnsThePictureBelowSigmaOneAndWhereNothingOfItFallsOnThePicture)
{
    const QImage image = noise({40, 30}, QImage::Format_RGB32);
    for (double sigma : {0.99, 0.0, -3.0, std::nan(""), 1000.0, 1e9, HUGE_VAL})
        EXPECT_EQ(gaussianBlurred(image, sigma), image) << sigma;
    EXPECT_TRUE(gaussianBlurred({}, 3).isNull());
}

TEST(GaussianBlur, TakesAPartOfALargerPicture)
{
    const QImage image = noise({90, 60}, QImage::Format_RGB32);
    const QRect part(13, 7, 40, 30);
    const QImage borrowed(image.constScanLine(part.y()) + 4 * part.x(), part.width(), part.height(),
        image.bytesPerLine(), image.format());
    EXPECT_EQ(gaussianBlurred(borrowed, 6), gaussianBlurred(image.copy(part), 6));
}

// Only the fastest runs in the program; the others must be as good where it is missing.
TEST(GaussianRows, AgreeOnEveryProcessor)
{
    constexpr size_t kCount = 2 * GaussianRows::kBlock, kReach = 5,
                     kRows = 2 * kReach + GaussianRows::kRowsAtOnce;
    std::mt19937 random(3);
    std::vector<float> line(kCount + 8 * kReach), taps(kReach + 1),
        downTaps(kRows + GaussianRows::kRowsAtOnce - 1);
    for (std::vector<float>* values : {&line, &taps, &downTaps}) {
        for (float& value : *values)
            value = float(random() % 256);
    }
    std::vector<const float*> rows;
    for (size_t m = 0; m < kRows; ++m)
        rows.push_back(line.data() + m);
    const auto sums = [&](const GaussianRows& kind) {
        std::vector<float> all((1 + GaussianRows::kRowsAtOnce) * kCount);
        kind.across(line.data(), taps.data(), kReach, all.data(), kCount);
        kind.down(rows.data(), kRows, &downTaps[GaussianRows::kRowsAtOnce - 1], all.data() + kCount, kCount);
        return all; // whole numbers: exact in any order
    };
    for (const GaussianRows* kind : {GaussianRows::avx2(), GaussianRows::avx512()}) {
        if (kind) {
            EXPECT_EQ(sums(*kind), sums(GaussianRows::portable()));
        }
    }
}
