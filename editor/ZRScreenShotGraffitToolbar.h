#pragma once

#include "editor/ZRScreenShotToolbar.h"

#include <memory>

class ZRColorView;
class ZRGraffitSizeControlToolbar;

// The drawing toolbar: a row of tools, undo, redo and save below the region. At most one tool is on; its
// ribbon opens below or above the row.
class ZRScreenShotGraffitToolbar : public ZRScreenShotToolbar {
public:
    explicit ZRScreenShotGraffitToolbar(QWidget* overlay);
    ~ZRScreenShotGraffitToolbar() override;

    void initialize() override;
    void showToolbar(bool show, ZRRect withRegionRect) override;
    // A click on the tool that is on turns it off.
    void changeSelectedItem(ZRScreenShotToolbarItem* item) override;
    void showItemSubToolbar(ZRScreenShotToolbarItem* item) override;
    void closeSubToolbar();
    void close() override;
    void changeText() override;
    // The mosaic tool becomes the blur tool, or the other way round.
    void changeMosicItem();
    // Presses the tool that a digit stands for, from 1 on.
    void pressTool(int digit);

private:
    std::vector<ItemRow> rows() const;

    ZRScreenShotToolbarItem* saveToLocalItem;
    ZRScreenShotToolbarItem* customLineItem;
    ZRScreenShotToolbarItem* arrowItem;
    ZRScreenShotToolbarItem* fontItem;
    ZRScreenShotToolbarItem* squareItem;
    ZRScreenShotToolbarItem* circleItem;
    ZRScreenShotToolbarItem* lightItem;
    ZRScreenShotToolbarItem* lineItem;
    ZRScreenShotToolbarItem* blurItem;
    ZRScreenShotToolbarItem* eraserItem;
    ZRScreenShotToolbarItem* cancelItem;
    ZRScreenShotToolbarItem* m_forwardItem;
    std::vector<ZRScreenShotToolbarItem*> m_tools; // from left to right, in the order of the digits
    std::unique_ptr<ZRGraffitSizeControlToolbar> mSizeControlToolbar;
    ZRColorView* lineView;
};
