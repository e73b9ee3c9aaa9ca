#pragma once

#include "customui/View.h"

#include <QColor>

// A view filled with one colour: separators, swatches.
class ZRColorView : public View {
public:
    explicit ZRColorView(QWidget* parent = nullptr);

    QColor color() const { return m_color; }
    void setColor(const QColor& color);

private:
    void paintEvent(QPaintEvent* event) override;

    QColor m_color = Qt::transparent;
};
