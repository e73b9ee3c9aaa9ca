#pragma once

#include "capture/ChromeLayer.h"
#include "capture/MagnifierLens.h"

#include <QColor>
#include <QFont>

#include <optional>

// The magnifier beside the pointer: the pixels around it enlarged in a circle, the one under it marked, and
// below them a plate with two labels. Overlay points. `content` is a PixelSample's picture.
class ZRMagnifierView : public ChromeLayer {
public:
    // A new magnifier in `parent`, which owns it; hidden.
    static ZRMagnifierView* loadForNib(QWidget* parent);

    // Beside a region that is chosen: position and colour.
    void showMagnifierWithContent(const QImage& content, ZRPoint mouseLocation, ZRRect selectedRegion,
        const std::optional<QColor>& withColor);
    // For picking a colour: a small position and a large colour.
    void showMagnifierWithContent(
        const QImage& content, ZRPoint mouseLocation, const std::optional<QColor>& withColor);
    // For measuring: a size alone.
    void showMagnifierWithContent(const QImage& content, ZRPoint mouseLocation, ZRSize selectSize);
    void hideMagnifierView();
    // A tick takes the place of the colour's swatch until the magnifier is shown anew.
    void showColourCopied();

    bool isShown() const { return m_isShown; }
    ZRRect magnifierRect() const { return m_rect; }
    QString pixelColorValueText() const { return mPixelColorValueLabel.text; }
    QString locationText() const { return mLocationLabel.text; }

private:
    struct Label {
        QString text;
        int size = 0; // points
    };

    using ChromeLayer::ChromeLayer;
    void show(const QImage& content, ZRPoint mouseLocation, Label value, Label location);
    void makeReady() override;
    QRegion touchedPixels() const override;
    void paintPixels(QPainter& painter, const QRegion& dirty) override;
    void paintLabels(QPainter& painter, QRect plate) const;
    void paintColour(QPainter& painter, QRect inner) const;
    void paintSwatch(QPainter& painter, QRect square) const;
    QFont fontOf(const Label& label) const;

    MagnifierLens mScaleImage;
    QImage mBackImage;           // the frame's artwork, in device pixels
    Label mPixelColorValueLabel; // Kept: the position, despite its name
    Label mLocationLabel;        // Kept: the colour, despite its name
    std::optional<QColor> m_colour;
    ZRRect m_rect;
    bool m_isShown = false;
    bool m_isCopied = false;
};
