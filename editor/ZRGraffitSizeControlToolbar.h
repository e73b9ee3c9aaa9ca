#pragma once

#include "editor/ScreenshotActions.h"

#include <QColor>
#include <QPointer>
#include <QString>

#include <vector>

class QWidget;
class View;
class ZRCustomWindow;

// The style ribbon: a pop-up with an arrow beside a toolbar's item that offers what fits the item's tool,
// or the share targets. It builds the views, keeps the colour and says which width is on; what a choice does
// is the target's business. Views are laid out in points, y growing upwards.
class ZRGraffitSizeControlToolbar {
public:
    ZRGraffitSizeControlToolbar();
    ~ZRGraffitSizeControlToolbar();
    ZRGraffitSizeControlToolbar(const ZRGraffitSizeControlToolbar&) = delete;
    ZRGraffitSizeControlToolbar& operator=(const ZRGraffitSizeControlToolbar&) = delete;

    // The width that is on in the next ribbon, in points.
    void setLastSelectedLineWidth(double points) { mLastSelectedLineWidth = points; }
    // Opens the ribbon in the item's window; for the direction see PopupRules. The present width, colour and
    // font size are sent at once, as if they had been chosen.
    void popupToolbarWithControlID(
        const QString& id, QWidget& relativeTo, int direction, ScreenshotActions& actionTarget);
    // The ribbon's content, without an owner; null for no identifier.
    View* contentViewWithControlID(const QString& id);
    bool isOpen() const;

    // Of every swatch but the current colour's.
    void changeNewColor(const ZRColorControlItem& swatch);
    // Of the target: the width's item is on, the one before off.
    void changeSelectedLineWithItem(ZRScreenShotToolbarItem* item);
    void dismissShareView();
    void close();

private:
    View* _getLineWidthControlView();
    View* _getColorControlView();
    View* _getFontControlView();
    static std::vector<QColor> _getColorList();
    View* shareView();
    View* mosicView();
    ZRScreenShotToolbarItem* addItem(View& to, const QString& image, double x, double y, ItemAction action);
    void addSwatch(View& to, const QColor& color, double x, double y);

    QPointer<ZRCustomWindow> mPopWindow;
    QString mControlID;
    ScreenshotActions* mTarget = nullptr;               // not owned
    QPointer<ZRScreenShotToolbarItem> mLastSelctedItem; // Kept: the spelling.
    double mLastSelectedLineWidth = 3.0;                // points
    QColor mLastSelectedColor;                          // red until another one is chosen
    QPointer<ZRColorControlItem> m_currentColorItem;
    QPointer<ZRFontSelectView> m_fontView;
};
