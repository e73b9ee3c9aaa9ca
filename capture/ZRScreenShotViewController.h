#pragma once

#include "capture/LastRegion.h"
#include "capture/PictureDelivery.h"
#include "capture/PixelSample.h"
#include "editor/ScreenshotActions.h"
#include "geometry/ZRRect.h"
#include "output/PinRules.h"

#include <QObject>
#include <QPointer>

#include <functional>
#include <memory>
#include <vector>

class RegionSizeView;
class ScreenShotBackView;
class ZRImageShowWindow;
class ZRMagnifierView;
class ZRScreenShotGraffitToolbar;
class ZRScreenShotManager;
class ZRScreenShotShareToolbar;
class ZRStaticScreenShotWindow;
class ZRScreenshotCursorView;

// What the overlay shows over the frozen display, the state of the selected region, what the toolbars start,
// and the picture of a fixed region. One for the program's life; views and toolbars are the running
// capture's. Overlay points.
class ZRScreenShotViewController : public QObject, public ScreenshotActions {
public:
    ZRScreenShotViewController();
    ~ZRScreenShotViewController() override;

    void setScreenshotManager(ZRScreenShotManager* manager) { mManager = manager; } // not owned
    // The running capture's overlay, which owns the view with size label, magnifier and crosshair, and the
    // toolbars.
    void setOverlay(ZRStaticScreenShotWindow& overlay);
    // Makes the controller ready for a new selection on its view.
    void initialize();
    // The capture is over: no region, window recognition on for the next one.
    void clear();

    // The region as all others see it: zero until it is fixed.
    ZRRect regionRect() const;
    bool isRegionLocked() const { return mIsRegionLocked; }
    // Fixes the region at the end of a selection; while window recognition is on it stays open.
    void regionLock();
    bool isResizingRegion() const { return mIsResizing; }
    void resizeRegionLock() { mIsResizing = true; }
    void resizeRegionUnLock() { mIsResizing = false; }
    void updateSelectedRegionRect(ZRRect rect);
    int pointInResizeRect(ZRPoint point) const;
    bool isDragView() const { return _isDragView; }
    void setIsDragView(bool isDragged);
    // Shows magnifier or crosshair at a point, or hides it.
    void updateCurrentMagnifierRect(ZRPoint point, bool isNeedShow);
    void updateCrossViewRect(ZRPoint point, bool isNeedShow);
    // Puts the colour that the magnifier shows on the clipboard as "#rrggbb"; nothing while it is hidden.
    void copyMagnifiedColour();
    // Whether an annotation tool takes the presses on the region.
    bool isUseGraffitInNeed() const;

    // Both toolbars beside the region, apart from each other, or neither.
    void showToolbar(bool show);
    // Puts the texts of the present language on what is shown.
    void changeText();
    void closeToolbars();
    // The tool that a digit stands for, as if its item had been clicked; nothing without toolbars.
    void pressTool(int digit);
    void changeTheScreenshotRegionToFullScreen();

