#pragma once

#include "capture/ChromeLayer.h"

#include <QImage>
#include <QPixmap>

#include <optional>

// The crosshair: two lines through the pointer over the whole display and a cross image at the pointer.
// Overlay points.
class ZRScreenshotCursorView : public ChromeLayer {
public:
    explicit ZRScreenshotCursorView(QWidget* parent);

    // The view draws nothing while its cross is hidden, as it is at first.
    void showCross() { setShown(true); }
    void hideCross() { setShown(false); }
    bool isCrossShown() const { return m_isShown; }
    void updateCrossLocation(ZRPoint location);
    ZRPoint crossLocation() const { return mLocation; }

    // Replaces the cross image and leaves the lines out. The image counts as large as its ratio says.
    void setCrosimage(const QPixmap& image);
    bool hideLine() const { return _hideLine; }
    void setHideLine(bool isHidden);
    std::optional<QColor> lineColor() const { return _lineColor; }
    void setLineColor(const std::optional<QColor>& color);

private:
    void setShown(bool isShown);
    void makeReady() override;
    QRegion touchedPixels() const override;
    QRegion linePixels() const;
    QRect imagePixels() const;
    void paintPixels(QPainter& painter, const QRegion& dirty) override;

    ZRPoint mLocation;
    QPixmap mCrossImage;
    bool _hideLine = false;
    std::optional<QColor> _lineColor;
    bool m_isShown = false;
    bool m_hasOwnImage = false; // given, not the one by name
};
