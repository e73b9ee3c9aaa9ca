#pragma once

#include "editor/ZRScreenShotToolbar.h"

#include <memory>

class ZRColorView;
class ZRGraffitSizeControlToolbar;

// The output toolbar: a column of items right of the region. No item stays on. Items for what does not exist
// are left out.
class ZRScreenShotShareToolbar : public ZRScreenShotToolbar {
public:
    explicit ZRScreenShotShareToolbar(QWidget* overlay);
    ~ZRScreenShotShareToolbar() override;

    void initialize() override;
    void showToolbar(bool show, ZRRect withRegionRect) override;
    void showItemSubToolbar(ZRScreenShotToolbarItem* item) override;
    void dismissShareView();
    void close() override;
    void changeText() override;

private:
    std::vector<ItemRow> rows() const;
    void showOffered();

    ZRScreenShotToolbarItem* saveItem;
    ZRScreenShotToolbarItem* reSelectRegionItem;
    ZRScreenShotToolbarItem* sharedItem;
    ZRScreenShotToolbarItem* uploadItem;
    ZRScreenShotToolbarItem* copyItem;
    ZRScreenShotToolbarItem* showImageItem;
    std::unique_ptr<ZRGraffitSizeControlToolbar> mSizeControlToolbar;
    ZRColorView* lineView;
};
