#pragma once

#include "geometry/ZRRect.h"

#include <QPixmap>
#include <QWidget>

#include <memory>

class StartWindowDelegate;
namespace Ui {
class ZRStartWindow;
}

// The greeting at launch: it names the region hot key, stays three seconds and shrinks into the status item.
// It lies above ordinary windows. Rectangles are points, origin bottom-left of the first display, y upwards.
class ZRStartWindow : public QWidget {
    Q_OBJECT
public:
    // With the texts of the current language; not shown yet.
    static std::unique_ptr<ZRStartWindow> defaultStartWindow();
    ~ZRStartWindow() override;

    // Where it shrinks to. It fades where it stands while this is empty.
    void setEndRect(ZRRect rect) { mEndRect = rect; }
    // Borrowed.
    void setDelegate(StartWindowDelegate* delegate) { m_delegate = delegate; }
    void changeText();

    // Shows it in the middle of the first display, and stops it three seconds later.
    void start();
    // Begins its end, which takes half a second; nothing when that has begun.
    void stop();
    void closeWindow();

private:
    ZRStartWindow();
    void checkShowStartWindowAgain(bool isDeclined);
    void fadeTo(double opacity, int milliseconds);
    void shrink();
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

    ZRRect mEndRect;
    const std::unique_ptr<Ui::ZRStartWindow> m_ui;
    StartWindowDelegate* m_delegate = nullptr;
    QPixmap m_picture; // of the whole window, while it shrinks
    bool m_isStopping = false;
    bool m_isClosed = false;
};