    bool isOffered(OutputItem item) const override;
    void saveRegionShotToLocal(Item&) override { _saveRegionShotToLocal(); }
    void saveToPasteboard(Item&) override { _saveToPasteboard(); }
    void DisplacementScreenShot(Item&) override { screenshotShowImageWindow(); }
    void reSelectScreenshotRegion(Item&) override { cancelRegionScreenShot(); }
    void reSharedScreenshotRegion(Item& item) override { changeNewSelectedItem(item); }
    void uploadRegionScreenshotToCloud(Item&) override { uploadRegionScreenshotToCloudFromhotKey(); }
    void shareFacebook(Item&) override { share(UploadRules::kFacebook); }
    void shareGoogle(Item&) override { share(UploadRules::kGoogle); }
    void shareTwinter(Item&) override { share(UploadRules::kTwitter); }
    void sharePinster(Item&) override { share(UploadRules::kPinterest); }
    void addCustomLineToScreenshot(Item& item) override { changeNewSelectedItem(item); }
    void addHighlightToScreenshot(Item& item) override { changeNewSelectedItem(item); }
    void addLineToScreenshot(Item& item) override { changeNewSelectedItem(item); }
    void addArrowToScreenshot(Item& item) override { changeNewSelectedItem(item); }
    void addFontToScreenshot(Item& item) override { changeNewSelectedItem(item); }
    void addSquareToScreenshot(Item& item) override { changeNewSelectedItem(item); }
    void addBlurToScreenshot(Item& item) override { changeNewSelectedItem(item); }
    void addCircleToScreenshot(Item& item) override { changeNewSelectedItem(item); }
    void addRubberToScreenShot(Item& item) override { changeNewSelectedItem(item); }
    void addCancelToScreenshot(Item& item) override;
    void addForwardToScreenshot(Item& item) override;
    void graffitLineWidthChnage(Item& item) override;
    void graffitMosicWidthChnage(Item& item) override;
    void graffitColorChange(ZRColorControlItem& item) override;
    void graffitFontSizeChange(ZRFontSelectView& view) override;

    // Each output action works on a fixed region only and ends the capture.
    void saveRegionShotToLocalFromhotKey();
    void saveToPasteboardFromhotKey();
    // Asks for a title and a password and uploads the picture.
    void uploadRegionScreenshotToCloudFromhotKey();
    // Saves the whole display, or a part of it; needs no overlay.
    void saveFullScreenToLocal();
    void saveAreaToLocal(const QRect& pixelsOnDisplay);
    // Pins the picture to the screen, where the region is.
    void screenshotShowImageWindow();
    void cancelRegionScreenShot();

    // Delivers a notice with the program's icon. Kept: the spelling. With `reveal` a click on it shows the
    // file.
    static void postLocalNotificationWithMessageTitle(
        const QString& title, const QString& messageBoddy, std::function<void()> reveal = nullptr);

private:
    // The selection that goes with a click on an item. An output item leaves the armed tool as it is.
    void changeNewSelectedItem(Item& item);
    void _saveRegionShotToLocal();
    void _saveToPasteboard();
    // The picture of the fixed region by value; the capture takes no further input.
    Picture takePicture();
    void _stopScreenShot();
    // At the resolution that the settings ask for.
    Picture createImage(QImage image) const;
    QImage createRegionImage() const;
    // The region's device pixels, cut at the display's edges.
    QRect regionPixels() const;
    // Answers the running capture, also after its end; with what its picture shows where there is one.
    PictureDelivery::Report reportOfCapture() const { return reportOfCapture(regionPixels()); }
    PictureDelivery::Report reportOfCapture(const QRect& pixelsOnDisplay) const;
    void showImageWindow(const QImage& image, const PinRules::Place& place, const DisplayRecord& display);
    void forget(const ZRImageShowWindow* imageWindow);
    // Uploads without a form and opens the link for a network.
    void share(UploadRules::ShareType type);
    void asyncUploadScreenShotToCloud(UploadRules::ShareType shareType);

    ZRScreenShotManager* mManager = nullptr;
    QPointer<ScreenShotBackView> m_view;
    QPointer<RegionSizeView> mRegionSizeView;
    QPointer<ZRMagnifierView> mMagnifierView;
    QPointer<ZRScreenshotCursorView> mCrossView;
    QPointer<ZRScreenShotGraffitToolbar> mGraffitToolbar;
    QPointer<ZRScreenShotShareToolbar> mShareToolbar;
    PixelSample m_sample; // what the magnifier shows
    LastRegion m_lastRegion;
    PictureDelivery m_delivery;
    std::vector<std::unique_ptr<ZRImageShowWindow>> imageWindowLists; // pinned and not closed yet
    bool mIsRegionLocked = false;
    bool mIsResizing = false;
    bool _isDragView = false;
};
