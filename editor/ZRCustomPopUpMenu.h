#pragma once

#include "customui/View.h"

#include <QPointer>
#include <QStringList>

#include <functional>
#include <vector>

class ZRCustomPopUpMenuItem;
class ZRCustomWindow;

// A list of texts that drops down from a button, over everything in the button's window. Once it has been
// shown it belongs to that window; until then to its parent.
class ZRCustomPopUpMenu : public View {
public:
    // Of a width that holds all texts.
    ZRCustomPopUpMenu(int width, const QStringList& withItemArray, QWidget* parent = nullptr);

    // Called with the text of the chosen row.
    std::function<void(const QString& value)> sendSelectedValue;
    // Whether a click beside the menu closes it.
    bool isMouseDown() const { return m_mouseDown; }
    void setMouseDown(bool isCloser) { m_mouseDown = isCloser; }

    void popUpWithRelativeView(QWidget& view);
    void pullsDown();
    bool isOpen() const;
    // Where the menu is on the screen: in points of the screen, y downwards; empty while it is closed.
    QRect screenFrame() const;
    // The row at a point of the menu is highlighted alone, or chosen.
    void mouseMoved(ZRPoint point);
    void mouseDown(ZRPoint point);
    // Closes the menu for good.
    void release();

private:
    void _setupItems(const QStringList& texts);
    ZRCustomPopUpMenuItem* itemAt(ZRPoint point) const;
    void unHoverAll();
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

    std::vector<ZRCustomPopUpMenuItem*> m_items; // from bottom to top
    QPointer<ZRCustomWindow> mPopWindow;
    bool m_mouseDown = false;
};
