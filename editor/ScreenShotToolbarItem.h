#pragma once

#include "customui/ZRHoverButton.h"

// An older button of three pictures beside ZRScreenShotToolbarItem, which keeps its state itself.
class ScreenShotToolbarItem : public ZRHoverButton {
public:
    using ZRHoverButton::ZRHoverButton;

    // Shows the normal picture. Kept: the first names given stay those of the states.
    void updateNormalImage(const QString& normalImage, const QString& hoverImage, const QString& downImage);
    void setToolTip(const QString& text) { _Tooltips = text; }
    QString controlID() const { return mControlID; }
    void setControlID(const QString& id) { mControlID = id; }
    bool isSelected() const { return m_isSelected; }
    void setIsSelected(bool isOne) { m_isSelected = isOne; }

    void normal() { setImage(mNormalImageName); }
    void hover() { setImage(mHoverImageName); }
    void pressed() { setImage(mDownImageName); }

    void mouseEntered() override;
    void mouseExited() override;
    void mouseDown(const ZRMouseEvent& event) override;
    // Clicks when the pointer is inside; an item with an identifier then stays pressed.
    void mouseUp(const ZRMouseEvent& event) override;

private:
    QString mNormalImageName, mHoverImageName, mDownImageName;
    QString mControlID;
    QString _Tooltips;
    bool isMouseDown = false;
    bool m_isSelected = false;
};
