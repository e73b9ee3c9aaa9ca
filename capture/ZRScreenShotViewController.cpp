#include "capture/ZRScreenShotViewController.h"

#include "capture/PictureRules.h"
#include "capture/RegionSizeView.h"
#include "capture/ScreenShotBackView.h"
#include "capture/ToolScreen.h"
#include "capture/ZRMagnifierView.h"
#include "capture/ZRScreenShotManager.h"
#include "capture/ZRScreenshotCursorView.h"
#include "capture/ZRStaticScreenShotWindow.h"
#include "commonutils/CommLog.h"
#include "editor/PlacementRules.h"
#include "editor/ZRColorControlItem.h"
#include "editor/ZRFontSelectView.h"
#include "editor/ZRGraffitSizeControlToolbar.h"
#include "editor/ZRScreenShotGraffitToolbar.h"
#include "editor/ZRScreenShotSetting.h"
#include "editor/ZRScreenShotShareToolbar.h"
#include "editor/ZRScreenShotToolbarItem.h"
#include "editor/ZRToolTips.h"
#include "output/ZRBasicLocalNotification.h"
#include "output/ZRImageShowWindow.h"
#include "output/ZRLocalNotificationCenter.h"
#include "settings/AppSettings.h"

#include <QClipboard>
#include <QGuiApplication>

#include <algorithm>
#include <array>

namespace {

const QString kIcon = QStringLiteral("logo");
constexpr int kNominalResolution = 16; // the quality setting that asks for one pixel a point

}

ZRScreenShotViewController::ZRScreenShotViewController()
{
    m_delivery.isCapturing = [this] { return mManager->isCapturing(); };
    m_delivery.onReveal = [this](const QString& path) { mManager->revealFile(path); };
}

ZRScreenShotViewController::~ZRScreenShotViewController() = default;

void ZRScreenShotViewController::setOverlay(ZRStaticScreenShotWindow& overlay)
{
    m_view = &overlay.backView();
    mRegionSizeView = &m_view->regionSizeView();
    mMagnifierView = &m_view->magnifierView();
    mCrossView = &m_view->crossView();
    mGraffitToolbar = &overlay.graffitToolbar();
    mShareToolbar = &overlay.shareToolbar();
}

void ZRScreenShotViewController::initialize()
{
    mIsRegionLocked = false;
    mIsResizing = false;
    _isDragView = false;
    if (!m_view)
        return;
    m_view->setDrawResizeButton(true);
    m_view->setDrawRegionBorder(true);
    mGraffitToolbar->setScreenShotViewController(this);
    mShareToolbar->setScreenShotViewController(this);
    mGraffitToolbar->initialize();
    mShareToolbar->initialize();
    showToolbar(false);
}

void ZRScreenShotViewController::clear()
{
    ZRToolTips::hiddenToolTips();
    if (m_view) {
        m_view->clear();
        mRegionSizeView->clear();
    }
    mIsRegionLocked = false;
    AppSettings::setUseWindowRecognize(true);
    m_lastRegion.write();
    m_delivery.captureIsGone();
}

ZRRect ZRScreenShotViewController::regionRect() const
{
    return mIsRegionLocked && m_view ? m_view->regionRect() : ZRRect{};
}

void ZRScreenShotViewController::regionLock()
{
    if (!m_view)
        return;
    if (AppSettings::canUseWindowRecognize()) {
        m_view->setDrawResizeButton(false);
    } else {
        mIsRegionLocked = true;
        updateCurrentMagnifierRect({}, false);
    }
    m_view->updateSelectedRegionRect();
    mRegionSizeView->updateRegionSzie(m_view->regionRect());
    showToolbar(mIsRegionLocked);
}

void ZRScreenShotViewController::updateSelectedRegionRect(ZRRect rect)
{
    if (!m_view)
        return;
    m_view->setSelectedRegionRect(rect);
    mRegionSizeView->updateRegionSzie(rect);
}

