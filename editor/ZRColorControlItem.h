#pragma once

#include "customui/ZRHoverButton.h"

// A swatch of one colour, red until one is set.
class ZRColorControlItem : public ZRHoverButton {
public:
    explicit ZRColorControlItem(QWidget* parent = nullptr);

    QColor selectColor() const { return mColor; }
    // Names the swatch by its colour for assistive tools too.
    void setSelectColor(const QColor& color);
    void setBorderLineWidth(qint32 points);
    void setBorderRadius(double points);

private:
    void paintEvent(QPaintEvent* event) override;

    QColor mColor;
    qint32 mBorderLineWidth = 1;
    double mRadius = 0;
};
