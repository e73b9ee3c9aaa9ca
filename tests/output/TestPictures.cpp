#include "tests/output/TestPictures.h"

#include <functional>
#include <random>

namespace {

using Colour = std::function<QRgb(int x, int y)>;

QImage painted(int width, int height, const Colour& colour)
{
    std::mt19937 random(5);
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < width; ++x)
            row[x] = (colour(x, y) & 0xffffff) | QRgb(random() << 24);
    }
    return image;
}

}

std::vector<TestPictures::Named> TestPictures::ofSize(int width, int height)
{
    std::mt19937 random(3);
    const auto noise = [&](int, int) { return QRgb(random()); };
    const auto blocks = [](int x, int y) {
        return (x / 3 * 7 + y / 5 * 3) % 4 ? qRgb(255, 255, 255) : qRgb(20, 30, 40);
    };
    const auto curved = [](int x, int y) { return qRgb(x * x / 7 + y * 3, y * y / 5 + x, x * y / 9); };
    return {
        {"plain", painted(width, height, [](int, int) { return qRgb(12, 200, 77); })},
        {"along", painted(width, height, [](int x, int) { return qRgb(x * 3, x * 5, 255 - x * 7); })},
        {"across", painted(width, height, [](int, int y) { return qRgb(y * 9, y, 128 + y * 2); })},
        {"curved", painted(width, height, curved)},
        {"noise", painted(width, height, noise)},
        {"blocks", painted(width, height, blocks)},
    };
}

std::vector<TestPictures::Named> TestPictures::ofAwkwardWidths()
{
    std::vector<Named> all;
    for (int width : {1, 2, 3, 5, 10, 11, 15, 16, 17, 31, 32, 33, 100}) {
        for (Named& picture : ofSize(width, 9))
            all.push_back({picture.name + " of width " + std::to_string(width), std::move(picture.image)});
    }
    return all;
}

QImage TestPictures::borrowedPart(const QImage& whole, QRect part)
{
    const uchar* first = whole.constScanLine(part.y()) + qsizetype(part.x()) * 4;
    return QImage(first, part.width(), part.height(), whole.bytesPerLine(), whole.format());
}

QImage TestPictures::withColours(int count)
{
    return painted(64, 48, [=](int x, int y) {
        const int colour = (x + y * 64) % count;
        return qRgb(colour * 5, 255 - colour / 2, colour);
    });
}

QImage TestPictures::decoded(const QByteArray& bytes, const char* format)
{
    return QImage::fromData(bytes, format).convertToFormat(QImage::Format_RGB32);
}

bool TestPictures::samePixels(const QImage& a, const QImage& b)
{
    if (a.size() != b.size())
        return false;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            if ((a.pixel(x, y) ^ b.pixel(x, y)) & 0xffffff)
                return false;
        }
    }
    return true;
}
