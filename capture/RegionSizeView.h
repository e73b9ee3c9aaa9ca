#pragma once

#include "capture/ChromeLayer.h"

#include <QFont>

// Width and height of a region in points, shown above it. Overlay points.
class RegionSizeView : public ChromeLayer {
public:
    explicit RegionSizeView(QWidget* parent);

    // Moves the label to a region, whose sizes may be negative, and shows its size.
    void updateRegionSzie(ZRRect rect);
    void clear() { updateRegionSzie({}); }

    // Empty while nothing is shown.
    QString text() const;
    ZRRect labelRect() const { return m_label; }

private:
    QRegion touchedPixels() const override;
    void makeReady() override;
    void paintPixels(QPainter& painter, const QRegion& dirty) override;
    void _drawBackground(QPainter& painter, const QRect& bounds) const;

    ZRRect regionRect;
    ZRRect m_label;
    QFont m_font;
};
