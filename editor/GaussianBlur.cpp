#include "editor/GaussianBlur.h"
#include "editor/GaussianRows.h"

#include <QImage>
#include <QtEndian>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <future>
#include <system_error>
#include <vector>

static_assert(Q_BYTE_ORDER == Q_LITTLE_ENDIAN, "The row work takes a pixel's fourth byte for its alpha");

namespace {

constexpr double kWidestSigma = 4096; // pixels; beyond it a screen is one colour
constexpr int kStripPixels = 512;     // the rows of a strip that are in work stay in the processor's cache
constexpr int kCacheLinePixels = 16;
constexpr qint64 kPixelsForTwo = 100'000;
constexpr int kRowsAtOnce = int(GaussianRows::kRowsAtOnce);

// The weights from the middle on. What lies beyond 3.2 sigma holds a seven-hundredth of the whole: a third of
// a level at most, each way.
std::vector<float> tapsOf(double sigma)
{
    const int reach = int(std::ceil(3.2 * sigma - 0.5));
    std::vector<double> weights;
    double sum = 0;
    for (int k = 0; k <= reach; ++k) {
        weights.push_back(std::exp(-k * k / (2 * sigma * sigma)));
        sum += k == 0 ? 1 : 2 * weights.back();
    }
    std::vector<float> taps;
    for (double weight : weights)
        taps.push_back(float(weight / sum));
    return taps;
}

// The weights from one end to the other, between the zeros that rows made together need.
std::vector<float> mirrored(const std::vector<float>& taps, int reach)
{
    std::vector<float> all(size_t(2 * (reach + kRowsAtOnce) - 1));
    for (int k = -reach; k <= reach; ++k)
        all[size_t(k + reach + kRowsAtOnce - 1)] = taps[size_t(std::abs(k))];
    return all;
}

// What all strips share; the picture has 32 bits a pixel.
struct Job {
    const QImage& picture;
    uchar* blurred; // as large as the picture
    qsizetype blurredStride;
    const GaussianRows& work = GaussianRows::best();
    std::vector<float> taps;
    int acrossReach; // pixels; weights further out meet nothing but the outside
    int downReach;
    std::vector<float> downTaps;
    int strips;
    int stripWidth;

    Job(const QImage& from, QImage& to, double sigma)
        : picture(from)
        , blurred(to.bits())
        , blurredStride(to.bytesPerLine())
        , taps(tapsOf(sigma))
        , acrossReach(std::min(int(taps.size()), from.width()) - 1)
        , downReach(std::min(int(taps.size()), from.height()) - 1)
        , downTaps(mirrored(taps, downReach))
        , strips((from.width() + kStripPixels - 1) / kStripPixels)
        , stripWidth((from.width() + strips - 1) / strips)
    {
    }

    int reach() const { return int(taps.size()) - 1; }
    // Whether the blur of a row, or of any column, takes nothing from the outside.
    bool isRowInside(int y) const { return y >= reach() && y < picture.height() - reach(); }
    bool hasColumnsInside() const { return picture.width() > 2 * reach(); }
};

// Blurs one strip of columns after the other: each row across, into a ring of floats, and from there down.
class StripBlur {
public:
    explicit StripBlur(const Job& job)
        : m_job(job)
        , m_rowFloats(roundedUp(4 * size_t(job.stripWidth)))
        , m_ringRows(2 * job.downReach + kRowsAtOnce)
        , m_mask(m_rowFloats + 8 * size_t(job.acrossReach))
        , m_line(m_mask.size())
        , m_ring(size_t(m_ringRows) * m_rowFloats)
        , m_outside(m_rowFloats)
        , m_sums(size_t(kRowsAtOnce) * m_rowFloats)
        , m_rows(size_t(m_ringRows))
    {
        if (isOpaque()) {
            for (size_t i = 3; i < m_mask.size(); i += 4)
                m_mask[i] = 255;
        }
    }

    void run(int strip)
    {
        m_left = strip * m_job.stripWidth;
        m_right = std::min(m_left + m_job.stripWidth, m_job.picture.width());
        std::fill(m_line.begin(), m_line.end(), 0.f);
        const int height = m_job.picture.height();
        int taken = 0;
        for (int y = 0; y < height; y += kRowsAtOnce) {
            for (; taken < std::min(height, y + kRowsAtOnce + m_job.downReach); ++taken)
                takeRow(taken);
            sumRows(y);
            for (int row = y; row < std::min(height, y + kRowsAtOnce); ++row)
                finishRow(row, &m_sums[size_t(row - y) * m_rowFloats]);
        }
    }

private:
    static size_t roundedUp(size_t floats)
    {
        return (floats + GaussianRows::kBlock - 1) / GaussianRows::kBlock * GaussianRows::kBlock;
    }

