#pragma once

#include "output/PinRules.h"
#include "output/ZRImageView.h"

#include <functional>
#include <memory>
#include <optional>

class ZRHoverButton;

// A picture pinned to the screen: a borderless window above ordinary ones. Dragged by its body; the wheel
// zooms it, with Control it makes it translucent; closed by its button, Escape or the middle button. Only a
// click gives it the focus.
class ZRImageShowWindow : public QWidget {
public:
    static std::unique_ptr<ZRImageShowWindow> loadForNib();

    // The whole picture; a null one leaves the window blank.
    void backgroundWithImage(const QImage& image);
    const QImage& image() const { return bgView->image(); }
    // Stands on a display whose top left corner is given in points of the screen, and shows there the part of
    // the picture that the place tells.
    void setPlace(const PinRules::Place& place, QPoint displayCorner);
    // Shows the window in front, without the focus.
    void orderFront();
    void actionClose();

    // Called when the window is closed; its owner may then free it later.
    std::function<void()> onClose;
    // Called with the whole picture.
    std::function<void(const QImage&)> onCopy;
    std::function<void(const QImage&)> onSave;

private:
    ZRImageShowWindow();

    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void zoomBy(int steps, QPoint screenPoint);
    void dimBy(int steps);
    void returnToScreens();

    ZRImageView* bgView;
    QWidget* bgImageView; // the frame around the picture
    ZRHoverButton* closeBtn;
    QSize m_size; // points, before zooming
    int m_zoomSteps = 0;
    int m_opacitySteps = 0;
    int m_wheelAngle = 0;               // turned, not yet a whole step
    std::optional<QPoint> m_dragOffset; // of the pointer in the window, while it is dragged
};
