#pragma once

#include "customui/View.h"

#include <QImage>
#include <QPainter>
#include <QRegion>

// The mask over the frozen display: dims everything outside the region and draws the region's border and its
// eight handles. View points. Repaints no more than what a change of the region touches.
class ScreenShotBackView : public View {
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

    // What is not dimmed, in device pixels of the window; and the points that border and handles touch.
    QRect holePixels() const { return devicePixels(mRect); }
    QRegion chromePoints() const;

    // The handle at a point: 1 to 8, 0 for none.
    int pointInResizeRect(ZRPoint point) const;

private:
    void paintEvent(QPaintEvent* event) override;
    void _drawBackground(QPainter& painter, const QRegion& dirty) const;
    void _drawRegionBorder(QPainter& painter) const;
    void _drawSolidBorder(QPainter& painter) const;
    void _drawDashBorder(QPainter& painter) const;
    void _drawResizeButton(QPainter& painter) const;

    bool hasBorder() const;
    QRegion chromeRegion() const;
    QRegion pointsOf(const QRegion& pixels) const;
    void updatePixels(const QRegion& pixels);

    ZRRect mRect;
    bool mIsNeedDrawResizeButton = false;
    bool mIsNeedDrawRegionBorder = false;
    bool mIsNeedDrawDashBorder = false;
    mutable QImage m_handle; // one handle's picture, kept between the steps of a drag
};
