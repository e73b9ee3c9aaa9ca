#pragma once

#include "customui/ZRCheckHoverButton.h"

class ZRGraffitSizeControlToolbar;

// An item of a toolbar or a ribbon: a picture in three states, with a tooltip, that can be on. It paints the
// panel below it as well, so that a hover repaints nothing else.
class ZRScreenShotToolbarItem : public ZRCheckHoverButton {
    Q_OBJECT

public:
    static constexpr int kSide = 32; // points

    explicit ZRScreenShotToolbarItem(QWidget* parent = nullptr);
    // An item in its usual size.
    static ZRScreenShotToolbarItem* loadToolbarItem(QWidget* parent);

    // Names of pictures; of the three states of `base` alone.
    void updateImage(const QString& base);
    void updateNormalImage(const QString& normal, const QString& hoverImage, const QString& downImage);
    void setState(bool isOn) override;

    // Never null.
    QString tooltipstring() const { return m_tooltipstring; }
    void setToolTip(const QString& text);
    // The tool or the ribbon that the item stands for; null when it opens nothing.
    QString controlID() const { return m_controlID; }
    void setControlID(const QString& id) { m_controlID = id; }
    // The width that a ribbon's item stands for, in points; 0 otherwise.
    qint32 lineWidth() const { return m_lineWidth; }
    void setLineWidth(qint32 points) { m_lineWidth = points; }
    // An item that keeps its hover look after a click.
    bool colorItem() const { return m_colorItem; }
    void setColorItem(bool isOne) { m_colorItem = isOne; }
    // The ribbon that owns the item; null for a toolbar's.
    ZRGraffitSizeControlToolbar* superController() const { return m_superController; }
    void setSuperController(ZRGraffitSizeControlToolbar* ribbon) { m_superController = ribbon; }

    // The hidden button that holds the item's key; made when it is asked for first.
    ZRHoverButton2& keyBtn();
    using ZRCheckHoverButton::setKeyEquivalent;
    void setKeyEquivalent(const QString& key, quint32 withKeyEquivalentModifierFlags);
    // The item's own action, as by a click.
    void selectKey() { sendAction(); }

    void mouseEntered() override;
    void mouseExited() override;
    // The tooltip has been read.
    void mouseDown(const ZRMouseEvent& event) override;
    void mouseUp(const ZRMouseEvent& event) override;

private:
    void paintEvent(QPaintEvent* event) override;

    QString m_tooltipstring = QStringLiteral("");
    QString m_controlID;
    qint32 m_lineWidth = 0;
    bool m_colorItem = false;
    ZRGraffitSizeControlToolbar* m_superController = nullptr;
    ZRHoverButton2* m_keyBtn = nullptr;
};