void ZRScreenShotViewController::updateCurrentMagnifierRect(ZRPoint point, bool isNeedShow)
{
    const auto frame = mManager->frame();
    if (!m_view || !frame)
        return;
    if (!isNeedShow)
        return mMagnifierView->hideMagnifierView();
    const QImage& sample = m_sample.around(*frame, point);
    const QPointF middle(sample.width() * 0.5, sample.height() * 0.5);
    mMagnifierView->showMagnifierWithContent(
        sample, point, m_view->regionRect(), AppSettings::getPixelColorAtLocation(middle, sample));
}

void ZRScreenShotViewController::updateCrossViewRect(ZRPoint point, bool isNeedShow)
{
    if (!m_view)
        return;
    if (!isNeedShow)
        return mCrossView->hideCross();
    mCrossView->updateCrossLocation(point);
    mCrossView->showCross();
}

void ZRScreenShotViewController::copyMagnifiedColour()
{
    if (!m_view || !mMagnifierView->isShown() || mMagnifierView->locationText().isEmpty())
        return;
    QGuiApplication::clipboard()->setText(mMagnifierView->locationText());
    mMagnifierView->showColourCopied();
}

int ZRScreenShotViewController::pointInResizeRect(ZRPoint point) const
{
    return m_view ? m_view->pointInResizeRect(point) : 0;
}

void ZRScreenShotViewController::setIsDragView(bool isDragged)
{
    _isDragView = isDragged;
    if (m_view)
        m_view->setNeedDrawDashBorder(isDragged);
}

bool ZRScreenShotViewController::isUseGraffitInNeed() const
{
    return mGraffitToolbar && mGraffitToolbar->isUseGraffitInNeed();
}

void ZRScreenShotViewController::showToolbar(bool show)
{
    if (!mGraffitToolbar || !mShareToolbar)
        return;
    mGraffitToolbar->showToolbar(show, regionRect());
    mShareToolbar->showToolbar(show, regionRect());
    const PlacementRules::Toolbars apart = PlacementRules::apart(
        regionRect(), {mGraffitToolbar->frame(), mShareToolbar->frame()}, mManager->overlaySize());
    mGraffitToolbar->setFrameOrigin(apart.drawing.origin());
    mShareToolbar->setFrameOrigin(apart.output.origin());
}

void ZRScreenShotViewController::changeText()
{
    if (mGraffitToolbar)
        mGraffitToolbar->changeText();
    if (mShareToolbar)
        mShareToolbar->changeText();
}

void ZRScreenShotViewController::closeToolbars()
{
    ZRToolTips::hiddenToolTips();
    if (mGraffitToolbar)
        mGraffitToolbar->close();
    if (mShareToolbar)
        mShareToolbar->close();
}

void ZRScreenShotViewController::pressTool(int digit)
{
    if (mGraffitToolbar)
        mGraffitToolbar->pressTool(digit);
}

// Kept: the annotations begin anew.
void ZRScreenShotViewController::changeTheScreenshotRegionToFullScreen()
{
    if (!mIsRegionLocked)
        return;
    const ZRSize size = mManager->overlaySize();
    updateSelectedRegionRect({0, 0, size.width, size.height});
    closeToolbars();
    m_view->setDrawResizeButton(true);
    showToolbar(true);
    mManager->changeTheScreenshotRegionToFullScreen();
}

bool ZRScreenShotViewController::isOffered(OutputItem item) const
{
    constexpr std::array kOffered{OutputItem::Save, OutputItem::Copy, OutputItem::Pin, OutputItem::Cancel,
        OutputItem::Upload, OutputItem::Share};
    return std::find(kOffered.begin(), kOffered.end(), item) != kOffered.end();
}

void ZRScreenShotViewController::changeNewSelectedItem(Item& item)
{
    if (item.parentWidget() != mGraffitToolbar)
        return mShareToolbar->changeSelectedItem(&item);
    mGraffitToolbar->changeSelectedItem(&item);
    m_view->setDrawResizeButton(!item.state());
    if (!item.state()) {
        ZRScreenShotSetting::clear();
        return mManager->cancelEdite();
    }
    ZRScreenShotSetting::setSelectedScreenshotToolbarItem(&item);
    mManager->changeSelectedItem();
}

