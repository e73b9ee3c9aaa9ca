#pragma once

#include "customui/View.h"
#include "editor/ScreenshotActions.h"

#include <QStringView>

#include <vector>

// A panel of items beside the region: keeps the selected item and hands clicks on. It stands on an overlay
// and takes all events under it but presses of the right button. Points of the overlay.
class ZRScreenShotToolbar : public View {
public:
    explicit ZRScreenShotToolbar(QWidget* overlay);

    // Makes the toolbar ready for a new region: no item selected.
    virtual void initialize();
    // Draws the pictures of all items in advance.
    void prepareImages();
    void setScreenShotViewController(ScreenshotActions* controller); // not owned
    // Shows the toolbar in its place beside a region, or hides it.
    virtual void showToolbar(bool show, ZRRect withRegionRect);
    // Called back for each click on an item but undo and redo.
    virtual void changeSelectedItem(ZRScreenShotToolbarItem* item) { showItemSubToolbar(item); }
    virtual void showItemSubToolbar(ZRScreenShotToolbarItem* item) = 0;
    virtual void close();

    // Whether a tool is armed.
    bool isUseGraffitInNeed() const;
    // Arms the current tool again.
    void addNewGraffitView();
    // The selected item's tool; null when there is none.
    QString controlToolbarID() const;
    // Puts the texts of the present language on the items.
    virtual void changeText() { }
    // Hands a click to the item under it: the first of `items` whose frame holds the location.
    void mouseUp(const ZRMouseEvent& event);
    // Moves the toolbar; origin bottom-left.
    void setFrameOrigin(ZRPoint origin);
    ZRRect frame() const { return frameInWindow(); }

protected:
    // What an item shows and starts. `tooltip` is a format, where the tooltip is more than the text.
    struct ItemRow {
        ZRScreenShotToolbarItem* item;
        QStringView image;
        QStringView controlID; // null for items that open nothing
        QStringView textKey;
        QStringView tooltip; // null for the bare text
        ItemAction action;
    };
    ScreenshotActions* controller() const { return mScreenShotViewController; }
    ZRSize overlaySize() const;
    void setUp(const ItemRow& row);
    static void setText(const ItemRow& row);
    // Puts the visible ones of items and separators into a row or a column, and takes their size.
    void layOut(const std::vector<QWidget*>& views, Qt::Orientation orientation);

    ZRScreenShotToolbarItem* lastSelectedItem = nullptr;
    ZRScreenShotToolbarItem* lasthoverItem = nullptr;
    std::vector<ZRScreenShotToolbarItem*> items; // in the order in which a click asks them
    ScreenshotActions* mScreenShotViewController = nullptr;

private:
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void _drawbackground(QPainter& painter) const;
};
