#include "bench/png/ScreenPictures.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

namespace {

using Random = std::mt19937;

struct Look {
    QColor paper, ink, accent;
    bool code;
    QFont::StyleStrategy smoothing;
    bool subpixels; // smoothed over the display's red, green and blue stripes
};

const Look kLooks[] = {
    {QColor(255, 255, 255), QColor(30, 30, 30), QColor(0, 92, 197), false, QFont::PreferAntialias, false},
    {QColor(30, 31, 34), QColor(188, 190, 196), QColor(207, 142, 109), true, QFont::PreferAntialias, false},
    {QColor(250, 250, 248), QColor(40, 44, 52), QColor(166, 38, 164), true, QFont::PreferAntialias, true},
    {QColor(245, 246, 247), QColor(60, 60, 60), QColor(38, 162, 105), false, QFont::NoAntialias, false},
};

QString word(Random& random)
{
    static const char* const kSyllables[] = {"re", "con", "ti", "na", "lo", "ver", "sa", "men", "to", "pri",
        "den", "ar", "is", "ul", "ma", "per", "qua", "est", "ob", "fi", "gra", "wo", "ki", "ly"};
    QString made;
    for (int left = 1 + int(random() % 4); left > 0; --left)
        made += QLatin1String(kSyllables[random() % std::size(kSyllables)]);
    return made;
}

QString line(Random& random, bool code, int characters)
{
    static const char* const kJoints[] = {" ", "(", ") ", "->", " = ", ", ", "; ", "::", " + ", "[0] "};
    QString made(code ? 4 * int(random() % 5) : 0, QLatin1Char(' '));
    while (made.size() < characters)
        made += word(random) + QLatin1String(code ? kJoints[random() % std::size(kJoints)] : " ");
    return made;
}

void paintTitleBar(QPainter& p, QRect bar, const QString& title)
{
    QLinearGradient shade(bar.topLeft(), bar.bottomLeft());
    shade.setColorAt(0, QColor(236, 236, 236));
    shade.setColorAt(1, QColor(209, 209, 209));
    p.fillRect(bar, shade);
    const QColor buttons[] = {QColor(255, 95, 86), QColor(255, 189, 46), QColor(39, 201, 63)};
    p.setPen(Qt::NoPen);
    for (int i = 0; i < 3; ++i) {
        p.setBrush(buttons[i]);
        p.drawEllipse(bar.left() + 12 + 24 * i, bar.top() + 10, 14, 14);
    }
    p.setPen(QColor(70, 70, 70));
    p.drawText(bar, Qt::AlignCenter, title);
}

void paintText(QPainter& p, QRect page, const Look& look, Random& random)
{
    QFont font(look.code ? QStringLiteral("DejaVu Sans Mono") : QStringLiteral("DejaVu Sans"));
    font.setPixelSize(look.code ? 19 : 21);
    font.setStyleStrategy(look.smoothing);
    p.setFont(font);
    const int step = p.fontMetrics().height() + 3;
    for (int y = page.top() + step; y < page.bottom() - 8; y += step) {
        const bool gap = random() % 9 == 0;
        if (gap)
            continue;
        p.setPen(random() % 6 == 0 ? look.accent : look.ink);
        const int room = page.width() / p.fontMetrics().averageCharWidth() - 8;
        const int full = look.code ? 10 + int(random() % 60) : 4000;
        p.drawText(page.left() + 20, y, line(random, look.code, std::min(room, full)));
    }
}

// A page painted three times as wide, each colour taken at its own stripe from the mean of three columns.
QImage onStripes(const QImage& wide)
{
    QImage page(wide.width() / 3, wide.height(), QImage::Format_RGB32);
    for (int y = 0; y < page.height(); ++y) {
        const auto* from = reinterpret_cast<const QRgb*>(wide.constScanLine(y));
        const auto mean = [&](int column, int (*part)(QRgb)) {
            const int left = std::max(column - 1, 0), right = std::min(column + 1, wide.width() - 1);
            return (part(from[left]) + part(from[column]) + part(from[right])) / 3;
        };
        for (int x = 0; x < page.width(); ++x)
            page.setPixel(x, y, qRgb(mean(3 * x, qRed), mean(3 * x + 1, qGreen), mean(3 * x + 2, qBlue)));
    }
    return page;
}

void paintPage(QPainter& p, QRect page, const Look& look, Random& random)
{
    if (!look.subpixels)
        return paintText(p, page, look, random);
    QImage wide(page.width() * 3, page.height(), QImage::Format_RGB32);
    wide.fill(look.paper);
    QPainter painter(&wide);
    painter.scale(3, 1);
    paintText(painter, QRect(QPoint(0, 0), page.size()), look, random);
    painter.end();
    p.drawImage(page.topLeft(), onStripes(wide));
}

void paintWindow(QPainter& p, QRect frame, const Look& look, Random& random)
{
    for (int ring = 14; ring > 0; --ring) {
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(0, 0, 0, 5));
        p.drawRoundedRect(frame.adjusted(-ring, -ring + 4, ring, ring + 6), 12, 12);
    }
    p.save();
    QPainterPath outline;
    outline.addRoundedRect(frame, 9, 9);
    p.setClipPath(outline);
    p.fillRect(frame, look.paper);
    paintTitleBar(p, QRect(frame.topLeft(), QSize(frame.width(), 34)),
        word(random) + QStringLiteral(" - ") + word(random));
    paintPage(p, frame.adjusted(0, 34, 0, 0), look, random);
    p.restore();
}

