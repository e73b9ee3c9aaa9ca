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
    if (!m_isShown)
        return {};
    QRegion pixels = imagePixels();
    if (!_hideLine)
        for (const QRect& line :
            ChromeRules::crossLines(pixelAt(mLocation), displayPixels(), devicePixelRatioF()))
            pixels += line;
    return pixels;
}

QRect ZRScreenshotCursorView::imagePixels() const
{
    const double ratio = mCrossImage.devicePixelRatio();
    const ZRSize points{mCrossImage.width() / ratio, mCrossImage.height() / ratio};
    const QRect pixels = devicePixels(ChromeRules::crossImageRect(mLocation, points));
    const QSizeF size = QSizeF(mCrossImage.size()) * (devicePixelRatioF() / ratio);
    return {pixels.topLeft(), size.toSize()}; // the same size everywhere
}

void ZRScreenshotCursorView::paintPixels(QPainter& painter, const QRegion&)
{
    if (!m_isShown)
        return;
    if (!_hideLine)
        for (const QRect& line :
            ChromeRules::crossLines(pixelAt(mLocation), displayPixels(), devicePixelRatioF()))
            painter.fillRect(line, _lineColor.value_or(kLineColor));
    if (!mCrossImage.isNull())
        painter.drawPixmap(imagePixels(), mCrossImage);
}