void ZRScreenShotViewController::addCancelToScreenshot(Item&)
{
    mManager->undoDrawView();
}

void ZRScreenShotViewController::addForwardToScreenshot(Item&)
{
    mManager->goForwardDrawView();
}

void ZRScreenShotViewController::graffitLineWidthChnage(Item& item)
{
    if (item.superController())
        item.superController()->changeSelectedLineWithItem(&item);
    ZRScreenShotSetting::setSelectedLineWidth(item.lineWidth());
    mManager->changeLineWidth();
}

void ZRScreenShotViewController::graffitMosicWidthChnage(Item& item)
{
    mGraffitToolbar->changeMosicItem();
    const Item* tool = ZRScreenShotSetting::selectedScreenshotToolbarItem();
    const bool isBlur = tool && tool->controlID() == QStringLiteral("blur");
    item.updateImage(isBlur ? QStringLiteral("blur") : QStringLiteral("mosaic"));
    AppSettings::saveMosicModel(!isBlur);
    mManager->changeSelectedItem();
}

void ZRScreenShotViewController::graffitColorChange(ZRColorControlItem& item)
{
    ZRScreenShotSetting::setSelectedColor(item.selectColor());
    mManager->changeDrawColor();
}

void ZRScreenShotViewController::graffitFontSizeChange(ZRFontSelectView& view)
{
    ZRScreenShotSetting::setSelectedFontSize(view.fontSize());
    mManager->changeTextFont();
}

void ZRScreenShotViewController::saveRegionShotToLocalFromhotKey()
{
    _saveRegionShotToLocal();
}

void ZRScreenShotViewController::saveToPasteboardFromhotKey()
{
    _saveToPasteboard();
}

void ZRScreenShotViewController::_saveRegionShotToLocal()
{
    if (!mIsRegionLocked)
        return;
    const auto report = reportOfCapture();
    m_delivery.deliver(takePicture(), mManager->target(), report);
    _stopScreenShot();
}

void ZRScreenShotViewController::_saveToPasteboard()
{
    if (!mIsRegionLocked)
        return;
    const auto report = reportOfCapture();
    m_delivery.copy(takePicture(), report);
    _stopScreenShot();
}

Picture ZRScreenShotViewController::takePicture()
{
    mManager->clearFocusOnGraffitView(); // what is being typed belongs to the picture
    Picture picture = createImage(createRegionImage());
    if (!picture.image.isNull())
        m_lastRegion.wasTaken({mManager->frame()->display(), regionPixels()});
    mManager->beginEnding();
    return picture;
}

void ZRScreenShotViewController::saveFullScreenToLocal()
{
    saveAreaToLocal(mManager->frame()->image().rect());
}

void ZRScreenShotViewController::saveAreaToLocal(const QRect& pixelsOnDisplay)
{
    Picture picture = createImage(mManager->frame()->crop(pixelsOnDisplay));
    mManager->beginEnding();
    m_delivery.deliver(std::move(picture), mManager->target(), reportOfCapture(pixelsOnDisplay));
}

void ZRScreenShotViewController::cancelRegionScreenShot()
{
    const quint64 capture = mManager->captureNumber();
    mManager->beginEnding();
    _stopScreenShot();
    mManager->reportOutcome(capture, {});
}

void ZRScreenShotViewController::_stopScreenShot()
{
    closeToolbars();
    mManager->stopScreenShot();
}

Picture ZRScreenShotViewController::createImage(QImage image) const
{
    const auto frame = mManager->frame();
    if (AppSettings::imageQualityUserNeed() == kNominalResolution)
        image = PictureRules::averagedToPoints(image, frame->display().scale);
    return {image, frame};
}