void paintIcon(QPainter& p, QPoint at, Random& random)
{
    const QRect box(at, QSize(72, 72));
    QRadialGradient shade(box.center() - QPoint(14, 18), 60);
    shade.setColorAt(0, QColor::fromHsv(int(random() % 360), 110, 250));
    shade.setColorAt(1, QColor::fromHsv(int(random() % 360), 200, 150));
    p.setPen(QPen(QColor(255, 255, 255, 120), 2));
    p.setBrush(shade);
    p.drawRoundedRect(box, 16, 16);
    p.setBrush(QColor(255, 255, 255, 200));
    p.drawEllipse(box.adjusted(20, 20, -20, -20));
    p.setPen(Qt::white);
    p.drawText(QRect(at + QPoint(-30, 76), QSize(132, 24)), Qt::AlignCenter, word(random));
}

void paintPanel(QPainter& p, QRect panel)
{
    QLinearGradient shade(panel.topLeft(), panel.bottomLeft());
    shade.setColorAt(0, QColor(52, 58, 70));
    shade.setColorAt(1, QColor(36, 40, 50));
    p.fillRect(panel, shade);
    p.setPen(Qt::white);
    p.drawText(panel.adjusted(16, 0, -16, 0), Qt::AlignVCenter | Qt::AlignLeft,
        QStringLiteral("File   Edit   View   Window   Help"));
    p.drawText(panel.adjusted(16, 0, -16, 0), Qt::AlignVCenter | Qt::AlignRight, QStringLiteral("Tue 14:07"));
}

void paintDesktop(QImage& image, int windows, unsigned seed)
{
    Random random(seed);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    const int w = image.width(), h = image.height();
    for (int i = 0; i < 8; ++i)
        paintIcon(p, QPoint(w - 130, 80 + i * 125), random);
    for (int i = 0; i < windows; ++i) {
        const QSize size(w / 3 + int(random() % unsigned(w / 6)), h / 2 + int(random() % unsigned(h / 5)));
        const QPoint at(int(random() % unsigned(w - size.width() - 140)),
            50 + int(random() % unsigned(h - size.height() - 60)));
        paintWindow(p, QRect(at, size), kLooks[size_t(i) % std::size(kLooks)], random);
    }
    paintPanel(p, QRect(0, 0, w, 32));
}

// Noise on a lattice of `cell` pixels, read smoothly between its points; 0 to 1.
class Octave {
public:
    Octave(QSize size, int cell, unsigned seed)
        : m_cell(cell)
        , m_columns(size.width() / cell + 2)
        , m_values(size_t(m_columns) * size_t(size.height() / cell + 2))
    {
        Random random(seed);
        for (float& value : m_values)
            value = float(random() % 65536) / 65535.f;
    }
    float at(int x, int y) const
    {
        const float* corner = &m_values[size_t(y / m_cell) * size_t(m_columns) + size_t(x / m_cell)];
        const float fx = eased(x), fy = eased(y);
        const float top = std::lerp(corner[0], corner[1], fx);
        return std::lerp(top, std::lerp(corner[m_columns], corner[m_columns + 1], fx), fy);
    }

private:
    float eased(int position) const
    {
        const float t = float(position % m_cell) / float(m_cell);
        return t * t * (3 - 2 * t);
    }

    int m_cell, m_columns;
    std::vector<float> m_values;
};

QRgb wallpaperColour(float height, int grain)
{
    const auto level = [&](float low, float high) {
        return std::clamp(int(std::lerp(low, high, height)) + grain, 0, 255);
    };
    return qRgb(level(20, 240), level(45, 190), level(80, 150));
}

void paintWallpaper(QImage& image)
{
    std::vector<Octave> octaves;
    for (int cell = 512; cell >= 8; cell /= 2)
        octaves.emplace_back(image.size(), cell, unsigned(cell));
    Random random(7);
    for (int y = 0; y < image.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            float height = 0, weight = 0.5f;
            for (const Octave& octave : octaves) {
                height += weight * octave.at(x, y);
                weight /= 2;
            }
            row[x] = wallpaperColour(height, int(random() % 7) - 3);
        }
    }
}

} // namespace

QImage ScreenPictures::flatDesktop(QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(QColor(44, 90, 120));
    paintDesktop(image, 7, 1);
    return image;
}

QImage ScreenPictures::noisyDesktop(QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    paintWallpaper(image);
    paintDesktop(image, 2, 2);
    return image;
}
