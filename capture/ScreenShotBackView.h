#pragma once

#include "capture/ChromeLayer.h"

#include <QImage>

class RegionSizeView;
class ZRMagnifierView;
class ZRScreenshotCursorView;

// The mask over the frozen display: dims everything outside the region and draws the region's border and its
// eight handles. The size label, the crosshair and the magnifier stand on it, the magnifier topmost. View
// points. Repaints no more than what a change of the region touches.
class ScreenShotBackView : public ChromeLayer {
public:
    // The mask's black over what lies outside the region, 0 to 1.
    static constexpr double kDim = 0.5;

    explicit ScreenShotBackView(QWidget* parent);

    ZRRect regionRect() const { return mRect; }
    void setSelectedRegionRect(ZRRect rect);
    void clear() { setSelectedRegionRect({}); }
    // Makes negative sizes positive.
    void updateSelectedRegionRect() { setSelectedRegionRect(mRect.normalized()); }
    void setDrawRegionBorder(bool isNeeded);
    void setDrawResizeButton(bool isNeeded);
    void setNeedDrawDashBorder(bool isNeeded);

    RegionSizeView& regionSizeView() const { return *m_regionSizeView; }
    ZRScreenshotCursorView& crossView() const { return *m_crossView; }
    ZRMagnifierView& magnifierView() const { return *m_magnifierView; }

    // What is not dimmed, in device pixels of the window.
    QRect holePixels() const { return devicePixels(mRect); }

    // The handle at a point: 1 to 8, 0 for none.
    int pointInResizeRect(ZRPoint point) const;

private:
    // Border and handles.
    QRegion touchedPixels() const override;
    void paintPixels(QPainter& painter, const QRegion& dirty) override;
    void _drawBackground(QPainter& painter, const QRegion& dirty) const;
    void _drawRegionBorder(QPainter& painter, const QRegion& dirty) const;
    void _drawSolidBorder(QPainter& painter, const QRegion& dirty) const;
    void _drawDashBorder(QPainter& painter) const;
    void _drawResizeButton(QPainter& painter) const;

    bool hasBorder() const;

    RegionSizeView* m_regionSizeView;
    ZRScreenshotCursorView* m_crossView;
    ZRMagnifierView* m_magnifierView;
    ZRRect mRect;
    bool mIsNeedDrawResizeButton = false;
    bool mIsNeedDrawRegionBorder = false;
    bool mIsNeedDrawDashBorder = false;
    mutable QImage m_handle; // one handle's picture, kept between the steps of a drag
};
