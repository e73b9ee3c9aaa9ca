#include "capture/ZRScreenshotCursorView.h"

#include "capture/ChromeRules.h"
#include "customui/Images.h"

namespace {

constexpr QColor kLineColor(50, 166, 255);

}

ZRScreenshotCursorView::ZRScreenshotCursorView(QWidget* parent)
    : ChromeLayer(parent)
{
}

void ZRScreenshotCursorView::updateCrossLocation(ZRPoint location)
{
    if (location != mLocation)
        repaintAround([&] { mLocation = location; });
}

void ZRScreenshotCursorView::setCrosimage(const QPixmap& image)
{
    repaintAround([&] {
        mCrossImage = image;
        m_hasOwnImage = true;
        _hideLine = true;
    });
}

void ZRScreenshotCursorView::setHideLine(bool isHidden)
{
    if (isHidden != _hideLine)
        repaintAround([&] { _hideLine = isHidden; });
}

void ZRScreenshotCursorView::setLineColor(const std::optional<QColor>& color)
{
    if (color != _lineColor)
        repaintAround([&] { _lineColor = color; });
}

void ZRScreenshotCursorView::setShown(bool isShown)
{
    if (isShown != m_isShown)
        repaintAround([&] { m_isShown = isShown; });
}

void ZRScreenshotCursorView::makeReady()
{
    if (m_hasOwnImage)
        return;
    const QString name = QStringLiteral("crossImage");
    mCrossImage = imageNamed(name, imageSize(name), devicePixelRatioF());
}

QRegion ZRScreenshotCursorView::touchedPixels() const
{
    return m_isShown ? linePixels() + imagePixels() : QRegion();
}

QRegion ZRScreenshotCursorView::linePixels() const
{
    if (_hideLine)
        return {};
    const auto lines = ChromeRules::crossLines(pixelAt(mLocation), displayPixels(), devicePixelRatioF());
    return QRegion(lines[0]) + lines[1];
}

QRect ZRScreenshotCursorView::imagePixels() const
{
    const double ratio = mCrossImage.devicePixelRatio();
    const ZRSize points{mCrossImage.width() / ratio, mCrossImage.height() / ratio};
    const QRect pixels = devicePixels(ChromeRules::crossImageRect(mLocation, points));
    const QSizeF size = QSizeF(mCrossImage.size()) * (devicePixelRatioF() / ratio);
    return {pixels.topLeft(), size.toSize()}; // the same size everywhere
}

void ZRScreenshotCursorView::paintPixels(QPainter& painter, const QRegion& dirty)
{
    if (!m_isShown)
        return;
    const QColor color = _lineColor.value_or(kLineColor);
    for (const QRect& part : dirty& linePixels()) {
        painter.setClipRect(part); // a clip of several rectangles is many times as slow
        painter.fillRect(part, color);
    }
    painter.setClipping(false);
    if (!mCrossImage.isNull() && dirty.intersects(imagePixels()))
        painter.drawPixmap(imagePixels(), mCrossImage);
}