QImage ZRScreenShotViewController::createRegionImage() const
{
    const QRect pixels = regionPixels();
    const QImage annotated = mManager->annotatedImage(pixels);
    return annotated.isNull() ? mManager->frame()->crop(pixels) : annotated;
}

QRect ZRScreenShotViewController::regionPixels() const
{
    const Frame& frame = *mManager->frame();
    return frame.display().localPixels(regionRect()) & frame.image().rect();
}

PictureDelivery::Report ZRScreenShotViewController::reportOfCapture(const QRect& pixelsOnDisplay) const
{
    const CaptureArea area{mManager->frame()->display(), pixelsOnDisplay};
    return [manager = mManager, capture = mManager->captureNumber(), area](CaptureOutcome outcome) {
        outcome.area = area;
        manager->reportOutcome(capture, outcome);
    };
}

void ZRScreenShotViewController::uploadRegionScreenshotToCloudFromhotKey()
{
    AppSettings::setIsNeedShowUploadToCloudView(true);
    asyncUploadScreenShotToCloud(UploadRules::kPlain);
}

void ZRScreenShotViewController::share(UploadRules::ShareType type)
{
    if (mShareToolbar)
        mShareToolbar->dismissShareView();
    AppSettings::setIsNeedShowUploadToCloudView(false);
    asyncUploadScreenShotToCloud(type);
}

void ZRScreenShotViewController::asyncUploadScreenShotToCloud(UploadRules::ShareType shareType)
{
    if (!mIsRegionLocked)
        return;
    const auto report = reportOfCapture();
    m_delivery.upload(takePicture(), report, shareType);
    _stopScreenShot();
}

void ZRScreenShotViewController::screenshotShowImageWindow()
{
    if (!mIsRegionLocked)
        return;
    const auto report = reportOfCapture();
    const DisplayRecord display = mManager->frame()->display();
    const PinRules::Place place = PinRules::placeOf(display, regionRect());
    const Picture picture = takePicture();
    if (picture.image.isNull()) {
        m_delivery.refuseEmpty(report);
    } else {
        showImageWindow(picture.image.copy(), place, display);
        report({.kind = CaptureOutcome::Kind::Pinned, .size = picture.image.size()});
    }
    _stopScreenShot();
}

void ZRScreenShotViewController::showImageWindow(
    const QImage& image, const PinRules::Place& place, const DisplayRecord& display)
{
    const QScreen* screen = ToolScreen::qtScreen(display);
    const auto ignored = [](const CaptureOutcome&) {};
    auto window = ZRImageShowWindow::loadForNib();
    window->backgroundWithImage(image);
    window->setPlace(place, screen ? screen->geometry().topLeft() : QPoint());
    window->onCopy = [this, ignored](const QImage& pinned) { m_delivery.copy({pinned, {}}, ignored); };
    window->onSave = [this, ignored](const QImage& pinned) { m_delivery.save({pinned, {}}, ignored); };
    window->onClose = [this, pinned = window.get()] { forget(pinned); };
    window->orderFront();
    imageWindowLists.push_back(std::move(window));
}

// Called by the window itself: it goes when that is over.
void ZRScreenShotViewController::forget(const ZRImageShowWindow* imageWindow)
{
    const auto found = std::find_if(imageWindowLists.begin(), imageWindowLists.end(),
        [imageWindow](const auto& window) { return window.get() == imageWindow; });
    if (found == imageWindowLists.end())
        return;
    found->release()->deleteLater();
    imageWindowLists.erase(found);
}

void ZRScreenShotViewController::postLocalNotificationWithMessageTitle(
    const QString& title, const QString& messageBoddy, std::function<void()> reveal)
{
    auto notification = std::make_unique<ZRBasicLocalNotification>(title, messageBoddy, kIcon);
    if (reveal)
        notification->setClickAction(
            std::move(reveal), AppSettings::getXMLValueForKeywords(u"Lumora:Notice:RevealFile"));
    ZRLocalNotificationCenter::defaultLocalNotificationCenter().deliverZRNotification(
        std::move(notification));
}
