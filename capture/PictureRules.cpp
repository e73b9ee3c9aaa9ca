#include "capture/PictureRules.h"

#include <QtMath>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace {

// The share of each old pixel in one new one, along one axis.
struct Share {
    int pixel;
    double weight;
};

std::vector<Share> sharesOf(int newPixel, double step, int oldSize)
{
    const double from = newPixel * step;
    const double to = std::min<double>(from + step, oldSize);
    std::vector<Share> shares;
    for (int p = int(std::floor(from)); p < to; ++p)
        shares.push_back({p, std::min<double>(p + 1, to) - std::max<double>(p, from)});
    return shares;
}

std::vector<std::vector<Share>> sharesOfAxis(int newSize, double step, int oldSize)
{
    std::vector<std::vector<Share>> all(newSize);
    for (int i = 0; i < newSize; ++i)
        all[i] = sharesOf(i, step, oldSize);
    return all;
}

QRgb mean(const QImage& picture, const std::vector<Share>& columns, const std::vector<Share>& rows)
{
    std::array<double, 4> sum{}; // red, green, blue, weight
    for (const Share& row : rows) {
        const auto* line = reinterpret_cast<const QRgb*>(picture.constScanLine(row.pixel));
        for (const Share& column : columns) {
            const QRgb pixel = line[column.pixel];
            const double weight = row.weight * column.weight;
            sum[0] += weight * qRed(pixel);
            sum[1] += weight * qGreen(pixel);
            sum[2] += weight * qBlue(pixel);
            sum[3] += weight;
        }
    }
    return qRgb(qRound(sum[0] / sum[3]), qRound(sum[1] / sum[3]), qRound(sum[2] / sum[3]));
}

int sizeInPoints(int pixels, double scale)
{
    return std::max(1, qRound(pixels / scale));
}

}

QImage PictureRules::averagedToPoints(const QImage& picture, double scale)
{
    if (scale == 1 || picture.isNull())
        return picture;
    QImage result(
        sizeInPoints(picture.width(), scale), sizeInPoints(picture.height(), scale), QImage::Format_RGB32);
    const auto columns =
        sharesOfAxis(result.width(), double(picture.width()) / result.width(), picture.width());
    const auto rows =
        sharesOfAxis(result.height(), double(picture.height()) / result.height(), picture.height());
    for (int y = 0; y < result.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(result.scanLine(y));
        for (int x = 0; x < result.width(); ++x)
            line[x] = mean(picture, columns[x], rows[y]);
    }
    return result;
}
