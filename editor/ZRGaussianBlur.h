#pragma once

#include "editor/ZRBasicCustomView.h"

#include <QImage>
#include <QRandomGenerator>

#include <optional>

// An area of the screen that is covered in place, by a mosaic or by a blur of what lies there. Once drawn it
// can be selected and deleted, but neither moved nor resized.
class ZRGaussianBlur : public ZRBasicCustomView {
public:
    ZRGaussianBlur();

    // See MosaicRules.
    static QImage transToMosaicImage(const QImage& image, int mosaicLevel);
    // Blurs the picture itself, by a Gaussian of `inputRadius` pixels. A picture for whose result there is no
    // memory becomes null.
    static QImage& GaussianBlurImageFrom(QImage& image, double inputRadius);
    // What covers the area: its part of the frozen display, in the display's pixels, `scale` of them a point.
    // Kept: the tool's identifier alone decides between mosaic and blur.
    QImage coverOf(const QImage& original, double scale) const;
    // A block's side or the blur's radius, in points: the line width; once there is a cover, that of the
    // first.
    qint32 strength() const { return m_strength.value_or(lineWidth()); }

    // Kept: true for a blur as well.
    bool isMosic() const { return _isMosic; }
    void setIsMosic(bool isMosic) { _isMosic = isMosic; }
    // Makes the area's covers secure mosaics; all are made with the same random numbers.
    void setSecure(const QRandomGenerator& random) { m_random = random; }
    bool isSecure() const { return m_random.has_value(); }
    QRandomGenerator random() const { return m_random.value(); }
    // Fills the area; null until the drag that creates it has ended.
    const QImage& blurLayer() const { return mBurLayer; }
    void setBlurLayer(const QImage& cover);
    void clearBlurLayer() { mBurLayer = {}; }

    ZRRect sizeToFit() override;
    bool isClickOn(ZRPoint point) override;
    void mouseDragged(ZRPoint point) override;
    EntityRecord record() const override;

protected:
    bool needsBorder() const override { return !isDrawDone() || isFocusOn(); }
    const char* className() const override { return "ZRGaussianBlur"; }

private:
    QImage mBurLayer;
    bool _isMosic = true;
    std::optional<qint32> m_strength;
    std::optional<QRandomGenerator> m_random; // of a secure one
};
