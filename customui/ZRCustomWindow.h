#pragma once

#include "customui/PopupRules.h"
#include "customui/View.h"

#include <QColor>
#include <QPainterPath>
#include <QPointer>

#include <functional>

// A light panel around a content view. As a child widget it is a pop-up with rounded corners, with an arrow
// where one is needed, that stands on its parent beside what it belongs to; without a parent it is an
// ordinary window. Neither takes the focus from others nor keeps input from them; over a pop-up only presses
// of the right button go on to its parent's window. The content view becomes
// its child.
class ZRCustomWindow : public View {
    Q_OBJECT

public:
    static constexpr unsigned kBorderless = 0;
    static constexpr unsigned kTitledClosable = 3; // a title bar with a close button alone

    // `contentRect` in points of the parent or the screen; it may be empty, since showing a content view sets
    // the size. `styleMask` is one of the above and concerns windows only.
    ZRCustomWindow(ZRRect contentRect, unsigned styleMask, bool isNeedPopupArrow,
        const QColor& backgroundColor, QWidget* parent = nullptr);

    QWidget* contentView() const { return m_contentView; }
    // Shows a view in its present size as the only content; the one before is released. A window takes the
    // size of its content.
    void setContentView(QWidget* view);

    // Both show a pop-up around a view, beside another widget of its parent; for the directions see
    // PopupRules. A widget that stands in a bar has the pop-up beside the bar.
    void popupWithContentView(QWidget* view, QWidget* relativeTo, int popupDirection);
    void popUpContentView(QWidget* view, QWidget* forPopUpButton);
    // Shows, raises, and makes a window the active one.
    void orderFront();
    void orderOut() { hide(); }
    // Takes a pop-up off the screen at once and frees it when the event that closed it has been handled.
    static void release(ZRCustomWindow* popup);
    // What a pop-up covers without its arrow and shadow: points, origin bottom-left of its window, y up.
    ZRRect panelInWindow() const;

    // Called when the user closes a window, by its button or Escape.
    std::function<void()> onClose;

private:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

    bool isPopup() const { return !isWindow(); }
    ZRRect frameInParent(const QWidget& widget) const;
    ZRSize spaceInParent() const;
    void standAt(ZRRect panel, int padding);
    void drawPopup(QPainter& painter) const;

    QColor m_backgroundColor;
    bool m_isNeedPopupArrow;
    QPointer<QWidget> m_contentView;
    QPainterPath m_shape; // of a pop-up: its own points, y downwards
};
