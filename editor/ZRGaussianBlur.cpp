#include "editor/ZRGaussianBlur.h"

#include "editor/GaussianBlur.h"
#include "editor/MosaicRules.h"
#include "editor/ShapeRules.h"

ZRGaussianBlur::ZRGaussianBlur()
{
    setLineWidth(3);
}

QImage ZRGaussianBlur::transToMosaicImage(const QImage& image, int mosaicLevel)
{
    return MosaicRules::transToMosaicImage(image, mosaicLevel);
}

QImage& ZRGaussianBlur::GaussianBlurImageFrom(QImage& image, double inputRadius)
{
    image = gaussianBlurred(image, inputRadius);
    return image;
}

QImage ZRGaussianBlur::coverOf(const QImage& original, double scale) const
{
    const double level = strength() * scale;
    if (viewId() == QLatin1String("mosic"))
        return transToMosaicImage(original, qRound(level));
    QImage picture = original;
    return GaussianBlurImageFrom(picture, level);
}

void ZRGaussianBlur::setBlurLayer(const QImage& cover)
{
    m_strength = strength();
    mBurLayer = cover;
}

ZRRect ZRGaussianBlur::sizeToFit()
{
    const DragPoints& points = dragPoints();
    setVctualRect(ShapeRules::spanned(getPointWithIndex(0), getPointWithIndex(points.size() - 1)));
    return vctualRect();
}

bool ZRGaussianBlur::isClickOn(ZRPoint point)
{
    if (vctualRect().isEmpty())
        return false; // nothing is to be seen
    resizeDirection = getResizeDirection(point);
    return resizeDirection != kNoHandle || vctualRect().contains(point);
}

void ZRGaussianBlur::mouseDragged(ZRPoint point)
{
    if (!isDrawDone())
        ZRBasicCustomView::mouseDragged(point);
}

EntityRecord ZRGaussianBlur::record() const
{
    EntityRecord record = ZRBasicCustomView::record();
    record.picture = mBurLayer;
    return record;
}
