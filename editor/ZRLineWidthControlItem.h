#pragma once

#include "customui/ZRHoverButton.h"

class ZRGraffitSizeControlToolbar;

// A button of three pictures for a line width, beside the toolbar item that the ribbon builds its widths of.
class ZRLineWidthControlItem : public ZRHoverButton {
public:
    // Names of pictures; `action` is the click's.
    ZRLineWidthControlItem(const QString& normalImage, const QString& hoverImage, const QString& downImage,
        std::function<void()> action, QWidget* parent = nullptr);

    // Show the picture of that name, where it has one.
    void normal();
    void hover();
    void pressed();
    bool isPressed() const { return bIsPressed; }

    bool isSelected() const { return m_isSelected; }
    void setIsSelected(bool isOne) { m_isSelected = isOne; }
    qint32 lineWidth() const { return m_lineWidth; } // points
    void setLineWidth(qint32 points) { m_lineWidth = points; }
    ZRGraffitSizeControlToolbar* superController() const { return m_superController; }
    void setSuperController(ZRGraffitSizeControlToolbar* ribbon) { m_superController = ribbon; } // not owned
    void setToolTip(const QString& text) { _ToolTips = text; }

    void mouseEntered() override;
    void mouseExited() override;
    void mouseDown(const ZRMouseEvent& event) override;
    // Clicks when the pointer is inside.
    void mouseUp(const ZRMouseEvent& event) override;

private:
    QString mNormalName, mHoverName, mDownName;
    QString _ToolTips;
    bool bIsPressed = false;
    bool bIsMouseDown = false;
    bool m_isSelected = false;
    qint32 m_lineWidth = 0;
    ZRGraffitSizeControlToolbar* m_superController = nullptr;
};
