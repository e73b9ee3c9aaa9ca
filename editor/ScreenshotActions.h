#pragma once

class ZRColorControlItem;
class ZRFontSelectView;
class ZRScreenShotToolbarItem;

// The output items, for the question which of them are there.
enum class OutputItem { Save, Cancel, Pin, Upload, Copy, Share };

// What toolbars and ribbon ask of the region's owner. Each action gets the item that was clicked; the owner
// of a tool's action answers with changeSelectedItem() of the item's toolbar.
class ScreenshotActions {
public:
    using Item = ZRScreenShotToolbarItem;

    virtual ~ScreenshotActions() = default;

    // Whether what an item starts exists; an item without it is not shown.
    virtual bool isOffered(OutputItem item) const = 0;

    virtual void saveRegionShotToLocal(Item& item) = 0;
    virtual void saveToPasteboard(Item& item) = 0;
    virtual void DisplacementScreenShot(Item& item) = 0;   // pins the picture
    virtual void reSelectScreenshotRegion(Item& item) = 0; // ends the capture
    virtual void reSharedScreenshotRegion(Item& item) = 0; // opens the share ribbon

    virtual void addCustomLineToScreenshot(Item& item) = 0;
    virtual void addHighlightToScreenshot(Item& item) = 0;
    virtual void addLineToScreenshot(Item& item) = 0;
    virtual void addArrowToScreenshot(Item& item) = 0;
    virtual void addFontToScreenshot(Item& item) = 0;
    virtual void addSquareToScreenshot(Item& item) = 0;
    virtual void addBlurToScreenshot(Item& item) = 0;
    virtual void addCircleToScreenshot(Item& item) = 0;
    virtual void addRubberToScreenShot(Item& item) = 0;
    virtual void addCancelToScreenshot(Item& item) = 0;  // undo, without a selection
    virtual void addForwardToScreenshot(Item& item) = 0; // redo, likewise

    // Nothing where they are not offered.
    virtual void uploadRegionScreenshotToCloud(Item&) { }
    virtual void shareFacebook(Item&) { }
    virtual void shareGoogle(Item&) { }
    virtual void shareTwinter(Item&) { }
    virtual void sharePinster(Item&) { }

    virtual void graffitLineWidthChnage(Item& item) = 0;
    virtual void graffitMosicWidthChnage(Item& item) = 0;
    virtual void graffitColorChange(ZRColorControlItem& item) = 0;
    virtual void graffitFontSizeChange(ZRFontSelectView& view) = 0;
};

using ItemAction = void (ScreenshotActions::*)(ZRScreenShotToolbarItem&);