    bool isOpaque() const { return !m_job.picture.hasAlphaChannel(); }
    float* ringRow(int y) { return &m_ring[size_t(y % m_ringRows) * m_rowFloats]; }

    // A strip takes a piece of each row, and processors do not foresee the way from one piece to the next.
    void fetchAhead(int y, int begin, int end) const
    {
        if (y >= m_job.picture.height())
            return;
        const uchar* row = m_job.picture.constScanLine(y);
        for (int x = begin; x < end; x += kCacheLinePixels)
            __builtin_prefetch(row + 4 * x);
    }

    void takeRow(int y)
    {
        const int begin = std::max(0, m_left - m_job.acrossReach);
        const int end = std::min(m_job.picture.width(), m_right + m_job.acrossReach);
        float* line = &m_line[4 * size_t(begin - m_left + m_job.acrossReach)];
        fetchAhead(y + kRowsAtOnce, begin, end);
        m_job.work.widen(
            m_job.picture.constScanLine(y) + 4 * begin, m_mask.data(), line, 4 * size_t(end - begin));
        m_job.work.across(
            m_line.data(), m_job.taps.data(), size_t(m_job.acrossReach), ringRow(y), m_rowFloats);
    }

    void sumRows(int y)
    {
        for (int m = 0; m < m_ringRows; ++m) {
            const int row = y - m_job.downReach + m;
            const bool isInside = row >= 0 && row < m_job.picture.height();
            m_rows[size_t(m)] = isInside ? ringRow(row) : m_outside.data();
        }
        m_job.work.down(
            m_rows.data(), m_rows.size(), &m_job.downTaps[kRowsAtOnce - 1], m_sums.data(), m_rowFloats);
    }

    void finishRow(int y, float* sums)
    {
        const int width = m_job.picture.width();
        const bool isPartCovered = isOpaque() && m_job.isRowInside(y) && m_job.hasColumnsInside();
        compose(y, sums, m_left, isPartCovered ? std::min(m_right, m_job.reach()) : m_right);
        if (isPartCovered)
            compose(y, sums, std::max(m_left, width - m_job.reach()), m_right);
        m_job.work.narrow(
            sums, m_job.blurred + y * m_job.blurredStride + 4 * m_left, 4 * size_t(m_right - m_left));
    }

    // Columns from `begin` up to `end`; none when they have crossed.
    void compose(int y, float* sums, int begin, int end)
    {
        if (begin < end)
            m_job.work.compose(sums + 4 * (begin - m_left), m_job.picture.constScanLine(y) + 4 * begin,
                m_mask.data(), 4 * size_t(end - begin));
    }

    const Job& m_job;
    const size_t m_rowFloats;
    const int m_ringRows;
    std::vector<uint8_t> m_mask;  // sets the alpha of pictures that have none
    std::vector<float> m_line;    // a row of the strip and what it reaches on both sides
    std::vector<float> m_ring;    // rows blurred across
    std::vector<float> m_outside; // a row of zeros
    std::vector<float> m_sums;
    std::vector<const float*> m_rows;
    int m_left = 0;
    int m_right = 0;
};

// Takes strips until none is left; `next` is the first that nobody has taken.
void blurStrips(const Job& job, std::atomic<int>& next)
{
    StripBlur blur(job);
    for (int strip = next++; strip < job.strips; strip = next++)
        blur.run(strip);
}

void blurOnTwoThreads(const Job& job)
{
    std::atomic<int> next = 0;
    std::future<void> other;
    try {
        other = std::async(std::launch::async, [&] { blurStrips(job, next); });
    } catch (const std::system_error&) { // no thread to be had: all strips are ours
    }
    blurStrips(job, next);
}

QImage as32Bits(const QImage& picture)
{
    return picture.convertToFormat(
        picture.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
}

}

QImage gaussianBlurred(const QImage& picture, double sigma, int threads)
{
    if (!(sigma >= 1) || picture.isNull())
        return picture;
    const QImage from = as32Bits(picture);
    QImage to(from.size(), from.format());
    if (from.isNull() || to.isNull())
        return {};
    to.setDevicePixelRatio(from.devicePixelRatio());
    const Job job(from, to, std::min(sigma, kWidestSigma));
    const bool isLarge = qint64(from.width()) * from.height() >= kPixelsForTwo;
    if (threads > 1 && isLarge && job.strips > 1) {
        blurOnTwoThreads(job);
    } else {
        std::atomic<int> next = 0;
        blurStrips(job, next);
    }
    return to;
}
