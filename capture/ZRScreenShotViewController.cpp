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
#include "output/ZRScreenshotUploadManager.h"
#include "settings/AppSettings.h"

#include <QClipboard>
#include <QFileInfo>
#include <QGuiApplication>

#include <algorithm>
#include <array>

namespace {

constexpr QStringView kSaveFailed = u"Comm:FaildSaveFile";
constexpr QStringView kCopyFailed = u"Comm:FaildCopyToClipboard";
const QString kIcon = QStringLiteral("logo");
const QString kNothingToSave = QStringLiteral("the region holds no part of the display");
constexpr int kNominalResolution = 16; // the quality setting that asks for one pixel a point

}

ZRScreenShotViewController::ZRScreenShotViewController() = default;
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
    for (auto& step : std::exchange(m_afterCapture, {}))
        QMetaObject::invokeMethod(this, std::move(step), Qt::QueuedConnection);
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
    deliver(takePicture(), reportOfCapture());
    _stopScreenShot();
}

void ZRScreenShotViewController::_saveToPasteboard()
{
    if (!mIsRegionLocked)
        return;
    writeToPasteboard(takePicture(), reportOfCapture());
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
    deliver(std::move(picture), reportOfCapture(pixelsOnDisplay));
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

ZRScreenShotViewController::Report ZRScreenShotViewController::reportOfCapture(
    const QRect& pixelsOnDisplay) const
{
    const CaptureArea area{mManager->frame()->display(), pixelsOnDisplay};
    return [manager = mManager, capture = mManager->captureNumber(), area](CaptureOutcome outcome) {
        outcome.area = area;
        manager->reportOutcome(capture, outcome);
    };
}

void ZRScreenShotViewController::deliver(Picture picture, const Report& report)
{
    const CaptureTarget& target = mManager->target();
    switch (target.kind) {
    case CaptureTarget::Kind::SaveFolder:
        return saveImageToFile(std::move(picture), report, AppSettings::screenshotSavePath());
    case CaptureTarget::Kind::File:
        return saveImageToFile(std::move(picture), report, target.path);
    case CaptureTarget::Kind::Clipboard:
        return writeToPasteboard(std::move(picture), report);
    case CaptureTarget::Kind::Caller:
        return handToCaller(std::move(picture), report);
    }
}

void ZRScreenShotViewController::saveImageToFile(
    Picture picture, const Report& report, const QString& path, Tell tell)
{
    if (picture.image.isNull())
        return fail(report, kSaveFailed, kNothingToSave);
    CommLog::log(QStringLiteral("screenshot save path--->%1").arg(path));
    const QSize size = picture.image.size();
    const QString imageType = QLatin1Char('.') + QFileInfo(path).suffix().toLower();
    m_jobs.save(
        std::move(picture), path, imageType, [this, report, path, tell, size](const QString& failure) {
            if (!failure.isEmpty())
                return fail(report, kSaveFailed, failure, CaptureOutcome::Kind::Unwritable);
            CommLog::log(QStringLiteral("save image success"));
            (this->*tell)(path);
            report({.kind = CaptureOutcome::Kind::Saved, .path = path, .size = size});
        });
}

// Nobody but the caller hears of it.
void ZRScreenShotViewController::handToCaller(Picture picture, const Report& report)
{
    if (picture.image.isNull())
        return fail(report, kSaveFailed, kNothingToSave);
    const QSize size = picture.image.size();
    m_jobs.encode(std::move(picture), [this, report, size](const QByteArray& png) {
        if (png.isEmpty())
            return fail(report, kSaveFailed, QStringLiteral("there is not enough memory"));
        CommLog::log(QStringLiteral("hand image data to the caller"));
        report({.kind = CaptureOutcome::Kind::Encoded, .png = png, .size = size});
    });
}

void ZRScreenShotViewController::writeToPasteboard(Picture picture, const Report& report)
{
    if (picture.image.isNull())
        return fail(report, kSaveFailed, kNothingToSave);
    const QSize size = picture.image.size();
    m_jobs.copy(std::move(picture), [this, report, size](const QString& failure) {
        if (!failure.isEmpty())
            return fail(report, kCopyFailed, failure);
        CommLog::log(QStringLiteral("write image data to pasteboard"));
        tellOfCopied();
        report({.kind = CaptureOutcome::Kind::Copied, .size = size});
    });
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
    const Report report = reportOfCapture();
    Picture picture = takePicture();
    if (!ZRScreenshotUploadManager::hasEndpoint())
        saveImageToFile(std::move(picture), report, AppSettings::screenshotSavePath(),
            &ZRScreenShotViewController::tellOfMissingEndpoint);
    else
        upload(std::move(picture), report, shareType);
    _stopScreenShot();
}

void ZRScreenShotViewController::upload(
    Picture picture, const Report& report, UploadRules::ShareType shareType)
{
    if (picture.image.isNull())
        return fail(report, kSaveFailed, kNothingToSave);
    ZRScreenshotUploadManager& manager = ZRScreenshotUploadManager::defaultManager();
    const QString path = UploadRules::temporaryPath(AppSettings::screenshotSavePath());
    const bool isFormShown = AppSettings::isNeedShowUploadToCloudView();
    const QSize size = picture.image.size();
    manager.journal().add(path);
    m_jobs.save(std::move(picture), path, QStringLiteral(".jpg"),
        [this, &manager, report, path, shareType, isFormShown, size](const QString& failure) {
            if (!failure.isEmpty()) {
                manager.journal().remove(path);
                return fail(report, kSaveFailed, failure);
            }
            report({.kind = CaptureOutcome::Kind::Uploading, .size = size});
            whenCaptureIsGone([&manager, path, shareType, isFormShown] {
                if (isFormShown)
                    manager.askAndUpload(path);
                else
                    manager.uploadScreenShotToCloud(path, {}, {}, {}, shareType);
            });
        });
}

// Windows that take keys and notices come after the overlay and its hold on the keyboard.
void ZRScreenShotViewController::whenCaptureIsGone(std::function<void()> step)
{
    if (mManager->isCapturing())
        m_afterCapture.push_back(std::move(step));
    else
        step();
}

void ZRScreenShotViewController::screenshotShowImageWindow()
{
    if (!mIsRegionLocked)
        return;
    const Report report = reportOfCapture();
    const DisplayRecord display = mManager->frame()->display();
    const PinRules::Place place = PinRules::placeOf(display, regionRect());
    const Picture picture = takePicture();
    if (picture.image.isNull()) {
        fail(report, kSaveFailed, kNothingToSave);
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
    window->onCopy = [this, ignored](const QImage& pinned) { writeToPasteboard({pinned, {}}, ignored); };
    window->onSave = [this, ignored](const QImage& pinned) {
        saveImageToFile({pinned, {}}, ignored, AppSettings::screenshotSavePath());
    };
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

// `titleKey` is the text that the user reads.
void ZRScreenShotViewController::fail(
    const Report& report, QStringView titleKey, const QString& reason, CaptureOutcome::Kind kind)
{
    const bool isCopy = titleKey == kCopyFailed;
    CommLog::log(QStringLiteral("the picture could not be %1: %2")
                     .arg(isCopy ? QStringLiteral("copied") : QStringLiteral("saved"), reason));
    postLocalNotificationWithMessageTitle(AppSettings::getXMLValueForKeywords(titleKey), {});
    report({.kind = kind, .reason = reason});
}

void ZRScreenShotViewController::tellOfSaved(const QString& path)
{
    const QString message = AppSettings::getXMLValueForKeywords(u"Comm:ScreenshotSavedTips");
    postLocalNotificationWithMessageTitle(AppSettings::getXMLValueForKeywords(u"Comm:SuccSavePicture"),
        QString(message).replace(QLatin1String("[#FilePath#]"), path),
        [this, path] { mManager->revealFile(path); });
}

void ZRScreenShotViewController::tellOfMissingEndpoint(const QString& path)
{
    tellOfSaved(path);
    postLocalNotificationWithMessageTitle(ZRScreenshotUploadManager::titleOfUploads(),
        AppSettings::getXMLValueForKeywords(u"Lumora:Upload:EndpointMissing"));
}

void ZRScreenShotViewController::tellOfCopied()
{
    const QString title = AppSettings::getXMLValueForKeywords(u"Comm:SuccSavePicture");
    postLocalNotificationWithMessageTitle(title.isNull() ? QStringLiteral("Save to finish") : title,
        AppSettings::getXMLValueForKeywords(u"Comm:ScreenshotCopiedTips"));
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
