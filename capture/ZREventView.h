#pragma once

#include "customui/View.h"

class ScreenCoverWindow;

// The transparent top layer of a window that covers a display: takes every mouse event and hands it to its
// window, once.
class ZREventView : public View {
public:
    explicit ZREventView(ScreenCoverWindow& window);

private:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

    ScreenCoverWindow& m_window;
};
