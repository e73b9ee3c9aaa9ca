#include "editor/StrokeMask.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace {

constexpr double kSoftness = 0.5; // device pixels on both sides of an edge

// A stretch of a row; first > last for none.
struct Stretch {
    double first = 0, last = -1;
    bool isEmpty() const { return first > last; }
};

Stretch hull(Stretch a, Stretch b)
{
    if (a.isEmpty() || b.isEmpty())
        return a.isEmpty() ? b : a;
    return {std::min(a.first, b.first), std::max(a.last, b.last)};
}

Stretch discInRow(QPointF center, double radius, double y)
{
    const double rise = y - center.y();
    if (std::abs(rise) > radius)
        return {};
    const double half = std::sqrt(radius * radius - rise * rise);
    return {center.x() - half, center.x() + half};
}

// Where low <= start + slope * x <= high.
Stretch solved(double start, double slope, double low, double high)
{
    constexpr double kAnywhere = 1e9;
    if (slope == 0)
        return low <= start && start <= high ? Stretch{-kAnywhere, kAnywhere} : Stretch{};
    const auto [first, last] = std::minmax({(low - start) / slope, (high - start) / slope});
    return {first, last};
}

// All places of a row that are no further than `radius` from a line piece.
Stretch pieceInRow(QPointF from, QPointF to, double radius, double y)
{
    if (radius <= 0)
        return {};
    const Stretch ends = hull(discInRow(from, radius, y), discInRow(to, radius, y));
    const QPointF by = to - from;
    const double square = QPointF::dotProduct(by, by);
    if (square == 0)
        return ends;
    const double rise = y - from.y();
    const double reach = radius * std::sqrt(square);
    const Stretch beside = solved(-rise * by.x(), by.y(), -reach, reach);
    const Stretch between = solved(rise * by.y(), by.x(), 0, square);
    const Stretch band{
        std::max(beside.first, between.first) + from.x(), std::min(beside.last, between.last) + from.x()};
    return hull(ends, band);
}

// The distance, squared, of points of one row from a line piece.
class SquaredDistance {
public:
    SquaredDistance(QPointF from, QPointF to, double y)
        : m_from(from)
        , m_by(to - from)
        , m_y(y)
        , m_inverse(m_by.isNull() ? 0 : 1 / QPointF::dotProduct(m_by, m_by))
    {
    }
    double operator()(double x) const
    {
        const QPointF offset(x - m_from.x(), m_y - m_from.y());
        const double along = std::clamp(QPointF::dotProduct(offset, m_by) * m_inverse, 0.0, 1.0);
        const QPointF apart = offset - along * m_by;
        return QPointF::dotProduct(apart, apart);
    }

private:
    QPointF m_from, m_by;
    double m_y;
    double m_inverse;
};

// (a * alpha + b * (255 - alpha)) / 255 for all channels, rounded.
QRgb mixed(QRgb a, QRgb b, uint alpha)
{
    const auto pair = [alpha](QRgb x, QRgb y) {
        const uint sum = (x & 0xff00ff) * alpha + (y & 0xff00ff) * (255 - alpha) + 0x800080;
        return ((sum + ((sum >> 8) & 0xff00ff)) >> 8) & 0xff00ff;
    };
    return pair(a, b) | (pair(a >> 8, b >> 8) << 8);
}

}

StrokeMask::StrokeMask(QSize pixels)
    : m_size(pixels.isValid() ? pixels : QSize(0, 0))
    , m_bytes(static_cast<uchar*>(std::calloc(size_t(m_size.width()) + 1, size_t(m_size.height()) + 1)),
          &std::free)
    , m_touched(size_t(m_size.height()))
{
}

bool StrokeMask::holdsBeginningOf(const Stroke& stroke) const
{
    return m_count > 0 && m_revision == stroke.record.revision &&
           m_count <= stroke.record.dragPoints->size() && m_toPixels == stroke.toPixels &&
           m_radius == stroke.width / 2 * std::abs(stroke.toPixels.m11());
}

