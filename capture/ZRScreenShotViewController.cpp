#include "capture/ZRScreenShotViewController.h"

#include "capture/PictureRules.h"
#include "capture/RegionSizeView.h"
#include "capture/ScreenShotBackView.h"
#include "capture/ToolScreen.h"
#include "capture/ZRMagnifierView.h"
#include "capture/ZRScreenShotManager.h"
#include "capture/ZRScreenshotCursorView.h"
#include "commonutils/CommLog.h"
#include "output/ZRBasicLocalNotification.h"
#include "output/ZRImageShowWindow.h"
#include "output/ZRLocalNotificationCenter.h"
#include "settings/AppSettings.h"

#include <QClipboard>
#include <QGuiApplication>

#include <algorithm>

namespace {

const QString kIcon = QStringLiteral("logo");
const QString kNothingToSave = QStringLiteral("the region holds no part of the display");
constexpr int kNominalResolution = 16; // the quality setting that asks for one pixel a point

}

ZRScreenShotViewController::ZRScreenShotViewController() = default;
ZRScreenShotViewController::~ZRScreenShotViewController() = default;

void ZRScreenShotViewController::setView(ScreenShotBackView* view)
{
    m_view = view;
    mRegionSizeView = &view->regionSizeView();
    mMagnifierView = &view->magnifierView();
    mCrossView = &view->crossView();
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
}

void ZRScreenShotViewController::clear()
{
    if (m_view) {
        m_view->clear();
        mRegionSizeView->clear();
    }
    mIsRegionLocked = false;
    AppSettings::setUseWindowRecognize(true);
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
    return mManager->isToolArmed();
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
    saveImageToFile(takePicture(), reportOfCapture());
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
    Picture picture = createImage(false);
    mManager->beginEnding();
    return picture;
}

void ZRScreenShotViewController::saveFullScreenToLocal()
{
    Picture picture = createImage(true);
    mManager->beginEnding();
    saveImageToFile(std::move(picture), reportOfCapture());
}

void ZRScreenShotViewController::cancelRegionScreenShot()
{
    const quint64 capture = mManager->captureNumber();
    mManager->beginEnding();
    _stopScreenShot();
    mManager->reportOutcome(capture, {CaptureOutcome::Kind::Cancelled, {}, {}});
}

void ZRScreenShotViewController::_stopScreenShot()
{
    mManager->stopScreenShot();
}

Picture ZRScreenShotViewController::createImage(bool isFullScreen) const
{
    const auto frame = mManager->frame();
    if (!frame)
        return {};
    const DisplayRecord& display = frame->display();
    QImage image = isFullScreen ? frame->image() : createRegionImage(*frame);
    if (AppSettings::imageQualityUserNeed() == kNominalResolution)
        image = PictureRules::averagedToPoints(image, display.scale);
    return {image, frame};
}

QImage ZRScreenShotViewController::createRegionImage(const Frame& frame) const
{
    const QRect pixels = frame.display().localPixels(regionRect());
    const QImage annotated = mManager->annotatedImage(pixels & frame.image().rect());
    return annotated.isNull() ? frame.crop(pixels) : annotated;
}

ZRScreenShotViewController::Report ZRScreenShotViewController::reportOfCapture() const
{
    return [manager = mManager, capture = mManager->captureNumber()](
               const CaptureOutcome& outcome) { manager->reportOutcome(capture, outcome); };
}

void ZRScreenShotViewController::saveImageToFile(Picture picture, const Report& report)
{
    if (picture.image.isNull())
        return fail(report, u"Comm:FaildSaveFile", kNothingToSave);
    const QString path = AppSettings::screenshotSavePath();
    CommLog::log(QStringLiteral("screenshot save path--->%1").arg(path));
    m_jobs.save(std::move(picture), path, AppSettings::screenshotType(),
        [this, report, path](const QString& failure) {
            if (!failure.isEmpty())
                return fail(report, u"Comm:FaildSaveFile", failure);
            CommLog::log(QStringLiteral("save image success"));
            tellOfSaved(path);
            report({CaptureOutcome::Kind::Saved, path, {}});
        });
}

void ZRScreenShotViewController::writeToPasteboard(Picture picture, const Report& report)
{
    if (picture.image.isNull())
        return fail(report, u"Comm:FaildSaveFile", kNothingToSave);
    m_jobs.copy(std::move(picture), [this, report](const QString& failure) {
        if (!failure.isEmpty())
            return fail(report, u"Comm:FaildCopyToClipboard", failure);
        CommLog::log(QStringLiteral("write image data to pasteboard"));
        tellOfCopied();
        report({CaptureOutcome::Kind::Copied, {}, {}});
    });
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
        fail(report, u"Comm:FaildSaveFile", kNothingToSave);
    } else {
        showImageWindow(picture.image.copy(), place, display);
        report({CaptureOutcome::Kind::Pinned, {}, {}});
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
    window->onSave = [this, ignored](const QImage& pinned) { saveImageToFile({pinned, {}}, ignored); };
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
void ZRScreenShotViewController::fail(const Report& report, QStringView titleKey, const QString& reason)
{
    CommLog::log(QStringLiteral("the picture is lost: %1").arg(reason));
    postLocalNotificationWithMessageTitle(AppSettings::getXMLValueForKeywords(titleKey), {});
    report({CaptureOutcome::Kind::Failed, {}, reason});
}

void ZRScreenShotViewController::tellOfSaved(const QString& path)
{
    const QString message = AppSettings::getXMLValueForKeywords(u"Comm:ScreenshotSavedTips");
    postLocalNotificationWithMessageTitle(AppSettings::getXMLValueForKeywords(u"Comm:SuccSavePicture"),
        QString(message).replace(QLatin1String("[#FilePath#]"), path),
        [this, path] { mManager->revealFile(path); });
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
