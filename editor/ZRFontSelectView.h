#pragma once

#include "customui/ZRHoverButton.h"

#include <QPointer>
#include <QStringList>

class ImageView;
class ZRColorView;
class ZRCustomPopUpMenu;

// The ribbon's button for the font size: its title is the size, a click drops down the sizes.
class ZRFontSelectView : public ZRHoverButton {
public:
    // What can be chosen.
    static const QStringList& fontSizes();

    explicit ZRFontSelectView(QWidget* parent = nullptr);
    ~ZRFontSelectView() override;

    ZRColorView* lineView() const { return _lineView; }
    // Made when it is asked for first, and again once its window is gone.
    ZRCustomPopUpMenu& popMenu();
    void closeMenu();
    // Of the menu: shows the size and sends the action.
    void sendSelectedValue(const QString& value);
    void showFontSize(const QString& points);
    int fontSize() const { return m_fontSize; } // points

    // Drops the menu down.
    void click() override;

protected:
    QRect panelRect() const override;
    QRect titleRect() const override;
    void resizeEvent(QResizeEvent* event) override;

private:
    ZRColorView* _lineView; // between the size and the arrow
    ImageView* m_arrow;
    QPointer<ZRCustomPopUpMenu> _popMenu;
    int m_fontSize = 0;
};