bool StrokeMask::isContinuedBy(const Stroke& stroke) const
{
    return holdsBeginningOf(stroke) && m_count < stroke.record.dragPoints->size();
}

QRect StrokeMask::cover(const Stroke& stroke)
{
    if (!holdsBeginningOf(stroke)) {
        clear();
        m_revision = stroke.record.revision;
        m_toPixels = stroke.toPixels;
        m_radius = stroke.width / 2 * std::abs(stroke.toPixels.m11());
    }
    const DragPoints& points = *stroke.record.dragPoints;
    QRect added;
    for (; m_count < points.size(); ++m_count) {
        const ZRPoint from = points[m_count == 0 ? 0 : m_count - 1].point();
        const ZRPoint to = points[m_count].point();
        added |= addPiece(m_toPixels.map(QPointF(from.x, from.y)), m_toPixels.map(QPointF(to.x, to.y)));
    }
    return added;
}

void StrokeMask::paint(QImage& picture, const QColor& color, const QRect& clip) const
{
    const QRect area = clip & m_bounds;
    const auto alpha = uint(color.alpha());
    for (int y = area.top(); y <= area.bottom(); ++y) {
        const uchar* coverage = row(y);
        auto* pixels = reinterpret_cast<QRgb*>(picture.scanLine(y));
        const int end = std::min(area.right() + 1, m_touched[size_t(y)].end);
        for (int x = std::max(area.left(), m_touched[size_t(y)].first); x < end; ++x)
            if (coverage[x])
                pixels[x] = mixed(color.rgb(), pixels[x], (coverage[x] * alpha + 127) / 255);
    }
}

void StrokeMask::clear()
{
    for (int y = m_bounds.top(); y <= m_bounds.bottom(); ++y) {
        Columns& touched = m_touched[size_t(y)];
        std::memset(row(y) + touched.first, 0, size_t(touched.end - touched.first));
        touched = {};
    }
    m_bounds = {};
    m_count = 0;
}

// The pixels whose middles lie in a stretch of a row.
StrokeMask::Columns StrokeMask::columnsOf(double first, double last) const
{
    return {
        std::max(0, int(std::ceil(first - 0.5))), std::min(m_size.width(), int(std::floor(last - 0.5)) + 1)};
}

QRect StrokeMask::addPiece(QPointF from, QPointF to)
{
    const double reach = m_radius + kSoftness;
    const QRectF line = QRectF(from, to).normalized();
    const QRect bounds =
        line.adjusted(-reach, -reach, reach, reach).toAlignedRect() & QRect(QPoint(0, 0), m_size);
    for (int y = bounds.top(); y <= bounds.bottom(); ++y)
        addToRow(y, from, to);
    m_bounds |= bounds;
    return bounds;
}

void StrokeMask::addToRow(int y, QPointF from, QPointF to)
{
    const double middle = y + 0.5;
    const double reach = m_radius + kSoftness;
    const Stretch touching = pieceInRow(from, to, reach, middle);
    const Stretch inside = pieceInRow(from, to, m_radius - kSoftness, middle);
    const Columns soft = columnsOf(touching.first, touching.last);
    const Columns full = columnsOf(inside.first, inside.last);
    if (soft.first >= soft.end)
        return;
    const SquaredDistance squaredDistance(from, to, middle);
    uchar* coverage = row(y);
    for (int x = soft.first; x < soft.end; ++x) {
        if (x == full.first && full.end > x) {
            std::memset(coverage + x, 255, size_t(full.end - x));
            x = full.end - 1;
            continue;
        }
        const double share = std::clamp(reach - std::sqrt(squaredDistance(x + 0.5)), 0.0, 1.0);
        coverage[x] = std::max(coverage[x], uchar(std::lround(share * 255)));
    }
    Columns& touched = m_touched[size_t(y)];
    touched = touched.end == 0
                  ? soft
                  : Columns{std::min(touched.first, soft.first), std::max(touched.end, soft.end)};
}
