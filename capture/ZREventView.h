#pragma once

#include "customui/View.h"

class ZRStaticScreenShotWindow;

// The transparent top layer of the overlay: takes every mouse event and hands it to its window, once.
class ZREventView : public View {
public:
    explicit ZREventView(ZRStaticScreenShotWindow& overlay);

private:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

    ZRStaticScreenShotWindow& m_overlay;
};
