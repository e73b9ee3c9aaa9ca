#pragma once

#include "customui/View.h"

#include <QImage>

// A white window of 200x100 points with a button of 32x32 at its top left.
struct ButtonStage {
    ButtonStage()
    {
        window.resize(200, 100);
        window.show();
    }
    template <class Button>
    void add(Button& button)
    {
        button.setParent(&window);
        button.setGeometry(0, 0, 32, 32);
        button.onAction = [this] { ++clicks; };
        button.show();
    }
    static QImage picture(QWidget& button)
    {
        QImage image(32, 32, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        button.render(&image, {}, {}, QWidget::DrawChildren);
        return image;
    }
    // Upwards, as a window's owner hands an event on.
    static ZRMouseEvent at(QPoint fromTop)
    {
        return {{double(fromTop.x()), 100.0 - fromTop.y()}, Qt::LeftButton};
    }
    static constexpr QPoint kInside{16, 16}, kOutside{60, 16};

    View window;
    int clicks = 0;
};
