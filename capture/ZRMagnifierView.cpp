#include "capture/ZRMagnifierView.h"

#include "capture/ChromeRules.h"
#include "capture/MagnifierArt.h"

namespace {

constexpr int kTextSize = 11; // points, as all sizes here
constexpr int kSmallTextSize = 9;
constexpr int kLargeTextSize = 14;
constexpr int kSizeTextSize = 12;
constexpr double kLabelMargin = 9;
constexpr double kSwatchSide = 10;
constexpr double kSwatchGap = 6;

QString textOf(const std::optional<QColor>& colour)
{
    return colour ? ChromeRules::hexText(*colour) : QString();
}

}

ZRMagnifierView* ZRMagnifierView::loadForNib(QWidget* parent)
{
    return new ZRMagnifierView(parent);
}

// Kept: the region takes no part.
void ZRMagnifierView::showMagnifierWithContent(
    const QImage& content, ZRPoint mouseLocation, ZRRect, const std::optional<QColor>& withColor)
{
    m_colour = withColor;
    show(content, mouseLocation, {ChromeRules::pairText(mouseLocation.x, mouseLocation.y), kTextSize},
        {textOf(withColor), kTextSize});
}

void ZRMagnifierView::showMagnifierWithContent(
    const QImage& content, ZRPoint mouseLocation, const std::optional<QColor>& withColor)
{
    m_colour = withColor;
    show(content, mouseLocation, {ChromeRules::pairText(mouseLocation.x, mouseLocation.y), kSmallTextSize},
        {textOf(withColor), kLargeTextSize});
}

void ZRMagnifierView::showMagnifierWithContent(
    const QImage& content, ZRPoint mouseLocation, ZRSize selectSize)
{
    m_colour.reset();
    show(content, mouseLocation, {ChromeRules::sizeText(selectSize), kSizeTextSize}, {});
}

void ZRMagnifierView::hideMagnifierView()
{
    repaintAround([this] {
        mScaleImage.setContent({});
        m_isShown = false;
    });
}

void ZRMagnifierView::showColourCopied()
{
    repaintAround([this] { m_isCopied = true; });
}

void ZRMagnifierView::show(const QImage& content, ZRPoint mouseLocation, Label value, Label location)
{
    repaintAround([&] {
        const ZRPoint origin =
            ChromeRules::magnifierOrigin(mouseLocation, MagnifierArt::kSize, displaySize());
        m_rect = {origin.x, origin.y, MagnifierArt::kSize.width, MagnifierArt::kSize.height};
        mScaleImage.setContent(content);
        mPixelColorValueLabel = std::move(value);
        mLocationLabel = std::move(location);
        m_isShown = true;
        m_isCopied = false;
    });
}

void ZRMagnifierView::makeReady()
{
    const double scale = devicePixelRatioF();
    const int side = ChromeRules::sampleSide(scale);
    mBackImage = MagnifierArt::drawn(MagnifierLens::diameter(side), MagnifierLens::middleCell(side), scale);
}

QRegion ZRMagnifierView::touchedPixels() const
{
    return m_isShown ? QRegion(QRect(devicePixels(m_rect).topLeft(), mBackImage.size())) : QRegion();
}

void ZRMagnifierView::paintPixels(QPainter& painter, const QRegion& dirty)
{
    if (!m_isShown)
        return;
    const QPoint corner = devicePixels(m_rect).topLeft();
    const double scale = devicePixelRatioF();
    const QImage& lens = mScaleImage.picture();
    for (const QRect& part : dirty& touchedPixels()) {
        painter.setClipRect(part); // a clip of several rectangles is many times as slow
        painter.drawImage(corner + MagnifierArt::lensCorner(lens.width(), scale), lens);
        painter.drawImage(part.topLeft(), mBackImage, part.translated(-corner));
    }
    painter.setClipping(false);
    const QRect plate = MagnifierArt::plate(scale).translated(corner);
    if (dirty.intersects(plate))
        paintLabels(painter, plate);
}

// The position stands left, the colour right; a position alone stands in the middle.
void ZRMagnifierView::paintLabels(QPainter& painter, QRect plate) const
{
    const int margin = qRound(kLabelMargin * devicePixelRatioF());
    const QRect inner = plate.adjusted(margin, 0, -margin, 0);
    const bool isAlone = mLocationLabel.text.isEmpty();
    painter.setPen(Qt::white);
    painter.setFont(fontOf(mPixelColorValueLabel));
    painter.drawText(
        inner, (isAlone ? Qt::AlignHCenter : Qt::AlignLeft) | Qt::AlignVCenter, mPixelColorValueLabel.text);
    if (!isAlone)
        paintColour(painter, inner);
}

// Its text begins at one place, whatever digits it has.
void ZRMagnifierView::paintColour(QPainter& painter, QRect inner) const
{
    const double scale = devicePixelRatioF();
    painter.setFont(fontOf(mLocationLabel));
    const int textWidth = painter.fontMetrics().horizontalAdvance(QStringLiteral("#dddddd"));
    const QRect text = inner.adjusted(inner.width() - textWidth, 0, 0, 0);
    painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter, mLocationLabel.text);
    const int side = qRound(kSwatchSide * scale);
    const QPoint corner(
        text.left() - qRound(kSwatchGap * scale) - side, inner.top() + (inner.height() - side) / 2);
    paintSwatch(painter, {corner, QSize(side, side)});
}

// The colour itself, or a tick.
void ZRMagnifierView::paintSwatch(QPainter& painter, QRect square) const
{
    const double scale = devicePixelRatioF();
    painter.setRenderHint(QPainter::Antialiasing, m_isCopied);
    if (m_isCopied) {
        const QRectF box(square);
        painter.setPen(QPen(Qt::white, 1.75 * scale, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPolyline(QPolygonF({box.topLeft() + QPointF(0.05, 0.55) * box.width(),
            box.topLeft() + QPointF(0.38, 0.88) * box.width(),
            box.topLeft() + QPointF(0.95, 0.15) * box.width()}));
        return;
    }
    const int line = qMax(1, qRound(scale));
    painter.fillRect(square, Qt::white);
    painter.fillRect(square.adjusted(line, line, -line, -line), m_colour.value_or(QColor()));
}

QFont ZRMagnifierView::fontOf(const Label& label) const
{
    QFont result = font();
    result.setPixelSize(qRound(label.size * devicePixelRatioF()));
    return result;
}
